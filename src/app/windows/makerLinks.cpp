#include "app/windows/makerLinks.h"
#include "app/windows/maker.h"
#include "widgets/waitCursor.h"

using namespace Qt::StringLiterals;
using widgets::ClickLabel;

namespace app {

namespace {

ClickLabel *link(const QString &objectName, QStringView text, const QString &accessibleName) {
    auto *made = new ClickLabel(objectName, text.toString(), ClickLabel::Look::Underlined);
    made->setAccessibleName(accessibleName);
    made->setForegroundRole(QPalette::Link);
    made->setCursor(Qt::PointingHandCursor);
    return made;
}

} // namespace

ClickLabel *webLink(const QString &objectName, platform::Host &host, QWidget *window) {
    ClickLabel *made = link(objectName, makerWeb, u"网站"_s);
    QObject::connect(made, &ClickLabel::clicked, window, [&host, window] {
        const widgets::WaitCursor waiting(window);
        if (!host.openInShell(makerWeb.toString()))
            host.tell(u"浏览器没有正确安装或其它错误。"_s, u"登录错误"_s, platform::Icon::Critical);
    });
    return made;
}

ClickLabel *mailLink(const QString &objectName, platform::Host &host, QWidget *window) {
    ClickLabel *made = link(objectName, makerMail, u"电子邮件"_s);
    QObject::connect(made, &ClickLabel::clicked, window, [&host, window] {
        const widgets::WaitCursor waiting(window);
        host.openInShell(u"mailto:" + makerMail);
    });
    return made;
}

} // namespace app
