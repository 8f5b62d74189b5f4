// A popup menu made of texts.
#pragma once

#include <QKeySequence>
#include <QPoint>
#include <QStringList>

class QWidget;

namespace workspace {

class menuClass {
public:
    // Shows the items at a place of the screen and waits for the choice: the item's number from 1, or 0 where none was
    // chosen. An item that is "-" but for blanks is a separator. `keys` are shown beside the items, an empty one is
    // none; what they do elsewhere is the owner's affair.
    int Popup(const QStringList &items, const QPoint &at, QWidget *owner, const QList<QKeySequence> &keys = {});

    QString SelMenuString; // the chosen item's text without the blanks at its ends
};

} // namespace workspace
