#include "app/startUp.h"
#include "app/windows/AboutFrm.h"
#include "app/windows/frmLook.h"
#include "support/scriptedHost.h"

using namespace app;

TEST(Notice, KeepsItsTickAndClosesByItsButtonOrItsCross) {
    ScriptedHost host;
    frmLook notice(host);
    notice.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&notice));
    const auto kept = [&] {
        return host.settings().read(platform::settingsApplication.toString(), u"SystemInf"_s, u"IfLoad"_s, u"none"_s);
    };
    EXPECT_EQ(kept(), u"none"_s);
    notice.Check1->click();
    EXPECT_EQ(kept(), u"False"_s);
    notice.Check1->click();
    EXPECT_EQ(kept(), u"True"_s);
    notice.resize(300, 200);
    EXPECT_GE(notice.Picture1->width(), notice.screen()->size().width());
    int unloads = 0;
    QObject::connect(&notice, &frmLook::unloaded, [&] { ++unloads; });
    QTest::keyClick(notice.cmOK, Qt::Key_Return);
    EXPECT_FALSE(notice.isVisible());
    notice.show();
    QTest::keyClick(&notice, Qt::Key_Escape);
    EXPECT_EQ(unloads, 2);
    EXPECT_TRUE(host.boxes.isEmpty());
}

TEST(Links, OpenOutsideTheProgramAndReportAFailedWebLink) {
    ScriptedHost host;
    frmLook notice(host);
    AboutFrm about(host);
    about.show();
    QApplication::setActiveWindow(&about);
    for (widgets::ClickLabel *link : {notice.lHttp, notice.lEmail, about.lHttp, about.lEmail1}) {
        host.shellWorks = true;
        QTest::mouseClick(link, Qt::LeftButton);
        EXPECT_TRUE(host.boxes.isEmpty());
        host.shellWorks = false;
        QTest::keyClick(link, Qt::Key_Space);
        const bool web = host.opened.last().startsWith(u"https://"_s);
        EXPECT_EQ(host.opened.last().startsWith(u"mailto:"_s), !web);
        EXPECT_EQ(host.texts(), web ? QStringList{u"浏览器没有正确安装或其它错误。"_s} : QStringList());
        EXPECT_EQ(host.lastBox().title, web ? u"登录错误"_s : QString());
        EXPECT_NE(link->window()->cursor().shape(), Qt::WaitCursor);
        host.boxes.clear();
        QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
        QCoreApplication::sendEvent(link, &enter);
        EXPECT_TRUE(link->font().underline());
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(link, &leave);
        EXPECT_FALSE(link->font().underline());
    }
    QTest::keyClick(&about, Qt::Key_Q, Qt::AltModifier);
    EXPECT_FALSE(about.isVisible());
}
