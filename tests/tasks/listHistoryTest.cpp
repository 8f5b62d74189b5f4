// A task over a list of records, from the preview to its undoing.
#include "tasks/listHistory.h"
#include "support/dice.h"
#include "support/recordText.h"
#include "taskRows.h"
#include <map>

using namespace tasks;

namespace {

const QDateTime now(QDate(2026, 1, 31), QTime(9, 0));

struct List {
    std::shared_ptr<marc::PreReadStore> store = std::make_shared<marc::PreReadStore>();
    ListHistory history{store, [this](int row, const marc::RawRecord &record, const QString &title) {
                            store->setRecord(row, record);
                            store->setTitle(row, title);
                        }};
    int busyRow = -1;

    void add(int row, const marc::RawRecord &record, const QString &title) {
        store->setRows(row + 1);
        store->setNumber(row, row + 1);
        store->setRecord(row, record);
        store->setTitle(row, title);
    }
    ChangePreview preview(const QString &steps, const std::vector<int> &rows) const {
        const Task task = taskOf(steps).value();
        ChangePreview preview({store, rows, {}, busyRow}, ListRecord(TaskRun::prepare(task, testFacts).value()),
                              task.steps.size(), now);
        while (preview.step()) {
        }
        return preview;
    }
    void run(ChangePreview &preview) {
        history.begin(preview, u"t"_s);
        while (history.step()) {
        }
    }
    void undo(const std::vector<int> &keep = {}) {
        history.beginUndo(keep);
        while (history.undoStep()) {
        }
    }
    QString at(int row) const { return store->title(row) + u'|' + store->record(row); }
    std::vector<QString> whole() const {
        std::vector<QString> rows;
        for (int row = 0; row < store->rowCount(); ++row)
            rows.push_back(at(row));
        return rows;
    }
};

marc::RawRecord book(const QString &title, const QString &more = {}) {
    return recordOf(u"001=0"
                    u"1|100=  $a20260131|200=1 $a"_s +
                    title + more);
}

} // namespace

TEST(ListHistory, UndoingRestoresTheReplacedRecords) {
    const QStringList tasks{
        uR"({"action": "replace", "tag": "200", "code": "a", "find": "题", "with": "書名"})"_s,
        uR"({"action": "addField", "tag": "905", "content": "##$a{序号:4}", "when": "always"})"_s,
        uR"({"action": "deleteField", "tag": "9XX"}, {"action": "dropEmpty"})"_s,
        uR"({"action": "addField", "tag": "010", "content": "##$d{990$z?}€"})"_s,
    };
    Dice dice(3);
    for (int round = 0; round < 40; ++round) {
        List list;
        const int count = 3 + dice.below(30);
        for (int row = 0; row < count; ++row) {
            const QString title = u"题"_s + QString::number(dice.below(9)) + dice.text<QString>(u"é乐\uF8F5"_s, 2);
            list.add(row, dice.below(8) ? book(title, dice.below(2) ? u"|905=  $a1"_s : u""_s) : u"00026x"_s,
                     dice.below(5) ? title : u"别的题名"_s);
        }
        struct Undoable {
            std::vector<QString> before;
            std::map<int, bool> changed; // by row, whether the row was changed by hand since
        };
        std::vector<Undoable> runs;
        for (int act = 0; act < 12; ++act) {
            const int kind = dice.below(4), row = dice.below(count);
            if (kind == 0) {
                list.add(row, book(u"手改"_s + QString::number(act)), u"手改"_s);
                for (Undoable &run : runs)
                    if (run.changed.contains(row))
                        run.changed[row] = true;
            } else if (kind < 3) {
                std::vector<int> rows;
                for (int each = 0; each < count; ++each)
                    if (dice.below(3))
                        rows.push_back(each);
                ChangePreview preview = list.preview(dice.oneOf(tasks), rows);
                for (quint32 id = 0; id < preview.marks().size(); ++id) {
                    if (dice.below(6) == 0)
                        preview.setOut(id, true);
                    else if (dice.below(6) == 0)
                        preview.setRecordOut(id, dice.below(2));
                }
                const int records = preview.all().records;
                Undoable run{list.whole(), {}};
                list.run(preview);
                for (int each = 0; each < count; ++each)
                    if (list.at(each) != run.before[size_t(each)])
                        run.changed[each] = false;
                EXPECT_EQ(int(run.changed.size()), records);
                EXPECT_FALSE(preview.isCurrent() && records > 0);
                if (!run.changed.empty())
                    runs.push_back(run);
            } else if (!runs.empty()) {
                std::vector<int> byHand, keep;
                for (const auto &[each, since] : runs.back().changed)
                    if (since)
                        byHand.push_back(each);
                EXPECT_EQ(list.history.changedSince(), byHand);
                if (dice.below(2))
                    keep = byHand;
                const std::vector<QString> then = list.whole();
                list.undo(keep);
                int restored = 0;
                for (int each = 0; each < count; ++each) {
                    const bool back = runs.back().changed.contains(each) && !std::ranges::binary_search(keep, each);
                    restored += back;
                    EXPECT_EQ(list.at(each), (back ? runs.back().before : then)[size_t(each)]);
                }
                EXPECT_EQ(list.history.undone(), restored);
                runs.pop_back();
            }
            EXPECT_EQ(list.history.canUndo(), !runs.empty());
        }
    }
}

