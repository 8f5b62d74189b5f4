// The remarks on the records of a list, without a window or a server.
#include "batch/batchProof.h"
#include "batch/proofRun.h"
#include "batch/refusedRecords.h"
#include "database/linkPool.h"
#include "support/fullDisk.h"
#include "support/recordText.h"
#include "support/testFolder.h"

using namespace batch;

namespace {

std::shared_ptr<marc::PreReadStore> storeOf(const QStringList &records) {
    auto store = std::make_shared<marc::PreReadStore>();
    store->setRows(int(records.size()));
    for (int row = 0; row < records.size(); ++row) {
        store->setRecord(row, records[row]);
        store->setTitle(row, u"题"_s + QString::number(row + 1));
    }
    return store;
}

QStringList told(const std::shared_ptr<marc::PreReadStore> &store, const ProofOne &proof,
                 schema::SchemaInForce *schema = nullptr) {
    BatchProof proving(store, proof, schema);
    RemarkList list(store, RuleBook(proving.schema()));
    while (proving.hasNext())
        for (Remark &remark : proving.step())
            list.add(std::move(remark));
    QStringList lines;
    for (int row = 0; row < list.rowCount(); ++row)
        lines.append(u"%1 %2 %3 %4 %5 %6 %7"_s.arg(
            list.text(row, RemarkList::LevelColumn), QString::number(list.remark(row).record),
            list.text(row, RemarkList::TitleColumn), list.text(row, RemarkList::RuleColumn),
            list.text(row, RemarkList::TagColumn), QString::number(list.remark(row).fieldRow),
            list.text(row, RemarkList::WordsColumn)));
    return lines;
}

} // namespace

TEST(BatchProof, ReportsRecordFieldAndRowOfEachFault) {
    const QStringList records{
        recordOf(u"001=1|010=  $a7-02-001259-0$a7-02-001037-7|200=1 $a|210=  $aB|210=  $aC"_s),
        {}, // this row has no record
        recordOf(u"010=  $a978-7-02-001259-6$b精装|010=  $a7-02-001259-0$a9787020010370|011=  $a1000-0004"_s),
        u"00026nam0 2200025   450 2001\x1E\x1D"_s,
        recordOf(u"010=  $a978-7-02-001259-5$a无|200=1 $a甲"_s),
        recordOf(u"010=  $d20|200=1 $a甲|010=  $a无"_s),
    };
    using proof::FaultKind;
    const auto proof = [](const marc::FieldRows &rows) -> proof::RecordFaults {
        const auto number = std::ranges::find(rows, u"$a"_s, &marc::FieldRow::identifier) - rows.begin();
        const proof::Fault isbn{FaultKind::IsbnSegments, u"010"_s, number,
                                u"ISBN格式错误！\r\n       ISBN号第一段不能为空！"_s};
        if (rows.size() < 2 || rows[1].identifier != u"001")
            return {.isbn = {isbn}, .unread = platform::Failure{u"模板打不开"_s}};
        return {.structural = {{FaultKind::Missing, u"801"_s, {}, u"801字段（必备字段）不存在！"_s},
                               {FaultKind::Repeated, u"210"_s, 9, u"210字段（不可重复字段）重复！"_s}},
                .byTemplate = {{FaultKind::Subfield, u"200"_s, 5, u"200字段的a子字段(必备子字段)内容不能为空值"_s}},
                .isbn = {isbn},
                .complaint = u"配置文件丢失。"_s};
    };
    EXPECT_EQ(told(storeOf(records), proof),
              (QStringList{
                  u"警告 -1  未能检查  0 配置文件丢失。"_s,
                  u"错误 0 题1 必备字段 801 0 801字段（必备字段）不存在！"_s,
                  u"警告 0 题1 重复字段 210 10 210字段（不可重复字段）重复！"_s,
                  u"错误 0 题1 模板 200 6 200字段的a子字段(必备子字段)内容不能为空值"_s,
                  u"错误 0 题1 ISBN 010 4 ISBN格式错误！ ISBN号第一段不能为空！"_s,
                  u"警告 -1  未能检查  0 模板打不开"_s,                        // reported once
                  u"错误 2 题3 ISSN 011 9 ISSN校验位错误，应为3"_s,            // the ISBN-10 proof's fault is dropped
                  u"警告 2 题3 批内重复 010 3 与第 1 条的ISBN相同：《题1》"_s, // reported once
                  u"错误 3 题4 目次区  0 目次区损坏，字段读不出来"_s,
                  u"错误 4 题5 ISBN 010 3 ISBN校验位错误，应为6"_s,
                  u"错误 5 题6 ISBN 010 5 ISBN格式错误！ ISBN号第一段不能为空！"_s,
              }));
}

