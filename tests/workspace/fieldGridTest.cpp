// The field grid on its own: what it paints, its tool tips and the tags typed on it.
#include "workspace/windows/fieldGrid.h"
#include "support/recordText.h"
#include "widgets/styleTokens.h"
#include <QTest>

using namespace workspace;
using widgets::Mark;

namespace {

struct FieldGridTest : testing::Test {
    const std::shared_ptr<EditedRecord> record = std::make_shared<EditedRecord>();
    FieldGrid grid{u"Grid1"_s, nullptr};

    void SetUp() override {
        record->show(recordOf({{u"100"_s, u"  $a I  I"_s}, {u"200"_s, u"1 $a I  I"_s}}), u"/nowhere/"_s, {});
        grid.follow(record);
        grid.setPalette(widgets::schemePalette(widgets::Scheme::Light));
        grid.resize(900, 300);
        grid.show();
    }
    QRect place(int row, int column) const { return grid.visualRect(grid.model()->index(row - 1, column)); }
    QImage picture(int row, int column) {
        return grid.grab(place(row, column).translated(grid.viewport()->pos())).toImage();
    }
    // Returns the middles of the runs of columns that differ from the ground.
    static QList<int> inked(const QImage &of) {
        QList<int> middles;
        int begin = -1;
        for (int x = 4; x < of.width() - 4; ++x) {
            bool ink = false;
            for (int y = 3; y < of.height() - 3; ++y)
                ink = ink || of.pixelColor(x, y).lightness() < 190;
            if (ink && begin < 0)
                begin = x;
            if (!ink && begin >= 0)
                middles.append((std::exchange(begin, -1) + x) / 2);
        }
        return middles;
    }
};

} // namespace

TEST_F(FieldGridTest, CodedDataShowsItsBlanks) {
    const QList<int> signs = inked(picture(3, ValueColumn));
    ASSERT_EQ(signs.size(), 5);
    for (int i = 1; i < 5; ++i)
        EXPECT_NEAR(signs[i] - signs[i - 1], signs[1] - signs[0], 1) << i;
    const QList<int> plain = inked(picture(5, ValueColumn));
    EXPECT_TRUE(plain.size() == 2 && plain[1] - plain[0] < signs[4] - signs[1]) << "no dots, and another font";
    const QImage coded = picture(3, ValueColumn);
    const auto darkest = [&](int x) {
        int dark = 255;
        for (int y = 3; y < coded.height() - 3; ++y)
            dark = std::min(dark, coded.pixelColor(x, y).lightness());
        return dark;
    };
    EXPECT_GT(darkest(signs[0]), darkest(signs[1]) + 50) << "a dot is fainter than the text";
    const QFont font = codedFont(grid.font());
    EXPECT_EQ(font.pointSizeF(), grid.font().pointSizeF());
    EXPECT_TRUE(font.styleHint() == QFont::Monospace && font.families().contains(u"Noto Sans Mono CJK SC") &&
                font.families().endsWith(grid.font().families().value(0)));
}

TEST_F(FieldGridTest, ALineIsAboveEachFieldAndAMarkInItsRow) {
    grid.markRows({{2, Mark::Hint, u"甲"_s}, {4, Mark::Hint, u"a<b"_s}, {4, Mark::Error, u"乙"_s}});
    for (int row = 2; row <= 5; ++row) {
        const QImage cell = picture(row, ValueColumn);
        EXPECT_EQ(cell.pixel(400, 0) != cell.pixel(400, 5), row % 2 == 0) << row;
    }
    for (const auto &[row, words] : {std::pair(3, u""_s), {2, u"<qt>甲</qt>"_s}, {4, u"<qt>乙<br>a&lt;b</qt>"_s}}) {
        const QPoint at = place(row, ValueColumn).center();
        QHelpEvent event(QEvent::ToolTip, at, grid.viewport()->mapToGlobal(at));
        EXPECT_TRUE(QApplication::sendEvent(grid.viewport(), &event));
        EXPECT_EQ(QToolTip::text(), words);
    }
    const auto marks = [&](int row, int column, widgets::Colour ink) {
        const QImage cell = picture(row, column);
        int pixels = 0;
        for (int x = cell.width() / 2; x < cell.width(); ++x)
            for (int y = 0; y < cell.height(); ++y)
                pixels += cell.pixelColor(x, y) == widgets::colour(ink, grid.palette());
        return pixels > 8;
    };
    EXPECT_TRUE(marks(4, SubfieldLabelColumn, widgets::Colour::ErrorInk));
    EXPECT_TRUE(marks(2, SubfieldLabelColumn, widgets::Colour::Accent));
    EXPECT_FALSE(marks(3, SubfieldLabelColumn, widgets::Colour::Accent) ||
                 marks(4, FieldLabelColumn, widgets::Colour::ErrorInk));
}

TEST_F(FieldGridTest, DigitsTypedInQuickSuccessionAreATag) {
    QStringList typed;
    QObject::connect(&grid, &FieldGrid::tagTyped, [&](const QString &digits) { typed.append(digits); });
    QTest::keyClicks(&grid, u"20/0:9a"_s);
    QTest::keyClick(&grid, Qt::Key_7, Qt::KeypadModifier);
    QTest::keyClick(&grid, Qt::Key_8, Qt::AltModifier);
    EXPECT_EQ(typed, (QStringList{u"2"_s, u"20"_s, u"200"_s, u"9"_s, u"97"_s}));
}

TEST_F(FieldGridTest, TheColumnsHaveTheirWidthsAndTheLastFillsTheGrid) {
    for (const auto &[column, twips] : {std::pair(0, 0), {1, 2000}, {2, 450}, {3, 2000}}) {
        EXPECT_EQ(grid.columnTwips(column), twips);
        EXPECT_EQ(grid.model()->index(1, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                  Qt::AlignLeft | Qt::AlignVCenter);
    }
    EXPECT_EQ(place(1, ValueColumn).right(), grid.viewport()->width() - 1);
    int scrolled = 0;
    QObject::connect(&grid, &FieldGrid::scrolled, [&] { ++scrolled; });
    grid.resize(500, 80);
    grid.setRow(5);
    EXPECT_GT(scrolled, 0);
    grid.resize(500, 300);
    grid.setRow(2);
    grid.resize(500, 80);
    EXPECT_TRUE(grid.viewport()->rect().contains(place(2, IdentifierColumn)));
}