TEST(ListHistory, ARunWritesWhatThePreviewShowed) {
    List list;
    for (int row = 0; row < 4; ++row)
        list.add(row, book(u"题"_s + QString::number(row), u"|105=  $ay|905=  $a1$a1"_s), {});
    list.busyRow = 1;
    ChangePreview preview = list.preview(uR"({"action": "replace", "tag": "905", "find": "1", "with": "2"},
            {"action": "addField", "tag": "906", "content": "##$a{序号:3}", "when": "always"})"_s,
                                         {0, 1, 2, 3});
    const auto counts = preview.counts();
    ASSERT_EQ(counts.size(), 5U);
    const auto count = [&](size_t at) { return std::pair(counts[at].records, counts[at].changes); };
    EXPECT_EQ(count(0), std::pair(3, 3));
    EXPECT_EQ(count(1), std::pair(3, 3));
    EXPECT_EQ(count(2), std::pair(3, 3)) << "field 105 is not written";
    EXPECT_EQ(count(3), std::pair(1, 1)) << "the record with edits of its own";
    QStringList shown;
    for (quint32 id = 0; id < preview.marks().size(); ++id) {
        const Change &change = preview.change(id);
        QString text = change.before + u'>' + change.after;
        shown.append(QString::number(preview.recordOf(id).row) + change.tag + text.replace(QChar(0x1F), u'$'));
    }
    EXPECT_EQ(shown, (QStringList{u"0905  $a1$a1>  $a2$a2"_s, u"0906>  $a001"_s, u"0105  $ay>"_s,
                                  u"1>还有没收下的手工修改"_s, u"2905  $a1$a1>  $a2$a2"_s, u"2906>  $a002"_s,
                                  u"2105  $ay>"_s, u"3905  $a1$a1>  $a2$a2"_s, u"3906>  $a003"_s, u"3105  $ay>"_s}));
    preview.setOut(0, true);
    preview.setRecordOut(4, true);
    EXPECT_EQ(preview.all().changes, 3);
    EXPECT_TRUE(preview.isOut(5) && !preview.isOut(1));
    list.run(preview);
    EXPECT_TRUE(list.store->record(0).contains(u"\x1f"
                                               u"a1\x1f"
                                               u"a1\x1e"_s) &&
                list.store->record(0).contains(u"Norvas20260131090000MarcData"_s));
    EXPECT_FALSE(list.store->record(2).contains(u"Norvas"_s));
    EXPECT_TRUE(list.store->record(3).contains(u"a003\x1e"_s)) << "as the preview numbered it";
    EXPECT_EQ(list.history.refused().size(), 0U) << "known from the preview";
    const QString step = uR"({"action": "replace", "tag": "200", "find": "题", "with": "名"})"_s;
    for (const auto &[row, refused] : {std::pair(2, 1U), {3, 0U}}) {
        ChangePreview other = list.preview(step, {row});
        if (refused)
            list.store->setRecord(row, u"00026x"_s); // after the preview
        list.run(other);
        EXPECT_EQ(list.history.refused().size(), refused) << "of this run alone";
    }
}

// Leaving one change out leaves only those out that look the same; each record that uses the number takes one.
TEST(ListHistory, ChangesOfOneStepAreLeftOutOneByOne) {
    List list;
    for (int row = 0; row < 2; ++row)
        list.add(row, book(u"题"_s, u"|905=  $a1|905=  $a12|905=  $a1"_s), {});
    ChangePreview preview = list.preview(uR"({"action": "replace", "tag": "905", "find": "1", "with": "2"},
            {"action": "setSubfield", "tag": "200", "code": "a", "text": "{序号:3}"})"_s,
                                         {0, 1});
    ASSERT_EQ(preview.marks().size(), 8U);
    EXPECT_TRUE(preview.change(3).after.endsWith(u"a001") && preview.change(7).after.endsWith(u"a002"));
    preview.setOut(0, true);
    QString out;
    for (quint32 id = 0; id < 8; ++id)
        out += preview.isOut(id) ? u'x' : u'-';
    EXPECT_EQ(out, u"x-x-----");
}

TEST(ListHistory, ChangesThatTheWriterCannotKeepAreRefused) {
    const struct {
        QString step;
        QString why;
    } rows[] = {
        {uR"({"action": "addField", "tag": "105", "content": "##$ay"})"_s, u"字段 105 改成的样子写不出来"_s},
        {uR"({"action": "replace", "tag": "001", "find": "0", "with": "1"})"_s, u"001 字段每次改记录都重新生成"_s},
        {uR"({"action": "addField", "tag": "300", "content": "##$aé龘\uD83D\uDE00"})"_s, u"GBK 里没有"_s},
        {uR"({"action": "replaceMatches", "tag": "200", "find": "(a|a|a)+$", "with": ""})"_s,
         u"第1步：正则表达式算得太久"_s},
        {uR"({"action": "replaceMatches", "tag": "200", "code": "f", "find": "(.+){1}", "with": "%1"})"_s.arg(
             u"\\\\1"_s.repeated(40)),
         u"第1步：结果太长"_s},
        {uR"({"action": "addField", "tag": "300", "content": "##$a%1"})"_s.arg(QString(3900, u'长')), {}},
        {uR"({"action": "addField", "tag": "300", "content": "##$a{200$f}{200$f}"})"_s, u"长过 9999 字节"_s},
    };
    for (const auto &[step, why] : rows) {
        List list;
        list.add(0, book(QString(40, u'a') + u'b', u"$f"_s + QString(2600, u'书')), {});
        const QString before = list.at(0);
        ChangePreview preview = list.preview(step, {0});
        ASSERT_EQ(preview.marks().size(), 1U) << qPrintable(step);
        EXPECT_EQ(preview.marks()[0].step == ChangePreview::refusedRecord, !why.isEmpty()) << qPrintable(step);
        EXPECT_TRUE(preview.change(0).after.contains(why)) << qPrintable(preview.change(0).after);
        list.run(preview);
        EXPECT_EQ(list.at(0) == before, !why.isEmpty()) << qPrintable(step);
        EXPECT_EQ(list.history.canUndo(), why.isEmpty());
    }
}
