// Makes the catalogue card of one record as plain text, with a fixed order of tags, card punctuation and numbered
// tracings. Its only line breaks (CR LF) are those of the card.
#pragma once

#include "marc/rawRecord.h"
#include <QStringList>
#include <optional>

namespace card {

struct Card {
    std::optional<QString> text; // std::nullopt: the text box keeps its text
    QStringList boxes;           // messages without a title, shown before the text, in order
    QString fault;               // message about the fault that ended the card, shown after `boxes`; empty if none
};

Card showKapian(const marc::RawRecord &record);

} // namespace card
