// The two assistants. Set the incoming text, then open the window modally; edit() does both and gives back the text
// that was confirmed, nothing after a cancel.
#pragma once

#include "assist/windows/codedBoxWindow.h"

namespace assist {

// The 24 characters of a record's leader, box by box.
class frmHelpLR000 final : public CodedBoxWindow {
    Q_OBJECT
public:
    explicit frmHelpLR000(platform::Host &host, QWidget *parent = nullptr);

    QString publicTouBiao; // the incoming text

protected:
    QString &incoming() override { return publicTouBiao; }
};

// The 36 characters of the general processing data in field 100, box by box.
class frmHelpLR100 final : public CodedBoxWindow {
    Q_OBJECT
public:
    explicit frmHelpLR100(platform::Host &host, QWidget *parent = nullptr);

    QString public100ZD; // the incoming text

protected:
    QString &incoming() override { return public100ZD; }
};

} // namespace assist
