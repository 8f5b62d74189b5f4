// The ready tasks, and tasks on files.
#include "tasks/readyTasks.h"
#include "platform/codepage936.h"
#include "support/testFolder.h"
#include "taskRows.h"
#include "tasks/listRecord.h"
#include "tasks/stepTables.h"
#include "tidy/tidyRun.h"

using namespace tasks;

namespace {

tidy::TidyResult tidied(const QString &source, const QString &target, TaskRun &run) {
    tidy::TidyRun tidying(source, target, tidy::TargetForm::GbkIso);
    tidying.setChange({.name = u"task"_s,
                       .change = [&](marc::FieldedRecord &record) -> tidy::RecordChange {
                           const Outcome outcome = run.apply(record);
                           return {outcome.changed, outcome.why};
                       },
                       .tally = {}});
    EXPECT_TRUE(tidying.open().ok());
    for (auto more = tidying.step(); more && more.value();)
        more = tidying.step();
    EXPECT_TRUE(tidying.close().ok());
    return tidying.result();
}

QByteArray sample() {
    QFile file(QStringLiteral(SAMPLE_FILE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

TEST(ReadyTasks, DoWhatTheirNamesSay) {
    const std::vector<Task> all = readyTasks();
    ASSERT_EQ(all.size(), 6U);
    size_t chosen = 0;
    QString before;
    for (const QString &line : linesOf(u"ready.txt"_s)) {
        if (!line.isEmpty() && line[0].isDigit())
            chosen = line.toULong();
        else if (line.startsWith(u'<'))
            before = line.mid(2);
        if (!line.startsWith(u'>') && line != u"=")
            continue;
        TaskRun run = TaskRun::prepare(all[chosen], testFacts).value();
        marc::FieldedRecord record = recordIn(before);
        EXPECT_EQ(run.apply(record).why, QString());
        EXPECT_EQ(shown(record), line == u"=" ? before : line.mid(2)) << qPrintable(all[chosen].name);
        EXPECT_FALSE(run.apply(record).changed) << "a second run changes more: " << qPrintable(all[chosen].name);
    }
}

// The list rebuilds a changed record as after an edit by hand: 001 is new, 105, 106, 110 and 115 are omitted, data
// fields are in the order of their tags. A file keeps all of that.
TEST(ReadyTasks, FilesAndListsDifferOnlyInFieldsThatTheListRebuilds) {
    const TestFolder folder;
    const QByteArray source = sample();
    const QString file = folder.file(u"source.iso"_s, source);
    const auto rebuilt = [](marc::FieldedRecord record) {
        std::erase_if(record.fields, [](const marc::Field &field) {
            return QStringList{u"001"_s, u"105"_s, u"106"_s, u"110"_s, u"115"_s}.contains(field.tag);
        });
        std::ranges::stable_sort(record.fields, {}, &marc::Field::tag);
        return record.fields;
    };
    for (const Task &task : readyTasks()) {
        TaskRun onFile = TaskRun::prepare(task, testFacts).value();
        ListRecord onList(TaskRun::prepare(task, testFacts).value());
        qint64 changed = 0;
        tidied(file, folder.path(u"t.iso"_s), onFile);
        const QList<QByteArray> written = folder.read(u"t.iso"_s).split('\n');
        for (qsizetype i = 0; i < source.count('\n'); ++i) {
            const QByteArray before = source.split('\n')[i];
            const ListOutcome outcome = onList.change(platform::decode(before.chopped(1)), {}, {});
            EXPECT_EQ(outcome.why, QString());
            EXPECT_EQ(outcome.record.isEmpty(), written[i] == before) << qPrintable(task.name) << i;
            marc::FieldedRecord here, there;
            if (outcome.record.isEmpty())
                continue;
            ++changed;
            here.take(outcome.record);
            there.take(platform::decode(written[i].chopped(1)));
            EXPECT_EQ(rebuilt(here), rebuilt(there)) << qPrintable(task.name) << i;
        }
        EXPECT_EQ(tidied(file, folder.path(u"t.iso"_s), onFile).changed, changed) << qPrintable(task.name);
    }
}

TEST(ReadyTasks, ATaskWithoutEffectLeavesEveryByte) {
    const TestFolder folder;
    TaskRun run =
        runOf(uR"({"action": "replace", "find": "没有这些字", "with": "x"}, {"action": "dropEmpty", "tag": "999"})"_s);
    const tidy::TidyResult result = tidied(folder.file(u"source.iso"_s, sample()), folder.path(u"t.iso"_s), run);
    EXPECT_EQ(result.changed, 0);
    EXPECT_EQ(folder.read(u"t.iso"_s), sample());
}

TEST(ReadyTasks, ARecordOfAFileThatCannotBeChangedIsWrittenAsItWasAndListed) {
    const TestFolder folder;
    TaskRun run = runOf(uR"({"if": {"is": "contains", "tag": "200", "text": "呐喊"}, "action": "addField", "tag": "300",
        "content": "##$a𠮷"})"_s);
    const tidy::TidyResult result = tidied(folder.file(u"source.iso"_s, sample()), folder.path(u"t.iso"_s), run);
    EXPECT_EQ(result.notChanged.count, 1);
    EXPECT_EQ(folder.read(u"t.iso"_s), sample());
    const QString text = tidy::report(result, u"s"_s);
    EXPECT_TRUE(text.contains(u"1 条不能改，照原样写出：\r\n第 "_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u" 条：字段 300 的“𠮷”，GBK 里没有"_s)) << qPrintable(text);
    EXPECT_TRUE(tidy::warning(result).contains(u"未能批改 1 条"_s));
}

TEST(Handbook, ItsExamplesAreValidAndItNamesEachTestAndAction) {
    QFile page(QStringLiteral(HANDBOOK_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const QRegularExpression example(u"(?:^|`)(\\{\"(?:if|action)\".*\\})(?:$|`)"_s,
                                     QRegularExpression::MultilineOption);
    int examples = 0;
    for (auto found = example.globalMatch(text); found.hasNext(); ++examples) {
        const QString step = found.next().captured(1);
        EXPECT_TRUE(taskOf(step).ok()) << qPrintable(step) << qPrintable(taskOf(step).failure().description);
    }
    EXPECT_GE(examples, 18);
    const qsizetype begin = text.indexOf(u"{\n  \"format\""_s);
    EXPECT_TRUE(readTask(text.sliced(begin, text.indexOf(u"```"_s, begin) - begin).toUtf8()).ok());
    for (const ActionRow &row : actionRows())
        EXPECT_TRUE(text.contains(u'`' + row.key + u'`')) << qPrintable(row.key.toString());
    for (const TestRow &row : testRows().subspan(1))
        EXPECT_TRUE(text.contains(u'`' + row.key + u'`')) << qPrintable(row.key.toString());
    for (const Task &task : readyTasks())
        EXPECT_TRUE(text.contains(u"### " + task.name)) << qPrintable(task.name);
}
