// Reports the current entry of a list or table that gets the focus to a screen reader; the toolkit reports only the
// list.
#pragma once

#include <QObject>

namespace widgets {

class FocusReader final : public QObject {
public:
    FocusReader(); // follows the focus of the whole program

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace widgets
