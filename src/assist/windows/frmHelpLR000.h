// The leader assistant: the 24 characters of a record's leader, box by box. Set publicTouBiao, then open the window
// modally; edit() does both and gives back the text that was confirmed, nothing after a cancel.
#pragma once

#include "assist/windows/codedBoxWindow.h"
#include <optional>

namespace assist {

class frmHelpLR000 : public CodedBoxWindow {
    Q_OBJECT
public:
    explicit frmHelpLR000(platform::Host &host, QWidget *parent = nullptr);
    static std::optional<QString> edit(platform::Host &host, QWidget *parent, const QString &incoming);

    QString publicTouBiao; // the incoming text

protected:
    QString incoming() const override { return publicTouBiao; }
};

} // namespace assist
