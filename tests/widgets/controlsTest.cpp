// Small controls: the text box, what a run disables, and what is remembered of a window.
#include "platform/desktop/faces.h"
#include "support/testFolder.h"
#include "support/windowState.h"
#include "widgets/remembered.h"
#include "widgets/runControls.h"
#include "widgets/textBox.h"
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
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
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
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
    }
}

// Line ends, control characters and long lines are returned as they were set.
TEST(TextBox, KeepsEveryCharacter) {
    TextBox box(u"Text1"_s);
    EXPECT_EQ(box.font().families(), platform::songFaces());
    EXPECT_EQ(box.font().pointSize(), QApplication::font().pointSize() + 2);
    const QString long1(4096, u'x'), long2(4097, u'x'), surrogates = QString(4095, u'x') + u"𠮷𠮷";
    for (const QString &text :
         QStringList{QString(), u"a\r\nb"_s, u"\r\n\r\n"_s, u"\x1D\x1E\x1F\t\x01"_s, u"a\rb"_s, long1, long2,
                     surrogates, long2 + u"\r\n" + long2 + u"\r\n", long1.repeated(3) + u"\x1F"}) {
        box.setText(text);
        EXPECT_EQ(box.text(), text) << text.size();
        box.selectAll();
        box.copy();
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QString(text).replace(u"\r\n"_s, u"\n"_s)) << text.size();
    }
    EXPECT_TRUE(box.toPlainText().contains(TextBox::signOf(QChar(0x1F))));
    for (const auto &[pasted, text] : {std::pair(u"1\n2"_s, u"1\r\n2"_s), {u"1\r2\r\n3"_s, u"1\r\n2\r\n3"_s}}) {
        box.setText({});
        QGuiApplication::clipboard()->setText(pasted);
        box.paste();
        EXPECT_EQ(box.text(), text);
    }
    box.lock();
    box.paste();
    QTest::keyClicks(&box, u"x"_s);
    EXPECT_EQ(box.text(), u"1\r\n2\r\n3"_s);
    box.setRoom(40, 5);
    EXPECT_GE(box.sizeHint().width(), 40 * box.fontMetrics().horizontalAdvance(u'字'));
    EXPECT_GE(box.sizeHint().height(), 5 * box.fontMetrics().lineSpacing());
}

} // namespace
