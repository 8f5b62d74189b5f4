#include "workspace/editedRecord.h"
#include "support/recordText.h"

using namespace workspace;

TEST(EditedRecord, WarnsOfLosses) {
    EditedRecord record;
    record.show(recordOf({{u"461"_s, u" 0$1200$a题$v3"_s}, {u"410"_s, u" 0$12001 $a题"_s}}), u"/nowhere/"_s, {});
    ASSERT_TRUE(record.row(3).value.contains(QChar(0x1F))); // too short for indicators
    EXPECT_EQ(record.warning(), QString());                 // the separator belongs to the record
    EXPECT_EQ(record.warning(5, u"𠮷野é家𠮷"_s), u"注意：GBK 没有字符“𠮷(U+20BB7)”，保存后将变成“?”。"_s);
    const QString torn = u"注意：字段内容含有分隔符(1D-1F)，保存后字段会被拆开。"_s;
    EXPECT_EQ(record.warning(3, record.row(3).value + QChar(0x1F)), torn);
    record.edit({.row = 2, .column = IdentifierColumn, .text = u"300"_s}); // no longer an embedded field
    EXPECT_EQ(record.warning(), torn);
    record.edit({.row = 1, .column = IdentifierColumn, .text = u"$1"_s}); // in no field
    EXPECT_EQ(record.warning(1, QChar(0x1F)), torn);
    record.edit({.row = 5, .text = u"𠮷"_s});
    record.remove(3);
    EXPECT_TRUE(record.warning().contains(u"𠮷"));
    record.remove(4);
    EXPECT_EQ(record.warning(), QString());
}

// Access beyond the rows returns empty values and changes nothing.
TEST(EditedRecord, IgnoresRowsThatDoNotExist) {
    EditedRecord record;
    record.show(recordOf({{u"200"_s, u"1 $a题"_s}}), u"/nowhere/"_s, {});
    const marc::FieldRows rows = record.rows();
    for (const int row : {-1, 0, int(rows.size()) + 1}) {
        record.edit({.row = row, .text = u"x"_s});
        record.remove(row);
        EXPECT_EQ(record.cell(row, ValueColumn), QString());
        EXPECT_TRUE(record.with({.row = row, .text = u"x"_s}).rows == rows);
    }
    record.edit({.row = 1, .column = ValueColumn + 1, .text = u"x"_s});
    record.insert({0, {}});
    record.insert({int(rows.size()) + 2, {}});
    record.paste({0, {{}}});
    record.paste({int(rows.size()) + 2, {{}}});
    record.paste({1, {}});
    record.remove(2, int(rows.size()));
    EXPECT_TRUE(record.rows() == rows && !record.state().edited && !record.undo());
}

TEST(EditedRecord, LeavingReportsAChangeOnly) {
    EditedRecord record;
    EXPECT_EQ(record.rowCount(), 1);
    int edited = 0;
    QObject::connect(&record, &EditedRecord::edited, [&] { ++edited; });
    const std::pair<std::function<void()>, bool> acts[] = {
        {[] {}, false},
        {[&] { record.edit({.row = 3, .text = u"x"_s}); }, true},
        {[&] { record.edit({.row = 3, .text = u"y"_s, .marks = false}); }, true},
        {[&] {
             record.insert({2, {}});
         },
         true},
    };
    for (int number = 0; const auto &[act, changes] : acts) {
        record.show(recordOf({{u"200"_s, u"1 $a题"_s}}), u"/nowhere/"_s, {});
        act();
        edited = 0;
        record.leave(EditedRecord::Mark::Goes);
        EXPECT_EQ(edited, changes) << number++;
        EXPECT_FALSE(record.state().edited || record.state().rowsCameOrWent || record.differsFromList());
    }
    QString damaged;
    record.show(QString(recordOf({{u"200"_s, u"1 $a题"_s}})).insert(24, u'0'), u"/nowhere/"_s,
                [&](const marc::RawRecord &text) { damaged = text; });
    EXPECT_TRUE(record.rowCount() == 1 && !damaged.isEmpty());
}

TEST(EditedRecord, ReplacedRowsAreOneEdit) {
    EditedRecord record;
    record.show(recordOf({{u"200"_s, u"1 $a题$f人"_s}, {u"300"_s, u"  $a附"_s}}), u"/nowhere/"_s, {});
    record.edit({.row = 2, .column = FieldLabelColumn, .text = u"我的说明"_s, .marks = false});
    const marc::FieldRows before = record.rows();
    int edited = 0;
    QObject::connect(&record, &EditedRecord::edited, [&] { ++edited; });
    marc::FieldRows rows = before;
    rows[2].value = u"别题"_s;
    rows.removeLast();
    record.replace(rows, u"/nowhere/"_s);
    EXPECT_TRUE(edited == 1 && record.state().edited && record.state().rowsCameOrWent);
    EXPECT_TRUE(record.rows() == rows);
    EXPECT_EQ(record.cell(2, FieldLabelColumn), u"我的说明"_s);
    ASSERT_TRUE(record.undo());
    EXPECT_TRUE(record.rows() == before && !record.state().edited);
}

// Each change with the words of its undo; the second undo finds nothing.
TEST(EditedRecord, UndoNamesTheRowThatChanged) {
    const QString text = recordOf({{u"001"_s, u"1"_s}, {u"200"_s, u"1 $a题$f人$f人"_s}, {u"300"_s, u"  $a附"_s}});
    struct Case {
        std::function<void(EditedRecord &)> act;
        QStringView words;
        int row;
    };
    for (const Case &each : {
             Case{[](EditedRecord &r) { r.edit({.row = 2, .text = u"2"_s}); }, u"修改 001", 2},
             Case{[](EditedRecord &r) { r.edit({.row = 6, .text = u"者"_s}); }, u"修改 200$f", 6},
             Case{[](EditedRecord &r) { r.edit({.row = 1, .text = r.row(1).value, .leader = u"x"_s}); }, u"修改 000",
                  8},
             Case{[](EditedRecord &r) {
                      r.insert({1, {.identifier = u"$9"_s}});
                  },
                  u"添加 $9", 1},
             Case{[](EditedRecord &r) {
                      r.insert({9, {.identifier = u"801"_s}});
                  },
                  u"添加 801", 8},
             Case{[](EditedRecord &r) {
                      r.insert({7, r.row(6)});
                  },
                  u"添加 200$f", 7},
             Case{[](EditedRecord &r) { r.remove(6); }, u"删除 200$f", 6},
             Case{[](EditedRecord &r) { r.remove(7, 2); }, u"删除 300", 7},
             Case{[](EditedRecord &r) { r.remove(8); }, u"删除 300$a", 8},
         }) {
        EditedRecord record;
        record.show(text, u"/nowhere/"_s, {});
        const marc::FieldRows before = record.rows();
        const QString leader = record.state().leader;
        each.act(record);
        const marc::FieldRows after = record.rows();
        const auto gone = record.undo();
        ASSERT_TRUE(gone) << each.words.toUtf8().constData();
        EXPECT_EQ(gone->words, each.words);
        EXPECT_EQ(gone->row, each.row) << gone->words.toStdString();
        EXPECT_TRUE(record.rows() == before && record.state().leader == leader && !record.undo());
        EXPECT_TRUE(record.redo() && record.rows() == after && !record.redo());
        record.takenOver();
        EXPECT_TRUE(record.undo() && record.state().edited) << "it differs from the list now";
    }
}
