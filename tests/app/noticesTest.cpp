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
    EXPECT_TRUE(notice.isMaximized() && notice.cmOK->hasFocus());
    // Light words on a dark picture, independent of the desktop's colours; the button keeps its own.
    const QImage seen = notice.grab().toImage();
    const QPoint strip = notice.lHttp->parentWidget()->geometry().topLeft() + QPoint(1, 1);
    EXPECT_LT(seen.pixelColor(strip).lightness(), 80);
    for (const QWidget *light : std::initializer_list<QWidget *>{notice.lMain, notice.Label1, notice.lHttp}) {
        EXPECT_GT(light->palette().color(QPalette::WindowText).lightness(), 240);
        EXPECT_GT(light->palette().color(QPalette::Link).lightness(), 200);
    }
    EXPECT_EQ(notice.cmOK->palette().color(QPalette::ButtonText), QApplication::palette().color(QPalette::ButtonText));
    EXPECT_GT(notice.lMain->fontInfo().pointSizeF(), 2 * notice.Label1->fontInfo().pointSizeF() * 0.75);
    EXPECT_TRUE(notice.lMain->font().bold() && !notice.Label1->font().bold());
    for (const QLabel *picture : {notice.imgMain, notice.Image1}) {
        const QPixmap shown = picture->pixmap();
        EXPECT_EQ(shown.width(), shown.height());
        EXPECT_EQ(shown.width(), (picture == notice.imgMain ? 7 : 2) * picture->fontMetrics().lineSpacing());
    }
    const QImage mark = notice.Image1->pixmap().toImage(); // a light ring with a letter on nothing
    const int middle = mark.width() / 2;
    EXPECT_EQ(mark.pixelColor(0, 0).alpha(), 0);
    EXPECT_GT(mark.pixelColor(2, middle).lightness(), 200);
    int inked = 0;
    for (int x = middle / 2; x < mark.width() - middle / 2; ++x)
        for (int y = middle / 2; y < mark.height() - middle / 2; ++y)
            inked += mark.pixelColor(x, y).alpha() > 128;
    EXPECT_GT(inked, middle);
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

// Dusk above, a lamp in the middle, and a shelf with books of several colours below.
TEST(Notice, ThePictureIsASkyOverAShelf) {
    Backdrop backdrop(u"Picture1"_s);
    backdrop.resize(600, 400);
    const QImage picture = backdrop.grab().toImage();
    EXPECT_EQ(picture, backdrop.grab().toImage()) << "the same books each time";
    const auto light = [&](int x, int y) { return picture.pixelColor(x, y).lightness(); };
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(0x12, 0x26, 0x3f));
    EXPECT_EQ(picture.pixelColor(0, 240), QColor(0x25, 0x49, 0x66));
    EXPECT_TRUE(light(0, 0) < light(0, 120) && light(0, 120) < light(0, 240) && light(0, 240) < light(0, 255));
    EXPECT_TRUE(light(0, 144) < light(480, 144) && light(480, 144) < light(300, 144));
    QSet<int> hues;
    int spines = 0, labels = 0;
    for (int x = 0; x < 600; ++x) {
        hues.insert(picture.pixelColor(x, 350).hsvHue() / 20);
        spines += light(x, 350);
        labels += light(x, 383);
    }
    EXPECT_GE(hues.size(), 6);
    EXPECT_GT(labels, spines * 5 / 4);
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
