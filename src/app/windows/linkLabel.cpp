#include "app/windows/linkLabel.h"
#include "app/windows/maker.h"
#include "widgets/window.h"
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace app {

LinkLabel::LinkLabel(const QString &objectName, const QString &text, const QString &accessibleName)
    : QLabel(text) {
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setTextFormat(Qt::PlainText);
    setForegroundRole(QPalette::Link);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
}

void LinkLabel::underline(bool on) {
    QFont underlined = font();
    underlined.setUnderline(on);
    setFont(underlined);
}

void LinkLabel::enterEvent(QEnterEvent *) {
    underline(true);
}
void LinkLabel::leaveEvent(QEvent *) {
    underline(false);
}
void LinkLabel::focusInEvent(QFocusEvent *event) {
    underline(true);
    QLabel::focusInEvent(event);
}
void LinkLabel::focusOutEvent(QFocusEvent *event) {
    underline(false);
    QLabel::focusOutEvent(event);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

void LinkLabel::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        Q_EMIT clicked();
    else
        QLabel::keyPressEvent(event);
}

LinkLabel *webLink(const QString &objectName, platform::Host &host, QWidget *window) {
    auto *link = new LinkLabel(objectName, makerWeb.toString(), u"网站"_s);
    QObject::connect(link, &LinkLabel::clicked, window, [&host, window] {
        const widgets::WaitCursor waiting(window);
        if (!host.openInShell(makerWeb.toString()))
            host.tell(u"浏览器没有正确安装或其它错误。"_s, u"登录错误"_s, platform::Icon::Critical);
    });
    return link;
}

LinkLabel *mailLink(const QString &objectName, platform::Host &host, QWidget *window) {
    auto *link = new LinkLabel(objectName, makerMail.toString(), u"电子邮件"_s);
    QObject::connect(link, &LinkLabel::clicked, window, [&host, window] {
        const widgets::WaitCursor waiting(window);
        host.openInShell(u"mailto:" + makerMail);
    });
    return link;
}

} // namespace app