// Faults that the other proofs report are not reported again.
TEST(BatchProof, ValidatesAgainstTheSchemaInForce) {
    const TestFolder folder;
    folder.file(u"cnmarc-schema.json"_s,
                R"({"fields": {"LDR": {}, "001": {}, "801": {"required": true}, "802": {"required": true},
        "010": {"repeatable": true, "subfields": {"a": {}}}, "011": {"repeatable": true, "subfields": {"a": {}}},
        "200": {"subfields": {"a": {"required": true}, "f": {"required": true}}},
        "210": {"subfields": {"a": {}}}, "225": {"repeatable": true}},
        "rules": [{"class": "r", "description": "d", "level": "提示", "if": "200", "then": "210$a = 'B'"},
                  {"class": "i", "description": "i", "each": "010", "then": "010$a is isbn"},
                  {"class": "s", "description": "s", "each": "011", "then": "every 011$a is issn"}]})");
    schema::SchemaInForce schema(platform::Settings(folder.path()), folder.path());
    const auto proof = [](const marc::FieldRows &) -> proof::RecordFaults {
        using proof::FaultKind;
        return {.structural = {{FaultKind::Missing, u"801"_s, {}, u"缺"_s},
                               {FaultKind::Repeated, u"210"_s, 5, u"重"_s},
                               {FaultKind::Repeated, u"225"_s, 7, u"重"_s}},
                .byTemplate = {{FaultKind::Subfield, u"200"_s, 2, u"模"_s}}};
    };
    const QStringList others{u"错误 # 必备字段 801 0 缺"_s, u"%1 # 重复字段 210 6 重"_s, u"警告 # 重复字段 225 8 重"_s,
                             u"错误 # 模板 200 3 模"_s};
    const auto lines = [&others](int record, const QString &repeated, const QStringList &more) {
        const QString all = others.join(u'\n').arg(repeated) + u'\n' + more.join(u'\n');
        return QString(all).replace(u'#', u"%1 题%2"_s.arg(record).arg(record + 1)).split(u'\n');
    };
    const auto store =
        storeOf({recordOf(u"001=1|200=  $b|210=  $aA|210=  $aC|225=  |225=  "_s), recordOf(u"210=  $aB|999=  "_s),
                 recordOf(u"010=  $a978-7-02-001259-5|010=  $a1|011=  $a1000-0004"_s)});
    EXPECT_EQ(
        told(store, proof, &schema),
        lines(0, u"错误"_s,
              {u"警告 # 未定义的子字段 200 4 字段没有子字段$b"_s, u"错误 # 缺必备字段 802 0 缺少必备字段"_s,
               u"提示 # r 210 6 d"_s}) +
            lines(1, u"警告"_s,
                  {u"警告 # 未定义的字段 999 4 格式中没有这个字段"_s, u"错误 # 缺必备字段 802 0 缺少必备字段"_s}) +
            lines(2, u"警告"_s,
                  {u"错误 # ISBN 010 3 ISBN校验位错误，应为6"_s, u"错误 # ISSN 011 7 ISSN校验位错误，应为3"_s,
                   u"错误 # 缺必备字段 802 0 缺少必备字段"_s, u"警告 # i 010 5 i"_s}));

    schema.setChecks(::schema::Checks(::schema::allChecks).reset(size_t(::schema::Check::MissingField)));
    database::LinkPool links;
    const database::SessionState state{links, {}};
    const ProofFacts facts = ProofRun(store, proof, state, &schema).facts({});
    EXPECT_EQ(facts.checksOff.join(u','), u"缺必备字段"_s);
    EXPECT_TRUE(facts.inFile == 3 && !facts.schema.isEmpty()) << facts.inFile;
    ProofRun run(store, proof, state, &schema);
    while (run.hasNext())
        run.step();
    run.end();
    EXPECT_FALSE(run.dropSome()) << "the search found no book";

    folder.file(u"cnmarc-schema.json"_s, "{");
    schema::SchemaInForce none(platform::Settings(folder.path()), folder.path());
    const QString damaged = u"00026nam0 2200025   450 2001\x1E\x1D"_s;
    const QStringList unread = told(storeOf({damaged, store->record(0), store->record(1)}), proof, &none);
    EXPECT_EQ(unread.size(), 10) << qPrintable(unread.join(u'\n'));
    EXPECT_TRUE(unread.value(5).startsWith(u"警告 -1  未能检查  0 机读格式的模式【"_s));
}

