// Tells a screen reader the current entry of a list or table that gets the focus; the toolkit tells it the list alone.
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
