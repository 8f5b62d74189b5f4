// The values of the report, the draw, and the texts for other programs.
#include "batch/reportCsv.h"
#include "batch/reportPage.h"
#include "support/recordText.h"

using namespace batch;
using schema::Level;

namespace {

std::shared_ptr<marc::PreReadStore> storeOf(int records) {
    auto store = std::make_shared<marc::PreReadStore>();
    store->setRows(records);
    for (int row = 0; row < records; ++row) {
        store->setRecord(row, recordOf(u"001=1"_s));
        store->setTitle(row, u"题"_s + QString::number(row + 1));
    }
    return store;
}

Remark with(Level level, Remark remark) {
    remark.level = level;
    return remark;
}

BatchReport reportOn(const RemarkList &remarks, const ProofFacts &facts) {
    ReportWork work(remarks, facts);
    while (work.step()) {
    }
    return work.take();
}

// The entries as "level label remarks/records", and the numbers of the records.
QStringList linesOf(const std::vector<RuleEntry> &entries) {
    QStringList lines;
    for (const RuleEntry &entry : entries)
        lines.append(u"%1 %2 %3/%4 %5 %6"_s.arg(nameOf(entry.level), entry.label, QString::number(entry.remarks),
                                                QString::number(entry.records.size()), tagsOf(entry),
                                                recordNumbers(entry.records)));
    return lines;
}

} // namespace

TEST(BatchReport, CountsRecordsByTheirGravestRemark) {
    RemarkList list(storeOf(30));
    list.add(Remark(-1, Kind::Unchecked, {}, 0, u"模板打不开"_s));
    for (const int record : {0, 1, 2, 2, 5})
        list.add(with(Level::Hint, Remark(record, Kind::Template, u"200", 1, u"短"_s)));
    list.add(with(Level::Error, Remark(2, Kind::Isbn, u"010", 1, u"错"_s)));
    list.add(with(Level::Error, Remark(2, Kind::Required, u"100", 1, u"缺"_s))); // as frequent as the ISBN
    list.add(with(Level::Warning, Remark(5, Kind::Template, u"210", 1, u"缺"_s)));
    for (const int record : {7, 3, 7}) // of the second table that was looked up
        list.add(with(Level::Warning, Remark(record, Kind::InStore, {}, 0, u"有"_s)));
    list.add(Remark(9, Kind::Issn, u"011", 1, u"错"_s));
    SilencedRules silenced;
    silenced.add({u"issn"_s, {}});
    list.silence(silenced);

    const BatchReport report = reportOn(list, {.rows = 20, .proved = 18, .inFile = 30, .stopped = true});
    EXPECT_EQ(report.records, (std::array<int, 3>{1, 3, 2}));
    EXPECT_EQ(report.clean(), 12);
    EXPECT_EQ(linesOf(report.rules), (QStringList{
                                         u"错误 必备字段 1/1 100 3"_s,
                                         u"错误 ISBN 1/1 010 3"_s,
                                         u"警告 查重 3/2  4, 8"_s,
                                         u"警告 模板 1/1 210 6"_s,
                                         u"提示 模板 5/4 200 1–3, 6"_s,
                                     }));
    EXPECT_EQ(silencedWords(report), u"ISSN（1 处）"_s);
    EXPECT_EQ(report.notChecked, QStringList{u"模板打不开"_s});
    EXPECT_EQ(extentOf(report), u"中途停止，只校对了 18 条，文件里共 30 条"_s);
    EXPECT_EQ(shareOf(report.records[1], report), u"3（16.7%）"_s);
}

TEST(BatchReport, ShowsTheMostFrequentRulesInAFixedOrder) {
    BatchReport report;
    for (const int remarks : {3, 9, 1, 9, 3, 2, 9, 4, 4, 5, 4, 3})
        report.rules.push_back({.label = QString::number(report.rules.size()), .remarks = remarks});
    QStringList labels;
    for (const RuleEntry *entry : mostFrequent(report))
        labels.append(entry->label);
    EXPECT_EQ(labels.join(u' '), u"1 3 6 9 7 8 10 0 4 11"_s);
    report.rules.resize(2);
    EXPECT_EQ(mostFrequent(report).size(), 2U);
}

TEST(BatchReport, WritesRecordNumbersAsRanges) {
    struct Case {
        std::vector<int> rows;
        qsizetype most;
        QString text;
    };
    for (const Case &each : {
             Case{{}, allNumbers, {}},
             Case{{0}, allNumbers, u"1"_s},
             Case{{0, 1}, allNumbers, u"1, 2"_s},
             Case{{2, 6, 11, 12, 13, 14, 20}, allNumbers, u"3, 7, 12–15, 21"_s},
             Case{{2, 6, 11, 12, 13, 14, 20}, 4, u"3, 7, 12–15, 21"_s},
             Case{{2, 6, 11, 12, 13, 14, 20}, 3, u"3, 7, 12–15 …（共 7 条）"_s},
         })
        EXPECT_EQ(recordNumbers(each.rows, each.most), each.text);
}

