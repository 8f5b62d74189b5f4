// Small controls: the text box, the controls that a run disables, and the remembered state of a window.
#include "platform/desktop/faces.h"
#include "support/showActive.h"
#include "support/testFolder.h"
#include "support/windowState.h"
#include "widgets/accentFrame.h"
#include "widgets/keys.h"
#include "widgets/remembered.h"
#include "widgets/runControls.h"
#include "widgets/styleTokens.h"
#include "widgets/textBox.h"
#include "widgets/waitCursor.h"
#include <QTest>

using namespace widgets;

namespace {

TEST(RunControls, DisableAndLockUntilTheRunEnds) {
    QWidget window;
    QPushButton start(&window), stop(&window);
    QLineEdit path(&window);
    start.setObjectName(u"start"_s);
    stop.setObjectName(u"stop"_s);
    path.setObjectName(u"path"_s);
    stop.move(0, 40);
    path.move(0, 80);
    showActive(window);
    start.setFocus();
    WindowState state(window);
    RunControls controls;
    controls.begin(&window, {&start}, {&path});
    EXPECT_EQ(state.changes(), u"stop focus; start off"_s);
    EXPECT_TRUE(path.isReadOnly() && path.isEnabled());
    EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    controls.end();
    EXPECT_EQ(state.changes(), u"start focus; start on"_s);
    EXPECT_FALSE(path.isReadOnly());
    EXPECT_NE(window.cursor().shape(), Qt::WaitCursor);
    QWidget other;
    const PacedLabel *progress = progressLabel(u"progress"_s, &other);
    other.show();
    EXPECT_TRUE(!progress->isVisible() && progress->sizePolicy().retainSizeWhenHidden());
}

TEST(WaitCursor, NestsOnTheScreen) {
    QWidget window;
    const auto waits = [] { return QGuiApplication::overrideCursor() != nullptr; };
    {
        const WaitCursor outer;
        { const WaitCursor shown(&window); }
        EXPECT_TRUE(waits()) << "the wait of a window ends alone";
        WaitCursor().leaveOn();
        EXPECT_TRUE(waits());
        {
            const WaitCursor inner;
            EXPECT_TRUE(waits());
        }
        EXPECT_FALSE(waits()) << "the end of a nested wait ends the outer one";
    }
    QGuiApplication::setOverrideCursor(Qt::SizeAllCursor); // as while a window is moved
    {
        const WaitCursor shown(&window);
        EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
    }
    EXPECT_TRUE(waits()) << "a cursor set by other code stays";
    EXPECT_NE(window.cursor().shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
}

TEST(Keys, EnterActsAsTabInItsControlOnly) {
    QWidget window;
    QLineEdit first(&window), second(&window);
    enterActsAsTab(&first);
    showActive(window);
    for (const auto &[key, reached] :
         {std::pair(Qt::Key_Return, &second), {Qt::Key_Enter, &second}, {Qt::Key_A, &first}}) {
        first.setFocus();
        QTest::keyClick(&first, key);
        EXPECT_EQ(window.focusWidget(), reached) << key;
    }
    EXPECT_EQ(first.text(), u"a"_s);
}

TEST(AccentFrame, FollowsItsWidgetInsideTheParent) {
    QWidget window;
    window.resize(200, 100);
    auto *framed = new QLineEdit(&window);
    QWidget beside(&window);
    framed->hide();
    const QPointer<AccentFrame> frame = new AccentFrame(framed);
    window.show();
    framed->setGeometry(50, 30, 20, 10);
    EXPECT_TRUE(frame->isHidden()) << "a hidden widget has no frame";
    framed->show();
    for (const auto &[place, expected] : {std::pair(QRect(50, 30, 20, 10), QRect(48, 28, 24, 14)),
                                          {QRect(90, 30, 20, 10), QRect(88, 28, 24, 14)},
                                          {QRect(90, 30, 50, 10), QRect(88, 28, 54, 14)},
                                          {QRect(0, 0, 200, 10), QRect(0, 0, 200, 12)}}) {
        framed->setGeometry(place);
        EXPECT_TRUE(frame->isVisible() && frame->geometry() == expected);
        EXPECT_FALSE(frame->mask().contains(frame->rect().center()));
        EXPECT_TRUE(frame->mask().contains(QPoint(0, 0)));
        EXPECT_EQ(frame->grab().toImage().pixelColor(0, 0), colour(Colour::Accent, frame->palette()));
    }
    QTest::keyClicks(framed, u"x"_s);
    EXPECT_EQ(framed->text(), u"x") << "the frame takes no events";
    EXPECT_TRUE(frame->testAttribute(Qt::WA_TransparentForMouseEvents));
    beside.raise();
    framed->raise();
    EXPECT_EQ(window.children().last(), frame.data());
    framed->hide();
    EXPECT_TRUE(frame->isHidden());
    delete framed;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(frame);
}

TEST(Remembered, PlaceAndColumnWidths) {
    const TestFolder folder;
    const platform::DeskState state(folder.path());
    QSize size(433, 222);
    int width = 0;
    for (const bool first : {true, false}) {
        QWidget window;
        window.setObjectName(u"window"_s);
        window.resize(600, 400);
        rememberPlace(&window, state);
        FlexGrid grid(u"Grid1"_s, 3, 1, &window);
        grid.setFormat(u"甲|乙|丙|多余"_s); // more headings than columns
        EXPECT_EQ(grid.text(0, 2), u"丙"_s);
        for (int column = 0; column < 3; ++column)
            grid.setColumnTwips(column, 1500);
        recallColumns(grid, state, u"window"_s);
        window.show();
        if (first) {
            window.resize(size);
            grid.setColumnWidth(1, 177); // by the user
            width = grid.columnWidth(2);
            keepColumns(grid, state, u"window"_s);
        }
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(grid.columnWidth(1), 177);
        EXPECT_EQ(grid.columnWidth(2), width);
        window.close();
        const QByteArray kept = state.value(platform::kept::geometry, u"window"_s);
        window.show();
        window.resize(111, 99);
        window.hide();
        EXPECT_EQ(state.value(platform::kept::geometry, u"window"_s), kept) << "only when it is closed";
    }
}

// Line ends, control characters and long lines are returned as they were set.
TEST(TextBox, KeepsEveryCharacter) {
    QWidget window;
    TextBox box(u"Text1"_s, &window);
    const QLineEdit next(&window);
    window.show();
    EXPECT_EQ(box.font().families(), platform::songFaces());
    EXPECT_EQ(box.font().pointSize(), QApplication::font().pointSize() + 2);
    const QString long1(4096, u'x'), long2(4097, u'x'), surrogates = QString(4095, u'x') + u"𠮷𠮷";
    for (const QString &text :
         QStringList{QString(), u"a\r\nb"_s, u"\r\n\r\n"_s, u"\x1D\x1E\x1F\t\x01"_s, u"a\rb"_s, long1, long2,
                     surrogates, long2 + u"\r\n" + long2 + u"\r\n", long1.repeated(3) + u"\x1F"}) {
        box.setText(text);
        EXPECT_EQ(box.text(), text) << text.size();
        EXPECT_EQ(box.blockCount() == 1, text.size() <= 4096 && !text.contains(u'\n')) << text.size();
        box.selectAll();
        box.copy();
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QString(text).replace(u"\r\n"_s, u"\n"_s)) << text.size();
    }
    EXPECT_TRUE(box.toPlainText().contains(TextBox::signOf(QChar(0x1F))));
    box.setText(u"书\x1F"_s);
    const auto formats = box.document()->firstBlock().layout()->formats();
    ASSERT_EQ(formats.size(), 1) << "the sign alone has a colour";
    EXPECT_TRUE(formats[0].start == 1 && formats[0].format.foreground().color() == box.palette().color(QPalette::Link));
    box.resize(200, 100);
    box.setText(u"x"_s.repeated(300));
    EXPECT_GT(box.document()->firstBlock().layout()->lineCount(), 1);
    for (const auto &[pasted, text] : {std::pair(u"1\n2"_s, u"1\r\n2"_s), {u"1\r2\r\n3"_s, u"1\r\n2\r\n3"_s}}) {
        box.setText({});
        QGuiApplication::clipboard()->setText(pasted);
        box.paste();
        EXPECT_EQ(box.text(), text);
    }
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_FALSE(box.text().contains(u'\t')) << "Tab leaves the box";
    box.lock();
    box.paste();
    QTest::keyClicks(&box, u"x"_s);
    EXPECT_EQ(box.text(), u"1\r\n2\r\n3"_s);
    box.moveCursor(QTextCursor::Start);
    QTest::keyClick(&box, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_TRUE(box.textCursor().hasSelection()) << "by the keyboard too";
    EXPECT_FALSE(box.testAttribute(Qt::WA_InputMethodEnabled) || box.isUndoRedoEnabled());
    box.setRoom(40, 5);
    EXPECT_GE(box.sizeHint().width(), 40 * box.fontMetrics().horizontalAdvance(u'字'));
    EXPECT_GE(box.sizeHint().height(), 5 * box.fontMetrics().lineSpacing());
}

} // namespace
