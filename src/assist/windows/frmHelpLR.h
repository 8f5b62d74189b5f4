// The two assistants. Set the incoming text and open the window modally, or call edit(), which does both and returns
// the confirmed text, or std::nullopt if the user cancelled.
#pragma once

#include "assist/windows/codedBoxWindow.h"

namespace assist {

// Edits the 24 characters of a record leader, box by box.
class frmHelpLR000 final : public CodedBoxWindow {
    Q_OBJECT
public:
    explicit frmHelpLR000(platform::Host &host, QWidget *parent = nullptr);

    QString publicTouBiao; // the incoming text

protected:
    QString &incoming() override { return publicTouBiao; }
};

// Edits the 36 characters of the general processing data in field 100, box by box.
class frmHelpLR100 final : public CodedBoxWindow {
    Q_OBJECT
public:
    explicit frmHelpLR100(platform::Host &host, QWidget *parent = nullptr);

    QString public100ZD; // the incoming text

protected:
    QString &incoming() override { return public100ZD; }
};

} // namespace assist
