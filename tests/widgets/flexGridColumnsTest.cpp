// Widths of columns, and the tool tips of texts that are cut.
#include "flexGridFixture.h"
#include "widgets/flexGridColours.h"

namespace {

using FlexGridWidths = FlexGridTest;

TEST_F(FlexGridWidths, TheStretchedColumnTakesWhatTheOthersLeave) {
    for (const int column : {1, 2, 3})
        grid.setColumnTwips(column, 300);
    grid.setStretchColumn(3);
    const auto rest = [&] { return grid.viewport()->width() - grid.columnWidth(1) - grid.columnWidth(2); };
    EXPECT_EQ(grid.columnWidth(3), rest());
    grid.setColumnWidth(1, 60); // by the user
    EXPECT_EQ(grid.columnWidth(3), rest());
    grid.setColumnTwips(2, 2000);
    EXPECT_EQ(grid.columnWidth(3), rest());
    grid.resize(300, 260);
    EXPECT_EQ(grid.columnWidth(3), rest());
    grid.setColumnTwips(3, 9000);
    EXPECT_EQ(grid.columnWidth(3), grid.toPixels(9000)) << "the width set by the program is the least";
    EXPECT_GT(grid.horizontalScrollBar()->maximum(), 50) << "scrolls by pixels";
    grid.setColumnWidth(3, 33); // by the user
    grid.resize(350, 260);
    EXPECT_EQ(grid.columnWidth(3), 33);
    EXPECT_EQ(grid.drawnWidths(), (QMap<int, int>{{1, 60}, {3, 33}}));
    grid.setDrawnWidths({{-1, 50}, {0, 50}, {1, 1}, {2, 70}, {4, 50}});
    EXPECT_EQ(grid.drawnWidths(), (QMap<int, int>{{1, 4}, {2, 70}, {3, 33}}));
    EXPECT_EQ(grid.columnTwips(0), 0) << "a hidden column stays hidden";
    for (const int column : {1, 2})
        grid.setColumnTwips(column, 0);
    EXPECT_TRUE(grid.isColumnHidden(2));
    grid.setColumn(1);
    EXPECT_EQ(grid.currentIndex().column(), 3) << "the only one that is shown";
    grid.setColumnTwips(2, 1);
    EXPECT_FALSE(grid.isColumnHidden(2));
}

TEST_F(FlexGridWidths, AnEditorFindsItsCell) {
    grid.setColumnTwips(1, 3000);
    grid.setColumnTwips(3, 9000);
    grid.setRows(200);
    EXPECT_EQ(grid.cellRect(0, 1).bottom() + 1, grid.cellRect(1, 1).top());
    EXPECT_EQ(grid.columnTwips(3), 9000);
    for (const int height : {260, 120}) {
        grid.resize(380, height);
        grid.setRow(150);
        grid.setColumn(3);
        const QRect place = grid.cellRect(150, 3);
        EXPECT_TRUE(grid.geometry().contains(place));
        EXPECT_EQ(grid.indexAt(at(150, 3)), grid.model()->index(149, 3));
        EXPECT_GT(place.width(), 300);
    }
    grid.setColumnTwips(2, 100);
    EXPECT_GE(grid.columnWidth(2), grid.fontMetrics().horizontalAdvance(u"标识"_s))
        << "a column is at least as wide as its heading";
    EXPECT_EQ(grid.columnTwips(2), 100);
    grid.setColumnWidth(2, 99); // by the user
    grid.setColumnTwips(2, 1800);
    EXPECT_EQ(grid.columnTwips(2), grid.toTwips(99));
    grid.setHeadingTwips(750);
    EXPECT_EQ(grid.cellRect(0, 2).height(), grid.toPixels(750));
}

TEST_F(FlexGridWidths, TwipsGrowWithAFontAboveTheDesignSize) {
    grid.setColumnTwips(1, 3000);
    grid.setColumnTwips(2, 3000);
    grid.setColumnWidth(2, 77); // by the user
    const auto inch = [this](int size) {
        QFont font = grid.font();
        font.setPixelSize(size);
        grid.setFont(font);
        EXPECT_EQ(grid.columnWidth(1), grid.toPixels(3000)) << size;
        EXPECT_NEAR(grid.toTwips(grid.toPixels(3000)), 3000, 10) << size;
        return grid.toPixels(1440);
    };
    EXPECT_EQ(inch(6), grid.logicalDpiX());
    EXPECT_GE(inch(24), grid.logicalDpiX() * 2);
    EXPECT_NEAR(inch(48), inch(24) * 2, 4);
    EXPECT_EQ(grid.columnWidth(2), 77);
    widgets::FlexGrid other(u"other"_s, 1, 1);
    const QHeaderView &heading = *other.horizontalHeader();
    EXPECT_GE(other.verticalHeader()->defaultSectionSize(), other.fontMetrics().height() * 3 / 2);
    other.setColumnTwips(0, 300);
    other.setFormat(u"一个很长很长很长的标题"_s);
    EXPECT_GE(heading.sectionSize(0), heading.sectionSizeHint(0));
}

TEST_F(FlexGridWidths, ACutTextIsItsToolTip) {
    const auto tip = [&](int column) {
        QHelpEvent event(QEvent::ToolTip, at(1, column), grid.viewport()->mapToGlobal(at(1, column)));
        EXPECT_TRUE(QCoreApplication::sendEvent(grid.viewport(), &event)) << "the event goes no further";
        return QToolTip::text();
    };
    grid.setText(1, 1, u"<很长的题名>"_s.repeated(20));
    EXPECT_EQ(tip(2), QString());
    EXPECT_EQ(tip(1), u"<qt>"_s + grid.text(1, 1).toHtmlEscaped() + u"</qt>");
    grid.setToolTip(u"整个列表"_s);
    EXPECT_EQ(tip(1), u"整个列表"_s);
}

TEST_F(FlexGridWidths, TheHeadingShowsTheOrderAndCanBeAbsent) {
    const QHeaderView &header = *grid.horizontalHeader();
    grid.showOrder(1, Qt::AscendingOrder);
    EXPECT_TRUE(header.isSortIndicatorShown() && header.sortIndicatorSection() == 1 && !header.highlightSections());
    EXPECT_FALSE(grid.tabKeyNavigation() || grid.wordWrap());
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);
    grid.showOrder(-1, Qt::AscendingOrder);
    EXPECT_FALSE(header.isSortIndicatorShown());
    grid.setHeadingTwips(0);
    EXPECT_TRUE(header.isHidden());
    grid.setHeadingTwips(400);
    EXPECT_FALSE(header.isHidden());
    widgets::FlexGrid list(u"Grid2"_s, 2, 0, &window);
    list.setHeadingTwips(400);
    EXPECT_TRUE(list.horizontalHeader()->isHidden());
    list.setRows(200);
    list.setRow(150);
    list.show();
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.currentIndex())));
}