TEST(RecordDraw, IsRepeatedByItsSeedAndLeavesEmptyRowsOut) {
    const auto store = storeOf(1000);
    for (int row = 0; row < 1000; row += 2)
        store->setRecord(row, {});
    const std::vector<int> drawn = drawRows(*store, 1000, 7);
    EXPECT_EQ(drawn, (std::vector<int>{15, 227, 263, 419, 455, 499, 501, 723, 779, 977})); // on every machine
    EXPECT_NE(drawRows(*store, 1000, 8), drawn);
    EXPECT_EQ(drawRows(*store, 20, 7), (std::vector<int>{1, 3, 5, 7, 9, 11, 13, 15, 17, 19}));
    EXPECT_LT(drawRows(*store, 40, 7).back(), 40); // only rows that the run reached
    EXPECT_EQ(drawRows(*store, 2000, 7).size(), 10U);
    EXPECT_TRUE(drawRows(marc::PreReadStore(), 20, 7).empty());

    RemarkList list(store);
    list.add(with(Level::Error, Remark(3, Kind::Isbn, u"010", 1, u"错"_s)));
    list.add(Remark(4, Kind::Issn, u"011", 1, u"不在内"_s));
    list.add(with(Level::Hint, Remark(3, Kind::InStore, {}, 0, u"有"_s)));
    const RecordDraw draw = drawRecords(*store, list, 20, 7);
    ASSERT_EQ(draw.records.size(), 10U);
    EXPECT_EQ(draw.records[1].title, u"题4"_s);
    EXPECT_EQ(draw.records[1].remarks, (QStringList{u"错误　010　错"_s, u"提示　有"_s}));
    EXPECT_TRUE(draw.records[0].remarks.isEmpty());
}

TEST(ReportCsv, QuotesCellsAndDefusesFormulas) {
    BatchReport report{.facts = {.file = u"/某处/=供 货,一.iso"_s,
                                 .ended = QDateTime({2026, 1, 31}, {9, 30}),
                                 .proved = 3,
                                 .schema = u"规则,"_s,
                                 .checksOff = {u"指示符"_s}},
                       .records = {1, 0, 0}};
    report.rules.push_back({.label = u"+1\"引\""_s, .example = u"-换\n行"_s, .remarks = 2, .records = {0, 1, 2}});
    std::vector<int> odd;
    for (int row = 100000; row < 112000; row += 2)
        odd.push_back(row);
    report.rules.push_back({.label = u"长"_s, .remarks = 6000, .records = odd});
    const RecordDraw draw{.seed = 5, .records = {{0, u"@题"_s, {u"甲"_s, u"乙"_s}}}};
    const QByteArray csv = reportCsv(report, draw);
    EXPECT_TRUE(csv.startsWith("\xEF\xBB\xBF"));
    const QStringList lines = QString::fromUtf8(csv).split(u"\r\n"_s);
    EXPECT_EQ(lines.value(0), u"校对报告,\"'=供 货,一.iso\""_s);
    EXPECT_EQ(lines.value(2), u"依据,\"规则,，没有检查：指示符\""_s);
    EXPECT_EQ(lines.value(4) + u'|' + lines.value(7), u"有错误,1|没有问题,2"_s);
    EXPECT_EQ(lines.value(10), u"错误,\"'+1\"\"引\"\"\",,2,3,1–3,\"'-换\n行\""_s);
    EXPECT_TRUE(lines.value(11).startsWith(u"错误,长,,6000,6000,\"100001, 100003, "_s));
    EXPECT_TRUE(lines.value(12).startsWith(u"错误,长（续）,,,,\"1"_s) && lines.value(12).endsWith(u", 111999\","_s));
    EXPECT_EQ(QString(lines.value(11) + lines.value(12)).count(u", "), 5998);
    EXPECT_TRUE(std::ranges::all_of(lines, [](const QString &line) { return line.size() < 32000; }));
    EXPECT_EQ(lines.value(16), u"1,'@题,\"甲\n乙\""_s);
}

TEST(ReportPage, EscapesTextsAndCutsNumbersOnlyIfTold) {
    const QString evil = u"<script>\"&'</script>"_s, tame = evil.toHtmlEscaped();
    BatchReport report{.facts = {.file = u"/某处/"_s + QString(evil).remove(u'/'), .proved = 9, .schema = evil},
                       .notChecked = {evil}};
    report.rules.push_back({.label = evil, .example = evil, .remarks = 1, .records = {0, 2, 4}});
    report.silenced.push_back({evil, 1});
    const RecordDraw draw{.seed = 5, .records = {{0, evil, {evil}}}};
    const QString page = reportPage(report, draw, {.mostNumbers = 2});
    EXPECT_FALSE(page.contains(u"<script"));
    EXPECT_FALSE(page.contains(u"某处")) << "the folders of this machine are nobody's business";
    EXPECT_EQ(page.count(tame), 7);
    EXPECT_TRUE(page.contains(u"<th>没有问题</th>") && page.contains(u"<td>1</td><td>" + tame));
    EXPECT_TRUE(page.contains(u"1, 3 …（共 3 条）"));
    EXPECT_FALSE(page.contains(u"<img"));
    EXPECT_TRUE(reportPage(report, draw, {.chart = u"x"_s}).contains(u"1, 3, 5<"));
    EXPECT_TRUE(reportPage({}, {}, {}).contains(u"没有发现问题"));
}
