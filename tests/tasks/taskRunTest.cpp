// Properties of every task: a failure leaves the record, nothing else changes, and the list of changes is complete.
#include "support/dice.h"
#include "support/recordText.h"
#include "taskRows.h"
#include "tasks/listRecord.h"

using namespace tasks;

namespace {

const QString letters = u"ab12 ：（红楼梦"_s;

marc::RawRecord randomRecord(Dice &dice) {
    const QStringList tags{u"001"_s, u"010"_s, u"100"_s, u"200"_s, u"300"_s, u"461"_s, u"690"_s, u"701"_s, u"905"_s};
    QList<TestField> fields;
    for (const QString &tag : tags) {
        for (int i = dice.below(3); i > 0; --i) {
            QString content = tag < u"010" ? dice.text<QString>(letters, 8) : u"  "_s;
            for (int j = tag < u"010" ? 0 : dice.below(5); j > 0; --j)
                content += u'$' + QString(dice.oneOf(u"abdf9A1"_s)) + dice.text<QString>(letters, 9);
            fields.append({tag, content});
        }
    }
    return recordOf(fields);
}

// The steps of the rows that can be run.
QStringList steps() {
    QStringList found;
    for (const QString &line : linesOf(u"steps.txt"_s)) {
        if (line.startsWith(u'{') && taskOf(line))
            found.append(line);
    }
    return found;
}

} // namespace

TEST(TaskRun, ChangesOnlyWhatItListsAndIsUndoneByTheRecordBefore) {
    Dice dice(21);
    const QStringList all = steps();
    ASSERT_GT(all.size(), 50);
    int changed = 0;
    for (int round = 0; round < 600; ++round) {
        const QString chosen = dice.oneOf(all) + u", " + dice.oneOf(all) + u", " + dice.oneOf(all);
        marc::FieldedRecord before;
        before.take(randomRecord(dice));
        TaskRun run = runOf(chosen), silent = runOf(chosen), without = runOf(chosen);
        marc::FieldedRecord listed = before, unlisted = before, refused = before;
        const Outcome outcome = run.apply(listed, {}, {.list = true});
        EXPECT_EQ(silent.apply(unlisted).changed, outcome.changed);
        EXPECT_TRUE(listed == unlisted) << qPrintable(chosen);
        EXPECT_EQ(outcome.changed, listed != before) << qPrintable(chosen);
        EXPECT_TRUE(!outcome.changed || !run.changes().empty()) << qPrintable(chosen);
        changed += outcome.changed;
        const std::vector<Change> first(run.changes().begin(), run.changes().begin() + !run.changes().empty());
        without.apply(refused, {}, {.list = true, .without = &first});
        for (const Change &change : without.changes())
            EXPECT_TRUE(first.empty() || !isSame(change, first[0])) << qPrintable(chosen);
    }
    EXPECT_GT(changed, 200);
}

