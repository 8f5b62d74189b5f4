// The line of facts and the division of the workspace, each on its own.
#include "support/testFolder.h"
#include "widgets/styleTokens.h"
#include "workspace/preReadEngine.h"
#include "workspace/statusFacts.h"
#include "workspace/windows/findLine.h"
#include "workspace/windows/statusPills.h"
#include "workspace/windows/workspaceRoom.h"
#include <QTest>

using namespace workspace;
using widgets::Colour;

TEST(StatusPills, ShortenTheLongestFactsAndLeaveTheKeysOut) {
    const auto painted = [](const QStringList &facts, int width) {
        StatusPills line(u"labStatus"_s);
        line.setPalette(widgets::schemePalette(widgets::Scheme::Dark));
        line.setText(facts.join(statusSeparator));
        line.resize(width, 40);
        const QImage picture = line.grab().toImage();
        QString runs; // of one colour, through the pills above their texts
        int end = 0;
        const int padding = widgets::space(widgets::Space::Small, line.fontMetrics());
        const int y = (40 - line.fontMetrics().height() - padding / 2) / 2 + 1;
        for (int x = 0; x < width; ++x) {
            const QChar sign = picture.pixelColor(x, y) == widgets::colour(Colour::QuietTint, line.palette()) ? u'f'
                               : picture.pixelColor(x, y) == widgets::colour(Colour::WarningTint, line.palette())
                                   ? u'w'
                                   : u' ';
            end = sign == u' ' ? end : x;
            if (!runs.endsWith(sign))
                runs += sign;
        }
        int brightest = 0;
        for (int x = end + 20; x < width; ++x)
            for (int row = 0; row < 40; ++row)
                brightest = std::max(brightest, picture.pixelColor(x, row).lightness());
        return std::tuple(runs.trimmed(), end,
                          brightest == widgets::colour(Colour::FaintInk, line.palette()).lightness());
    };
    const QString fact = u"已改 3 条，未导入"_s;
    const auto [one, oneEnd, keys] = painted({fact}, 800);
    EXPECT_TRUE(one == u"f" && keys);
    const auto [three, threeEnd, more] = painted({fact, u"⚠ 没有"_s, fact}, 1200);
    EXPECT_TRUE(three == u"f w f" && more) << three.toStdString();
    EXPECT_GT(threeEnd, 2 * oneEnd);
    const auto [cut, cutEnd, none] = painted({fact, u"⚠ "_s + fact.repeated(20), fact}, 800);
    EXPECT_EQ(cut, u"f w f"_s);
    EXPECT_TRUE(cutEnd > 780 && cutEnd < 800 && !none) << cutEnd;
    EXPECT_TRUE(std::get<0>(painted({}, 10)).isEmpty());
}

TEST(WorkspaceRoom, SharesItsSpaceAndRemembersWhatTheUserMoved) {
    const TestFolder folder;
    const platform::DeskState state(folder.path());
    QList<QList<int>> sizes;
    for (const bool first : {true, false}) {
        QWidget window;
        auto *room = new WorkspaceRoom(new QWidget, new QWidget, &window);
        room->addRemarks(new QWidget);
        const auto splitters = QList<QSplitter *>{room} + room->findChildren<QSplitter *>();
        for (QWidget *remarks : {splitters[1]->widget(1), splitters[2]->widget(1)})
            remarks->show();
        room->resize(900, 1200);
        room->share(300, 600);
        window.show();
        EXPECT_NEAR(room->sizes()[0], 300, 5);
        EXPECT_EQ(room->widget(0)->minimumWidth(), 150);
        for (QSplitter *splitter : splitters) {
            EXPECT_FALSE(splitter->childrenCollapsible());
            EXPECT_GT(splitter->sizes()[1], 30) << splitter->objectName().toStdString();
        }
        EXPECT_EQ(splitters[1]->sizes()[1], 18 * room->fontMetrics().height()) << "some five remarks";
        EXPECT_LE(splitters[2]->sizes()[1], 6 * room->fontMetrics().height());
        const auto of = [&] {
            QList<QList<int>> all;
            for (const QSplitter *splitter : splitters)
                all.append(splitter->sizes());
            return all;
        };
        if (!first) {
            EXPECT_NE(of(), sizes);
            room->recall(state);
            EXPECT_EQ(of(), sizes);
            EXPECT_TRUE(room->cmdWholeText->isChecked());
            continue;
        }
        for (QSplitter *splitter : splitters)
            splitter->setSizes({650, 450});
        room->cmdWholeText->setChecked(true);
        sizes = of();
        room->remember(state);
    }
}

