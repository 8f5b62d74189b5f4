#include "flexGridFixture.h"
#include "support/dice.h"
#include <QAbstractItemModelTester>
#include <set>

using namespace widgets;

namespace {

// A source whose rows come from a list or are only counted.
struct Source final : platform::TableSource {
    explicit Source(int rows, QStringList list = {})
        : count(rows)
        , listed(std::move(list)) {}
    int count;
    QStringList listed;
    mutable int asked = 0; // the number of cells read
    int rowCount() const override { return listed.isEmpty() ? count : int(listed.size()); }
    int columnCount() const override { return listed.isEmpty() ? 2 : 4; }
    QString text(int row, int column) const override {
        ++asked;
        return listed.value(row, QString::number(row) + u':') + QString::number(column);
    }
};

// Random filters, steps and growth, compared with a set of rows.
TEST_F(FlexGridTest, AFilteredGridShowsItsRowsAndTheCurrentOne) {
    Dice dice(7);
    const auto source = std::make_shared<Source>(40);
    FlexGrid list(u"Grid2"_s, 2, 0, &window);
    list.bind(source);
    const QAbstractItemModelTester tester(list.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::set<int> wanted;
    bool filtered = false;
    for (int act = 0; act < 600; ++act) {
        std::set<int> shown = wanted;
        for (int row = 0; row < source->count && !filtered; ++row)
            shown.insert(row);
        shown.insert(list.row());
        const int before = list.row();
        const auto place = shown.find(before);
        int expected = before;
        switch (const int what = dice.below(8)) {
        case 0:
            filtered = dice.below(4) > 0;
            wanted.clear();
            for (int i = filtered ? dice.below(12) : 0; i > 0; --i)
                wanted.insert(dice.below(source->count));
            list.showOnly(filtered ? std::optional(std::vector<int>(wanted.begin(), wanted.end())) : std::nullopt);
            break;
        case 1:
            source->count += dice.below(3);
            list.sourceHasGrown();
            break;
        case 2:
            expected = dice.below(source->count);
            list.clickRow(expected);
            break;
        case 3:
            expected = *shown.rbegin();
            QTest::keyClick(&list, Qt::Key_End, Qt::ControlModifier);
            break;
        case 4:
            list.setCellBackground(before, 1, quint32(before));
            break;
        default:
            if (what % 2 && place != shown.begin())
                expected = *std::prev(place);
            else if (what % 2 == 0 && std::next(place) != shown.end())
                expected = *std::next(place);
            QTest::keyClick(&list, what % 2 ? Qt::Key_Up : Qt::Key_Down);
        }
        ASSERT_EQ(list.row(), expected) << act;
        if (!filtered)
            continue;
        shown = wanted;
        shown.insert(expected);
        QList<QString> texts;
        for (int position = 0; position < list.model()->rowCount(); ++position)
            texts.append(list.model()->index(position, 1).data().toString());
        QList<QString> rows;
        for (const int row : shown)
            rows.append(list.text(row, 1));
        ASSERT_EQ(texts, rows) << act;
        ASSERT_EQ(list.currentIndex().row(), rows.indexOf(list.text(expected, 1))) << act;
    }
}

// Random insertions, removals, growth, texts and colours, compared with a list.
TEST_F(FlexGridTest, CellsMoveWithTheirRowsAndTheCurrentNumberStays) {
    Dice dice(11);
    const auto source = std::make_shared<Source>(0, QStringList{u"a"_s, u"b"_s, u"c"_s});
    grid.bind(source);
    QList<std::pair<QString, std::optional<quint32>>> cells{{u"a1"_s, {}}, {u"b1"_s, {}}, {u"c1"_s, {}}};
    int current = 1, empty = 0; // empty: rows after those of the source
    for (int act = 0; act < 600; ++act) {
        const QString name = QString::number(act);
        const int rows = int(cells.size()), listed = int(source->listed.size()), at = dice.below(listed);
        const int known = grid.model()->rowCount();
        switch (dice.below(8)) {
        case 0:
            source->listed.insert(at, name);
            cells.insert(at, {name + u'1', {}});
            grid.sourceInsertedRow(at + 1);
            ASSERT_EQ(grid.model()->rowCount(), known + (at <= known)) << act;
            break;
        case 1:
            if (listed < 3)
                break;
            source->listed.removeAt(at);
            cells.removeAt(at);
            grid.sourceRemovedRow(at + 1);
            ASSERT_EQ(grid.model()->rowCount(), known - (at < known)) << act;
            break;
        case 2:
            source->listed.append(name);
            cells.insert(listed, {name + u'1', {}});
            if (empty > 0)
                cells.removeAt(listed + 1);
            empty = std::max(empty - 1, 0);
            grid.sourceHasGrown();
            break;
        case 3:
            grid.setText(dice.below(2) ? at + 1 : rows + 1, 1, name);
            cells[at].first = grid.text(at + 1, 1) == name ? name : cells[at].first;
            break;
        case 4:
            grid.setCellBackground(at + 1, 1, cells[at].second.emplace(quint32(act)));
            break;
        case 5:
            if (empty == 0 && act % 3 == 0) {
                grid.setRows(rows + 3);
                cells.resize(rows + 2);
                empty = 2;
            }
            break;
        default:
            current = std::clamp(current, 1, int(cells.size())) + (act % 2 ? 1 : -1);
            current = std::clamp(current, 1, int(cells.size()));
            QTest::keyClick(&grid, act % 2 ? Qt::Key_Down : Qt::Key_Up);
        }
        ASSERT_EQ(grid.rows(), cells.size() + 1) << act;
        ASSERT_EQ(grid.row(), std::clamp(current, 1, int(cells.size()))) << act;
        if (act % 4 == 0)
            grid.cellRect(1, 1); // announces the rows
        const int shown = grid.model()->rowCount();
        ASSERT_EQ(grid.verticalHeader()->count(), shown) << act << ": the view knows the rows";
        ASSERT_TRUE(act % 4 || shown == cells.size()) << act;
        for (int row = 0; row < cells.size(); ++row) {
            ASSERT_EQ(grid.text(row + 1, 1), cells[row].first) << act;
            ASSERT_EQ(grid.cellBackground(row + 1, 1), cells[row].second) << act;
            ASSERT_TRUE(row >= shown || grid.model()->index(row, 1).data() == cells[row].first) << act;
        }
    }
    log.clear();
    grid.bind(nullptr);
    grid.setRows(7);
    grid.setRow(3);
    grid.setRows(3);
    EXPECT_EQ(place(), u"2-2/0"_s);
    grid.setRows(9);
    EXPECT_EQ(place(), u"2-2/0"_s) << "the current row does not move back when rows are added again";
    grid.clear();
    EXPECT_EQ(grid.rows(), 9);
    EXPECT_EQ(grid.text(1, 1) + grid.text(0, 0) + grid.text(0, 1), u"号题名"_s);
    grid.setRows(-5);
    EXPECT_EQ(grid.rows(), 1);
    EXPECT_EQ(grid.row(), 0);
    grid.setRows(2);
    EXPECT_EQ(grid.row(), 1);
    EXPECT_TRUE(taken().isEmpty()) << "changes by the program send no signals";
}

TEST_F(FlexGridTest, TheViewIsNotifiedOfEachChange) {
    QStringList told;
    QObject::connect(grid.model(), &QAbstractItemModel::dataChanged, [&](const auto &from, const auto &to) {
        told.append(u"%1,%2-%3,%4"_s.arg(from.row()).arg(from.column()).arg(to.row()).arg(to.column()));
    });
    QObject::connect(grid.model(), &QAbstractItemModel::headerDataChanged,
                     [&](auto, int from, int to) { told.append(u"%1-%2"_s.arg(from).arg(to)); });
    const auto of = [&](const std::function<void()> &act) {
        told.clear();
        act();
        return told.join(u' ');
    };
    const auto aligned = [&](int column) {
        return grid.model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & ~int(Qt::AlignVCenter);
    };
    EXPECT_EQ((QList<int>{aligned(1), aligned(2), aligned(3)}),
              (QList<int>{Qt::AlignHCenter, Qt::AlignRight, Qt::AlignLeft}));
    EXPECT_EQ(of([&] { grid.setText(2, 1, u"新"_s); }), u"1,1-1,1"_s);
    EXPECT_EQ(of([&] { grid.setText(0, 3, u"新"_s); }), u"3-3"_s);
    EXPECT_EQ(of([&] { grid.setText(0, 3, u"新"_s); }), QString());
    EXPECT_EQ(of([&] { grid.setCellBackground(6, 2, 1); }), u"5,2-5,2"_s);
    EXPECT_EQ(of([&] { grid.setColumnAlignment(1, Qt::AlignRight); }), u"0,1-5,1"_s);
    EXPECT_EQ(of([&] { grid.setHeadingAlignment(Qt::AlignRight); }), u"0-0 1-1 2-2 3-3"_s);
    EXPECT_EQ(grid.model()->index(0, 1).data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight));
    EXPECT_EQ(aligned(3), int(Qt::AlignRight));
    EXPECT_EQ(of([&] { grid.sourceChanged(2, 1); }), QString()) << "no source";
    grid.bind(std::make_shared<Source>(3));
    EXPECT_EQ(of([&] { grid.sourceChanged(2, 1); }), u"1,1-1,1"_s);
    for (const auto &[row, column] : {std::pair(4, 1), {0, 1}, {2, 4}})
        EXPECT_EQ(of([&, row = row, column = column] { grid.sourceChanged(row, column); }), QString());
    grid.showOnly(std::vector<int>{0});
    EXPECT_EQ(of([&] { grid.sourceChanged(2, 1); }), QString()) << "not shown";
    EXPECT_EQ(of([&] { grid.clear(); }), u"0,0-2,3"_s) << "and no filter";
    FlexGrid list(u"Grid2"_s, 2, 0);
    list.setRows(1);
    list.setText(0, 1, u"首行"_s);
    EXPECT_EQ(list.text(0, 1), u"首行"_s);
    EXPECT_EQ(list.model()->index(0, 1).data(), u"首行"_s);
    EXPECT_GT(list.cellRect(0, 1).height(), 0);
}

TEST_F(FlexGridTest, CellsOutsideReadEmptyAndIgnoreWrites) {
    for (const auto &[row, column] : {std::pair{-1, 1}, {7, 1}, {1, -1}, {1, 4}, {0, 4}, {INT_MAX, INT_MIN}}) {
        grid.setText(row, column, u"x"_s);
        grid.setCellBackground(row, column, 255);
        grid.sourceInsertedRow(row);
        grid.sourceRemovedRow(row);
        grid.cellRect(row, column);
        grid.setColumnTwips(column < 4 ? -1 : column, 100);
        EXPECT_EQ(grid.text(row, column), QString());
    }
    for (const int number : {-2, 99}) {
        grid.setRow(number);
        grid.setRowSel(number);
        grid.setColumn(number);
    }
    EXPECT_EQ(place(), u"6-6/3"_s);
    EXPECT_EQ(grid.rows(), 7);
    EXPECT_EQ(grid.columnTwips(4) + grid.columnTwips(0), 0);
}

TEST_F(FlexGridTest, AMillionBoundRowsCostNothing) {
    const auto source = std::make_shared<Source>(1'000'000);
    grid.bind(source);
    QCoreApplication::processEvents();
    grid.setRow(999'999);
    grid.verticalScrollBar()->setValue(grid.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    EXPECT_LT(source->asked, 1000) << "only visible cells are read";
    EXPECT_EQ(grid.rows(), 1'000'001);
    EXPECT_EQ(grid.text(999'999, 1), u"999998:1"_s);
    EXPECT_EQ(grid.text(5, 3), QString()) << "the source has two columns";
    EXPECT_TRUE(grid.viewport()->rect().contains(at(1'000'000, 1)));
    grid.setText(1'000'000, 1, u"改"_s);
    EXPECT_EQ(grid.text(1'000'000, 1), u"改"_s);
    grid.bind(std::make_shared<Source>(0));
    EXPECT_EQ(grid.rows(), 1);
    grid.setRows(2);
    EXPECT_EQ(grid.text(1, 1), QString());
    EXPECT_EQ(grid.columnTwips(0), 0) << "a new source keeps the columns";
}

TEST_F(FlexGridTest, GrowthIsKnownAtOnceAndAnnouncedAtScreenPace) {
    const auto source = std::make_shared<Source>(5);
    grid.bind(source);
    grid.setRows(21);
    grid.setRow(4);
    int announcements = 0;
    QObject::connect(grid.model(), &QAbstractItemModel::rowsInserted, [&] { ++announcements; });
    for (source->count = 6; source->count <= 3000; ++source->count) {
        grid.sourceHasGrown();
        ASSERT_EQ(grid.rows(), std::max(source->count, 20) + 1);
        ASSERT_EQ(grid.text(source->count, 1), QString(QString::number(source->count - 1) + u":1"));
    }
    grid.setCellBackground(2900, 1, 255); // before the rows are announced
    EXPECT_EQ(announcements, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return announcements > 0; }, 20'000));
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(grid.model()->rowCount(), 3001);
    EXPECT_EQ(place(), u"4-4/0"_s);
    for (const int count : {3002, 4000}) {
        source->count = count;
        grid.setRow(count);
        EXPECT_EQ(grid.currentIndex().row(), count - 1) << "a row can become current before it is announced";
    }
    source->count = 10;
    EXPECT_EQ(grid.row(), 20) << "a source that shrinks against its contract causes no crash";
    grid.grab();
}

} // namespace
