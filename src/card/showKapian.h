// The catalogue card of one record as plain text: fixed order of tags, punctuation of the card, numbered tracings. The
// only line breaks (CR LF) are those of the card itself.
#pragma once

#include "marc/rawRecord.h"
#include <QStringList>
#include <optional>

namespace card {

struct Card {
    std::optional<QString> text; // what the text box gets; nothing where it keeps what it had
    QStringList boxes;           // plain boxes without a title of their own that come up ahead of the text, in order
    QString fault;               // the fault that ended the card, behind those boxes; else empty, fit for a box
};

Card showKapian(const marc::RawRecord &record);

} // namespace card
