// The texts that a screen reader reads in the workspace.
#include "workspaceFixture.h"

using ReadingAloudTest = Workspace;

TEST_F(ReadingAloudTest, TheCurrentCellAndTheCountersAreRead) {
    auto &window = open(3);
    const auto *list = QAccessible::queryAccessibleInterface(window.Grid2);
    const auto *fields = QAccessible::queryAccessibleInterface(window.Grid1);
    window.Grid1->setRow(4);
    window.Grid1->setColumn(4);
    const auto current = [](const widgets::FlexGrid *grid, const QAccessibleInterface *reader) {
        auto *table = const_cast<QAccessibleInterface *>(reader)->tableInterface();
        return table->cellAt(grid->currentIndex().row(), grid->currentIndex().column())->text(QAccessible::Name);
    };
    EXPECT_EQ(list->text(QAccessible::Name), u"题名列表"_s);
    EXPECT_EQ(current(window.Grid2, list), u"题1"_s);
    EXPECT_EQ(current(window.Grid1, fields), window.Grid1->text(4, 4));
    window.Grid1->setColumn(0); // a hidden column
    EXPECT_EQ(current(window.Grid1, fields), u"$a 正题名 题1"_s) << "the row of an empty cell";
    const auto name = [](QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    window.Text3->flush();
    EXPECT_EQ(name(window.Text2), u"当前记录 1"_s);
    EXPECT_EQ(name(window.richText), u"字段内容"_s);
    EXPECT_EQ(name(window.Text3), u"已经读出 3"_s);
    for (QWidget *control : window.findChildren<QWidget *>()) {
        const bool reachable =
            control->focusPolicy() != Qt::NoFocus && control->isVisible() && !control->inherits("QScrollBar");
        EXPECT_FALSE(reachable && name(control).isEmpty()) << qPrintable(control->objectName());
    }
}
