#include "app/startUp.h"
#include "app/windows/AboutFrm.h"
#include "app/windows/frmHelp.h"
#include "app/windows/frmLook.h"
#include "app/windows/helpText.h"
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
    // Light words on a dark picture, independent of the desktop's colours; the button's caption keeps its own.
    const QImage seen = notice.grab().toImage();
    const QPoint strip = notice.lHttp->parentWidget()->geometry().topLeft() + QPoint(1, 1);
    EXPECT_LT(seen.pixelColor(strip).lightness(), 80);
    for (const QWidget *light : std::initializer_list<QWidget *>{notice.lMain, notice.Label1, notice.lHttp}) {
        EXPECT_GT(light->palette().color(QPalette::WindowText).lightness(), 240);
        EXPECT_GT(light->palette().color(QPalette::Link).lightness(), 200);
    }
    EXPECT_EQ(notice.cmOK->palette().color(QPalette::ButtonText), QApplication::palette().color(QPalette::ButtonText));
    EXPECT_GT(notice.lMain->fontInfo().pointSizeF(), 2.5 * notice.font().pointSizeF());
    EXPECT_GT(notice.Label1->fontInfo().pointSizeF(), 1.5 * notice.font().pointSizeF());
    EXPECT_TRUE(notice.lMain->font().bold() && !notice.Label1->font().bold());
    for (const QLabel *picture : {notice.imgMain, notice.Image1}) {
        const QPixmap shown = picture->pixmap();
        EXPECT_EQ(shown.width(), shown.height());
        EXPECT_EQ(shown.width(), (picture == notice.imgMain ? 7 : 2) * picture->fontMetrics().lineSpacing());
    }
    const QImage mark = notice.Image1->pixmap().toImage(); // a light ring with a letter, transparent elsewhere
    const int middle = mark.width() / 2;
    EXPECT_EQ(mark.pixelColor(0, 0).alpha(), 0);
    EXPECT_GT(mark.pixelColor(2, middle).lightness(), 200);
    int inked = 0;
    for (int x = middle / 2; x < mark.width() - middle / 2; ++x)
        for (int y = middle / 2; y < mark.height() - middle / 2; ++y)
            inked += mark.pixelColor(x, y).alpha() > 128;
    EXPECT_GT(inked, middle);
    EXPECT_TRUE(notice.cmOK->property("primary").toBool());
    const QRect bar = notice.lHttp->parentWidget()->geometry();
    EXPECT_EQ(QRect(0, bar.y(), notice.width(), notice.height() - bar.y()), bar) << "from edge to edge, at the bottom";
    EXPECT_GT(notice.lEmail->x() - notice.lHttp->geometry().right(), notice.fontMetrics().height());
    const QSize screen = notice.screen()->size();
    for (const QSize &size : {QSize(300, 200), screen * 2}) {
        notice.resize(size);
        EXPECT_EQ(notice.Picture1->size(), screen.expandedTo(notice.size()))
            << "a window may be larger than the screen";
    }
    EXPECT_NE(notice.childAt(notice.lMain->geometry().center()), notice.Picture1);
    for (const QLabel *centred : {notice.lMain, notice.imgMain}) // in rows that are wider than their contents
        EXPECT_TRUE(centred->alignment().testFlag(Qt::AlignHCenter));
    int unloads = 0;
    QObject::connect(&notice, &frmLook::unloaded, [&] { ++unloads; });
    QTest::keyClick(notice.cmOK, Qt::Key_Return);
    EXPECT_FALSE(notice.isVisible());
    notice.show();
    QTest::keyClick(&notice, Qt::Key_Escape);
    EXPECT_EQ(unloads, 2);
    EXPECT_TRUE(host.boxes.isEmpty());
}

// Dusk above, a lamp in the middle, and a shelf with books of several colours below: as a coarse raster, and one book.
TEST(Notice, ThePictureIsASkyOverAShelf) {
    Backdrop backdrop(u"Picture1"_s);
    backdrop.resize(600, 400);
    const QImage picture = backdrop.grab().toImage();
    const auto expectRaster = [&picture](const QRect &part, int across, const QList<int> &lightness) {
        const QImage coarse = picture.copy(part).scaled(across, int(lightness.size()) / across, Qt::IgnoreAspectRatio,
                                                        Qt::SmoothTransformation);
        for (int at = 0; at < lightness.size(); ++at)
            EXPECT_NEAR(coarse.pixelColor(at % across, at / across).lightness(), lightness[at], 3) << at;
    };
    expectRaster(picture.rect(), 6,
                 {47, 59, 73, 73, 59, 47, 60, 76, 94, 94, 76, 60, 73, 81, 92, 92, 80, 72, 92, 84, 83, 88, 86, 88});
    expectRaster({100, 258, 30, 142}, 5,
                 {74, 75, 76, 77, 77, 74, 75, 90, 76, 73,  74, 84, 107, 92, 78,  75,  76, 93,  76, 71,  78,  68, 93, 76,
                  76, 94, 73, 93, 76, 71, 80, 68, 93, 76,  70, 80, 68,  93, 76,  70,  80, 68,  93, 76,  70,  80, 68, 93,
                  76, 70, 80, 68, 93, 76, 70, 80, 77, 107, 92, 77, 137, 73, 173, 149, 77, 136, 69, 130, 109, 71});
}

TEST(Links, OpenOutsideTheProgramAndReportAFailedWebLink) {
    ScriptedHost host;
    frmLook notice(host);
    AboutFrm about(host);
    about.show();
    QApplication::setActiveWindow(&about);
    for (widgets::ClickLabel *link : {notice.lHttp, notice.lEmail, about.lHttp, about.lEmail1}) {
        host.shellWorks = true;
        EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor);
        EXPECT_EQ(link->foregroundRole(), QPalette::Link);
        EXPECT_EQ(link->accessibleName(), link == notice.lHttp || link == about.lHttp ? u"网站"_s : u"电子邮件"_s);
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

TEST(About, ShowsTheMakerBelowThePicture) {
    ScriptedHost host;
    AboutFrm about(host);
    about.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&about));
    const int line = about.fontMetrics().height();
    EXPECT_EQ(about.Image3->geometry().topLeft(), QPoint());
    EXPECT_EQ(about.Image3->width(), about.width());
    EXPECT_GE(about.Image3->height(), 6 * line);
    EXPECT_GE(about.Label2->x(), about.Image1->geometry().right());
    EXPECT_GE(about.width() - about.Command1->geometry().right() - 1, line);
    EXPECT_TRUE(about.Label2->font().bold());
    EXPECT_EQ(about.focusWidget(), about.Command1);
    EXPECT_GT(about.Label2->font().pointSizeF(), 1.4 * about.font().pointSizeF());
}

// The text fills the window; it can be selected and not changed.
TEST(Help, ShowsItsSectionsToRead) {
    frmHelp help;
    help.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&help));
    const QString text = help.RichTextBox1->toPlainText();
    for (const HelpSection &section : helpSections)
        EXPECT_TRUE(text.contains(section.title)) << section.title.toUtf8().constData();
    EXPECT_TRUE(text.contains(helpStandards.back().number));
    EXPECT_TRUE(help.RichTextBox1->isReadOnly());
    EXPECT_TRUE(help.RichTextBox1->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    EXPECT_TRUE(help.isAncestorOf(help.RichTextBox1) && help.RichTextBox1->width() > help.width() * 9 / 10);
    EXPECT_GT(help.RichTextBox1->viewport()->width(), 40 * help.fontMetrics().height());
}
