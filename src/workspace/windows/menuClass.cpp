#include "workspace/windows/menuClass.h"
#include "platform/numbers.h"
#include <QMenu>

namespace workspace {

int menuClass::Popup(const QStringList &items, const QPoint &at, QWidget *owner, const QList<QKeySequence> &keys) {
    QMenu menu(owner);
    for (int i = 0; i < items.size(); ++i) {
        const QString text = platform::trimBlanks(items[i]);
        if (text == u"-")
            menu.addSeparator();
        else
            menu.addAction(text, keys.value(i))->setData(i + 1);
    }
    const QAction *chosen = menu.exec(at);
    SelMenuString = chosen ? chosen->text() : QString();
    return chosen ? chosen->data().toInt() : 0;
}

} // namespace workspace
