// F1 with several windows open.
#include "app/windows/handbookKey.h"
#include "support/scriptedHost.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"

using namespace app;
using handbook::frmHandbook;

namespace {

struct HandbookKeyTest : testing::Test {
    ScriptedHost host;
    HandbookKey key{host};
    widgets::Window room{u"frmDaoru"_s, u"room"_s};
    QLineEdit *field = new QLineEdit(&room);

    void SetUp() override { putInFront(room); }
    static void putInFront(QDialog &window) { // in front of all windows, like the program's dialogs
        window.setModal(true);
        window.show();
    }
    static frmHandbook *viewer() {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (auto *found = qobject_cast<frmHandbook *>(window); found && found->isVisible())
                return found;
        return nullptr;
    }
    static QString page() { return viewer() ? viewer()->view->file() : u"none"_s; }
    static void press(QWidget *window) {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }));
        QTest::keyClick(window->focusWidget() ? window->focusWidget() : window, Qt::Key_F1);
    }
    // Returns whether mouse clicks reach the handbook.
    static bool takesClicks() {
        QCoreApplication::processEvents();
        viewer()->findText->setText(u"x"_s);
        QWidget *clear = viewer()->cmdContents;
        viewer()->view->open(u"keys.md"_s);
        QTest::mouseClick(viewer()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          clear->mapTo(viewer(), clear->rect().center()));
        return viewer()->view->file() == handbook::firstPage;
    }
};

} // namespace

TEST_F(HandbookKeyTest, OpensThePageOfTheFrontWindowAndKeepsTheField) {
    field->setText(u"half"_s);
    field->setFocus();
    for (const auto &[type, key, modifiers, repeated] :
         {std::tuple(QEvent::ShortcutOverride, Qt::Key_F1, Qt::NoModifier, false),
          {QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, true},
          {QEvent::KeyPress, Qt::Key_F1, Qt::ShiftModifier, false},
          {QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier, false}}) {
        QKeyEvent event(type, key, modifiers, QString(), repeated);
        event.ignore();
        QApplication::sendEvent(field, &event);
        EXPECT_EQ(event.isAccepted(), key == Qt::Key_F1 && modifiers == Qt::NoModifier);
        EXPECT_FALSE(viewer());
    }
    press(&room);
    ASSERT_EQ(page(), u"workspace.md"_s);
    EXPECT_GT(viewer()->view->verticalScrollBar()->value(), 0) << "the page opens at its section";
    EXPECT_EQ(field->text(), u"half"_s);
    press(viewer()); // in the handbook itself
    EXPECT_EQ(page(), u"workspace.md"_s);
    QTest::keyClick(viewer()->view, Qt::Key_H, Qt::AltModifier); // the contents button
    EXPECT_EQ(page(), handbook::firstPage);
    EXPECT_TRUE(takesClicks()) << "even while a modal window is open";
}

TEST_F(HandbookKeyTest, ItStaysUsableWhileWindowsOpenAndClose) {
    press(&room);
    frmHandbook *first = viewer();
    {
        widgets::Window run(u"frmDaoRuJindu"_s, u"run"_s, &room);
        putInFront(run);
        EXPECT_TRUE(takesClicks()) << "even while another window is opened later";
        press(&run);
        EXPECT_EQ(page(), u"import.md"_s);
        EXPECT_EQ(viewer(), first) << "there is only one handbook";
    }
    EXPECT_TRUE(viewer() && takesClicks()) << "after that window has closed";
    QTest::keyClick(viewer(), Qt::Key_Escape);
    EXPECT_FALSE(viewer());
    EXPECT_TRUE(QTest::qWaitFor([&] { return room.isActiveWindow(); })) << "the previous window has the keyboard again";
}

// Even if the keyboard focus is in the frame's own controls, the window in front is the list.
TEST_F(HandbookKeyTest, AListInTheFrameIsTheWindowInFront) {
    room.close();
    QMainWindow frame;
    frame.setObjectName(u"marcMain"_s);
    auto *area = new QMdiArea(&frame);
    frame.setCentralWidget(area);
    frame.show();
    press(&frame);
    EXPECT_EQ(page(), u"start.md"_s);
    viewer()->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return frame.isActiveWindow(); }));
    auto *list = new QWidget;
    list->setObjectName(u"TLKListFrm"_s);
    area->addSubWindow(list)->show();
    press(&frame);
    EXPECT_EQ(page(), u"store.md"_s);
}