TEST(BookIdentity, IsShownAtItsFirstIsbnOrElseAtItsTitle) {
    for (const auto &[record, row] : {std::pair(u"200=1 $e副$a甲"_s, 4), {u"010=  $a7-02-001259-0|200=1 $a甲"_s, 3}})
        EXPECT_EQ(identityOf(marc::showRecord(recordOf(record)).rows).fieldRow, row) << record.toStdString();
}

TEST(RemarkList, SortsFiltersAndIsATableOfText) {
    RemarkList list(storeOf({{}}));
    list.add(Remark(4, Kind::Isbn, u"010", 3, u"错"_s));
    list.add(Remark(0, Kind::InStore, {}, 0, u"一\r\n二\t三"_s));
    list.add(Remark(4, Kind::InStore, {}, 0, u"后"_s));
    list.add(Remark(-1, Kind::Unchecked, {}, 0, u"未能查重"_s));
    const int first = list.idOf(0);
    list.sort();
    EXPECT_EQ(list.rowOf(first), 2);
    EXPECT_EQ(list.count() * 100 + list.found() * 10 + list.count(Kind::InStore), 432);
    const TestFolder folder;
    ASSERT_TRUE(saveRemarks(folder.path(u"表.tsv"_s), list));
    EXPECT_EQ(folder.read(u"表.tsv"_s), QByteArray("\xEF\xBB\xBF级别\t规则\t字段\t记录\t题名\t说明\r\n"
                                                   "警告\t未能检查\t\t\t\t未能查重\r\n"
                                                   "警告\t查重\t\t1\t题1\t一  二 三\r\n"
                                                   "错误\tISBN\t010\t5\t\t错\r\n"
                                                   "警告\t查重\t\t5\t\t后\r\n"));
    list.setFilter({.level = {}, .rule = int(Kind::InStore), .tag = {}});
    list.add(Remark(6, Kind::InStore));
    list.add(Remark(7, Kind::Isbn));
    EXPECT_EQ(list.rowOf(first), -1);
    EXPECT_EQ(list.tabSeparated(u"|").section(u'|', 1),
              u"警告\t查重\t\t1\t题1\t一  二 三|警告\t查重\t\t5\t\t后|警告\t查重\t\t7\t\t|"_s);
}

TEST(RefusedRecords, AreWrittenUnchangedOrNotAtAll) {
    const auto store =
        storeOf({recordOf(u"200=1 $a甲'乙"_s), recordOf(u"200=1 $a丙"_s), recordOf(u"200=1 $a\u20AC€\u0416"_s)});
    const RefusedRecords refused{{2, u"duplicate key"_s}, {0, u"too long"_s}, {99, {}}, {-1, {}}};
    const auto remarks = remarksOf({.refused = refused}, *store);
    ASSERT_EQ(remarks.size(), 2U);
    EXPECT_EQ(QString::number(remarks[0].record) + remarks[0].text, u"2duplicate key"_s);
    const TestFolder folder;
    const QString path = folder.file(u"拒.iso"_s, "old");
    {
        const FullDisk disk(40);
        EXPECT_FALSE(saveRefused(path, refused, *store));
    }
    EXPECT_EQ(folder.read(u"拒.iso"_s), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    ASSERT_TRUE(saveRefused(path, refused, *store));
    EXPECT_EQ(folder.read(u"拒.iso"_s),
              platform::encode(store->record(2)) + "\r\n" + platform::encode(store->record(0)) + "\r\n");
    EXPECT_FALSE(saveRefused(folder.path(), refused, *store));
    EXPECT_FALSE(saveRefused(folder.path(u"没有/拒.iso"_s), refused, *store));
}