TEST_F(FlexGridWidths, AnEmptyCellIsReadAsItsRow) {
    grid.setText(2, 1, {});
    const auto role = [&](int column, int which) { return grid.model()->index(1, column).data(which); };
    EXPECT_EQ(role(1, Qt::AccessibleTextRole).toString(), u"22 23") << "the other cells that are shown";
    EXPECT_FALSE(role(2, Qt::AccessibleTextRole).isValid()) << "its own text";
    EXPECT_FALSE(role(1, Qt::BackgroundRole).isValid());
    EXPECT_EQ(role(1, Qt::DisplayRole).toString(), u"");
    grid.setCellBackground(2, 1, 0x0000FF); // red is the low byte
    EXPECT_EQ(role(1, Qt::BackgroundRole).value<QBrush>().color(), QColor(Qt::red));
    EXPECT_EQ(role(1, Qt::ForegroundRole).value<QBrush>().color(), widgets::legibleOn(Qt::red));
    grid.setText(2, 1, u"a\nb\rc\u2028d"_s);
    EXPECT_EQ(role(1, Qt::DisplayRole).toString(), u"a b c d");
    EXPECT_FALSE(grid.model()->headerData(1, Qt::Vertical).isValid() ||
                 grid.model()->headerData(4, Qt::Horizontal).isValid());
    EXPECT_EQ(grid.model()->headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(), u"号");
}

struct Letters final : platform::TableSource {
    explicit Letters(QString letters)
        : letters(std::move(letters)) {}
    QString letters;
    int rowCount() const override { return int(letters.size()); }
    int columnCount() const override { return 4; }
    QString text(int row, int) const override { return letters.mid(row, 1); }
};

// Neither the filter nor the texts over the former source remain.
TEST_F(FlexGridWidths, ANewSourceIsShownAsAWhole) {
    grid.bind(std::make_shared<Letters>(u"abc"_s));
    grid.setText(2, 1, u"改"_s);
    grid.setRowSel(3);
    grid.showOnly(std::vector<int>{1});
    EXPECT_EQ(grid.model()->rowCount(), 2) << "and the current row";
    EXPECT_EQ(place(), u"1-1/0") << "the end of the selection is not shown";
    grid.setRow(2);
    grid.bind(std::make_shared<Letters>(u"xyz"_s));
    EXPECT_TRUE(grid.text(2, 1) == u"y" && grid.row() == 1);
    EXPECT_EQ(grid.model()->rowCount(), 3);
    grid.setRows(7);
    EXPECT_EQ(grid.model()->rowCount(), 6);
    grid.setRows(5);
    EXPECT_EQ(grid.model()->rowCount(), 4);
}

// Texts written over a source disappear with their rows.
TEST_F(FlexGridWidths, RowsThatAreAddedAgainAreEmpty) {
    struct One final : platform::TableSource {
        int rowCount() const override { return 1; }
        int columnCount() const override { return 4; }
        QString text(int, int) const override { return u"x"_s; }
    };
    grid.clear();
    EXPECT_EQ(grid.text(1, 1) + grid.text(6, 3), QString());
    grid.setColumnAlignment(0, Qt::AlignRight);
    EXPECT_EQ(grid.model()->index(0, 0).data(Qt::TextAlignmentRole).value<Qt::Alignment>(), Qt::AlignRight);
    int removals = 0;
    QObject::connect(grid.model(), &QAbstractItemModel::rowsRemoved, [&] { ++removals; });
    grid.bind(std::make_shared<One>());
    grid.setRows(6);
    for (int row = 1; row < 6; ++row)
        grid.setText(row, 1, u"y"_s);
    grid.setRows(3);
    grid.setRows(6);
    QString texts;
    for (int row = 1; row < 6; ++row)
        texts += grid.text(row, 1) + u'|';
    EXPECT_EQ(texts, u"y|y||||"_s);
    EXPECT_EQ(removals, 2) << "when the source is bound, and when rows are taken";
}

} // namespace