TEST(TaskRun, LeavesTheRecordAsItWasAndGivesTheReason) {
    const QString longText(9'000, u'x');
    const struct {
        QString steps;
        QString record;
        QString why;
        int step;
        Fit fit = Fit::GbkRecord;
    } rows[] = {
        {uR"({"action": "dropEmpty"}, {"action": "replace", "tag": "300", "find": "x", "with": "xx"})"_s,
         u"200 1 $at$e|300   $a"_s + longText, u"字段 300 有 18005 字节，长过 9999 字节"_s, -1},
        {uR"({"action": "replace", "find": "甲", "with": "€𠀀"})"_s, u"200 1 $a甲"_s, u"字段 200 的“𠀀”，GBK 里没有"_s,
         -1},
        {uR"({"action": "replace", "find": "甲", "with": "xxxx"})"_s, u"200 1 $a"_s + QString(2'500, u'甲'),
         u"字段 200 有 10005 字节，长过 9999 字节"_s, -1, Fit::Utf8Record},
        {uR"({"action": "copyField", "tag": "300", "toTag": "301"}, {"action": "copyField", "tag": "3XX", "toTag": "302"},
             {"action": "copyField", "tag": "3XX", "toTag": "303"}, {"action": "copyField", "tag": "3XX", "toTag": "304"})"_s,
         u"300   $a"_s + longText, u"记录有 144298 字节，长过 99999 字节"_s, -1},
        {uR"({"action": "dropEmpty"}, {"action": "replaceMatches", "find": "(a+)+$", "with": ""})"_s,
         u"200 1 $e|300   $a"_s + QString(40, u'a') + u'b', u"正则表达式算得太久"_s, 1},
        {uR"({"if": {"is": "matches", "tag": "300", "text": "(a+)+$"}, "action": "dropEmpty"})"_s,
         u"200 1 $e|300   $a"_s + QString(40, u'a') + u'b', u"正则表达式算得太久"_s, 0},
        {uR"({"if": {"is": "matches", "text": "(a+)+$"}, "action": "dropEmpty"})"_s,
         u"200 1 $e|300   $a"_s + QString(40, u'a') + u'b', u"正则表达式算得太久"_s, 0},
        {QStringList(40, uR"({"action": "replace", "find": "x", "with": "xxxxxxxxx"})"_s).join(u", "), u"300   $ax"_s,
         u"结果太长"_s, 5, Fit::Anything},
        {QStringList(40, uR"({"action": "copyField", "tag": "3XX", "toTag": "300"})"_s).join(u", "),
         u"300   $a"_s + longText, u"记录太长"_s, 6, Fit::Anything},
        {QStringList(40, uR"({"action": "copyField", "tag": "3XX", "toTag": "300"})"_s).join(u", "), u"300   $ax"_s,
         u"记录太长"_s, 12, Fit::Anything},
    };
    for (const auto &[steps, before, why, step, fit] : rows) {
        TaskRun run = runOf(steps, fit);
        marc::FieldedRecord record = recordIn(before);
        const Outcome outcome = run.apply(record, {}, {.list = true});
        EXPECT_EQ(outcome.why, why) << qPrintable(steps.left(200));
        EXPECT_EQ(outcome.step, step) << qPrintable(steps.left(200));
        EXPECT_FALSE(outcome.changed);
        EXPECT_EQ(shown(record), before);
        EXPECT_TRUE(run.changes().empty());
        for (const StepCount &count : run.counts())
            EXPECT_EQ(count.changes, 0);
    }
}

TEST(TaskRun, KeepsCharactersThatTheRecordHadAlready) {
    TaskRun run = runOf(uR"({"action": "replace", "find": "甲", "with": "乙"})"_s);
    marc::FieldedRecord record = recordIn(u"200 1 $a甲𠀀"_s);
    EXPECT_TRUE(run.apply(record).changed);
    EXPECT_EQ(shown(record), u"200 1 $a乙𠀀"_s);
    run.apply(record = recordIn(u"200 1 $a甲"_s), {}, {.list = true});
    EXPECT_EQ(run.changes().size(), 1U);
    run.apply(record, {}, {.list = true});
    EXPECT_TRUE(run.changes().empty()) << "nothing remains of the record before";
}

TEST(TaskRun, NumbersOnlyTheRecordsThatNeedIt) {
    TaskRun run = runOf(uR"({"action": "addField", "tag": "905", "content": "##$f{序号}"}, {"action": "dropEmpty"},
        {"action": "addSubfield", "tag": "200", "code": "9", "text": "x"})"_s);
    QStringList numbers;
    for (const QString &before : {u"200 1 $a1"_s, u"200 1 $a2$e|905   $ah"_s, u"200 1 $a3"_s}) {
        marc::FieldedRecord record = recordIn(before);
        run.apply(record);
        numbers.append(shown(record).section(u'$', -1));
    }
    EXPECT_EQ(numbers, (QStringList{u"f7"_s, u"ah"_s, u"f8"_s}));
    EXPECT_EQ(run.counts()[0].records, 2);
}

TEST(TaskRun, NamesTheStepThatCannotBeRun) {
    Task task = taskOf(uR"({"action": "dropEmpty"}, {"action": "deleteField", "tag": "300"})"_s).value();
    task.steps[1].values[Parameter::Tag] = u"3"_s;
    EXPECT_TRUE(TaskRun::prepare(task, testFacts).failure().description.startsWith(u"第2步："));
    task.steps[1].on = false;
    EXPECT_FALSE(TaskRun::prepare(task, testFacts).value().needsRemarks());
    for (const QString &test : {u"remark"_s, u"noRemark"_s})
        EXPECT_TRUE(runOf(uR"({"if": {"is": "%1", "rules": "x"}, "action": "dropEmpty"})"_s.arg(test)).needsRemarks());
}

TEST(TaskRun, ListsEachChangeWithItsFieldBeforeAndAfter) {
    TaskRun run = runOf(uR"({"action": "replace", "tag": "690", "find": "I", "with": "J"},
        {"action": "deleteField", "tag": "690", "which": "last"}, {"action": "moveField", "tag": "690", "toTag": "692"},
        {"action": "setPosition", "tag": "LDR", "at": "5", "text": "c"}, {"action": "sortFields"})"_s);
    marc::FieldedRecord record = recordIn(u"LDR 00000nam0 2200000   450 |701  0$aA|690   $aI1|690   $aI2"_s);
    run.apply(record, {}, {.list = true});
    QStringList lines;
    for (const Change &c : run.changes())
        lines.append(QStringList{QString::number(c.step), c.tag, QString::number(c.occurrence), c.toTag,
                                 c.before.mid(2), c.after.mid(2)}
                         .join(u' '));
    EXPECT_EQ(lines.join(u'|').replace(QChar(marc::subfieldDelimiter), u'$'),
              u"0 690 1  $aI1 $aJ1|0 690 2  $aI2 $aJ2|1 690 2  $aJ2 |2 690 1 692 $aJ1 $aJ1|"
              "3 LDR 1  000nam0 2200000   450  000cam0 2200000   450 "_s);
}

TEST(ListRecord, LeavesARecordWithAWrongDirectory) {
    ListRecord list(runOf(uR"({"action": "addField", "tag": "801", "content": "#0$aCN"})"_s));
    const marc::RawRecord record = recordOf({{u"200"_s, u"1 $at"_s}}).replace(u"0006"_s, u"0005"_s);
    EXPECT_EQ(list.change(record, {}, {}).why, u"目次区与字段对不上"_s);
}