TEST(RecordList, ColoursTheCurrentRow) {
    RecordList list(u"Grid2"_s, nullptr);
    list.reset();
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(list.columnTwips(column), column == 1 ? RecordList::allTwips : 0);
        EXPECT_EQ(list.model()->index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                  Qt::AlignLeft | Qt::AlignVCenter);
    }
    QInputMethodQueryEvent asked(Qt::ImEnabled);
    QApplication::sendEvent(&list, &asked);
    EXPECT_TRUE(asked.value(Qt::ImEnabled).toBool()) << "letters typed here open the find line";
    int changed = 0;
    QObject::connect(list.model(), &QAbstractItemModel::dataChanged, [&] { ++changed; });
    list.records().setNumber(0, 1);
    list.setTitle(0, u"x"_s);
    EXPECT_EQ(changed, 1);
    const auto colour = [&](const std::function<void()> &act) {
        list.markVisited();
        list.setColumn(0);
        act();
        return list.cellBackground(0, list.column());
    };
    EXPECT_EQ(colour([&] { Q_EMIT list.gridClicked(); }), RecordList::currentColour);
    for (const auto &[key, marks] : {std::pair(Qt::Key_Up, true), {Qt::Key_Down, true}, {Qt::Key_Left, false}})
        EXPECT_EQ(colour([&] { Q_EMIT list.keyReleased(key); }) == RecordList::currentColour, marks) << key;
    list.markCurrent();
    list.reset();
    EXPECT_TRUE(!list.cellBackground(0, 1) && list.records().number(0).isEmpty());
}

TEST(FindLine, GoesToAHitOrANumber) {
    RecordList list(u"Grid2"_s, nullptr);
    list.reset();
    list.records().setRows(60000); // more than a search looks through at once
    const QString other = u"nothing of it"_s.repeated(20);
    for (int row = 0; row < 60000; ++row)
        list.records().setRecord(row, row == 50015 ? u"there"_s : other);
    FindLine find(list, nullptr);
    find.open(FindLine::Place::WholeRecord);
    QList<int> wanted;
    QObject::connect(&find, &FindLine::wanted, [&](int row) { wanted.append(row); });
    const auto counts = [&](const QString &words) {
        return QTest::qWaitFor([&] { return find.findCount->text() == words; });
    };
    find.findText->setText(u"there"_s);
    EXPECT_TRUE(counts(u"共 1 条"_s));
    find.previous();
    find.findText->setText(u"ere"_s);
    find.next(); // not wanted any more when it is found
    find.findText->setText(u"there"_s);
    find.next();
    EXPECT_TRUE(wanted.size() == 1 && QTest::qWaitFor([&] { return wanted.size() == 2; }));
    find.findText->setText(u"her"_s);
    find.forget(); // before its first step
    QApplication::processEvents();
    find.findText->setText(u"nobody"_s);
    find.next();
    EXPECT_TRUE(counts(u"没有找到"_s));
    EXPECT_EQ(wanted, (QList<int>{50015, 50015}));
    find.open(FindLine::Place::Number);
    EXPECT_EQ(find.findText->text() + find.findCount->text(), QString());
    for (const auto &[number, row] :
         {std::pair(u"0"_s, -1), {u"1"_s, 0}, {u"60000"_s, 59999}, {u"60001"_s, -1}, {u"x"_s, -1}}) {
        wanted.clear();
        find.open(FindLine::Place::Number, number);
        find.next();
        EXPECT_EQ(wanted.value(0, -1), row);
        EXPECT_EQ(find.findCount->text().isEmpty(), row >= 0);
    }
    find.open(FindLine::Place::WholeRecord);
    EXPECT_EQ(find.findText->text(), u"nobody"_s) << "the words come back";
}

TEST(ReadRecords, ListEachRecordOnceAndReportTheEnd) {
    const TestFolder folder;
    const QString path = folder.file(u"a.iso"_s, QByteArray("x\x1D\r\n").repeated(5));
    const struct {
        ReadRange range;
        int stopAfter;
        QString listed;
        bool atEnd;
        int abandonedAfter = 9;
    } rows[] = {{{.limit = 9}, 9, u"1 2 3 4 5"_s, true},          {{.limit = 9}, 9, u"1 2 3"_s, false, 3},
                {{.limit = 5}, 9, u"1 2 3 4 5"_s, true},          {{.limit = 3}, 9, u"1 2 3"_s, false},
                {{.passOver = 3, .limit = 9}, 9, u"4 5"_s, true}, {{.limit = 9}, 2, u"1 2"_s, false}};
    for (const auto &[range, stopAfter, expected, atEnd, abandonedAfter] : rows) {
        marc::PreReadStore store;
        store.setRows(int(range.passOver));
        QStringList listed;
        auto cutter = marc::RecordCutter::open(path).value();
        const ReadEnd end = readRecords(cutter, range, store,
                                        {.yield = [] {},
                                         .abandoned = [&] { return listed.size() >= abandonedAfter; },
                                         .stopRequested = [&] { return listed.size() >= stopAfter; },
                                         .damaged = {},
                                         .listed = [&](int count) { listed.append(QString::number(count)); }});
        EXPECT_EQ(listed.join(u' '), expected);
        EXPECT_EQ(end.atEnd, atEnd) << expected.toStdString();
        EXPECT_EQ(end.abandoned, abandonedAfter < 9);
    }
}
