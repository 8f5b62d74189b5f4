// A popup menu made from texts.
#pragma once

#include <QKeySequence>
#include <QPoint>
#include <QStringList>

class QWidget;

namespace workspace {

class menuClass {
public:
    // Shows the items at a position of the screen and waits for the choice. Returns the number of the item, counted
    // from 1, or 0 if none was chosen. A trimmed item "-" is a separator. `keys` are displayed next to the items, if
    // not empty, but not handled here.
    int Popup(const QStringList &items, const QPoint &at, QWidget *owner, const QList<QKeySequence> &keys = {});

    QString SelMenuString; // text of the chosen item, trimmed
};

} // namespace workspace
