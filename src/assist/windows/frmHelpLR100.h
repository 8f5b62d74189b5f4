// The field 100 assistant: the 36 characters of the general processing data, box by box. Set public100ZD, then open the
// window modally; edit() does both and gives back the text that was confirmed, nothing after a cancel.
#pragma once

#include "assist/windows/codedBoxWindow.h"
#include <optional>

namespace assist {

class frmHelpLR100 : public CodedBoxWindow {
    Q_OBJECT
public:
    explicit frmHelpLR100(platform::Host &host, QWidget *parent = nullptr);
    static std::optional<QString> edit(platform::Host &host, QWidget *parent, const QString &incoming);

    QString public100ZD; // the incoming text

protected:
    QString incoming() const override { return public100ZD; }
};

} // namespace assist
