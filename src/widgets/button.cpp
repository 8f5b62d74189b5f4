#include "widgets/button.h"
#include "platform/desktop/frontWindow.h"
#include <QKeyEvent>
#include <QPointer>
#include <QShortcutEvent>

namespace widgets {

Button::Button(const QString &objectName, const QString &caption, QWidget *parent)
    : QPushButton(caption, parent) {
    setObjectName(objectName);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAutoDefault(false); // Enter is used by the fields and grids
    QString name = caption;
    setAccessibleName(name.remove(u'&').trimmed());
}

int Button::captionWidth(int characters) const {
    return fontMetrics().size(Qt::TextShowMnemonic, text()).width() + characters * fontMetrics().averageCharWidth();
}

bool Button::event(QEvent *event) {
    if (event->type() == QEvent::Shortcut && platform::isBlocked(this))
        return true;
    if (event->type() == QEvent::Shortcut && isEnabled()) {
        // If two buttons of a window have the same access key, the key only moves the focus between them.
        if (static_cast<QShortcutEvent *>(event)->isAmbiguous())
            setFocus(Qt::ShortcutFocusReason);
        else
            clickByKey();
        return true;
    }
    return QPushButton::event(event);
}

void Button::clickByKey() {
    const QPointer<QWidget> former = window()->focusWidget();
    const QPointer<Button> self = this;
    setFocus(Qt::ShortcutFocusReason); // leaving the previous control may disable this button
    if (isEnabled())
        click();
    if (self && former && window()->focusWidget() == this && former->isVisible())
        former->setFocus(Qt::OtherFocusReason);
}

void Button::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace widgets
