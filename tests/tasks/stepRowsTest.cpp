// Runs the rows of steps.txt: each test and action on records.
#include "taskRows.h"
#include "tasks/stepTables.h"
#include "tasks/stepWords.h"

using namespace tasks;

namespace {

// Checks one step after the other, and that the list of changes agrees with the changes made.
struct Rows {
    QString json;
    QString before;
    QSet<int> actions, tests;

    void begin(const QString &line) {
        json = line;
        if (const auto task = taskOf(json); task) {
            actions.insert(int(task.value().steps[0].action));
            tests.insert(int(task.value().steps[0].test));
        }
    }
    void expectWords(const QString &words) const {
        const auto task = taskOf(json);
        ASSERT_TRUE(task.ok());
        EXPECT_EQ(describe(task.value().steps[0]), words);
    }
    void expectRefused(const QString &reason) const {
        const auto task = taskOf(json);
        ASSERT_FALSE(task.ok()) << qPrintable(json);
        EXPECT_TRUE(task.failure().description.startsWith(u"steps[0]." + reason))
            << qPrintable(task.failure().description);
    }
    void expectResult(const QString &after) const {
        TaskRun run = runOf(json, Fit::Anything);
        marc::FieldedRecord record = recordIn(before);
        const Outcome outcome = run.apply(record, {u"缺出版国别"_s}, {.list = true});
        EXPECT_EQ(shown(record), after) << qPrintable(json);
        EXPECT_EQ(outcome.changed, after != before) << qPrintable(json);
        EXPECT_EQ(run.changes().empty(), after == before) << qPrintable(json);
        EXPECT_EQ(qint64(run.changes().size()), run.counts()[0].changes) << qPrintable(json);
        const std::vector<Change> changes = run.changes();
        record = recordIn(before);
        run.setNextNumber(testFacts.number);
        EXPECT_FALSE(run.apply(record, {u"缺出版国别"_s}, {.without = &changes}).changed) << qPrintable(json);
        EXPECT_EQ(shown(record), before) << "every change was refused: " << qPrintable(json);
    }
};

} // namespace

TEST(StepRows, EachTestAndActionDoesWhatItsWordsSay) {
    Rows rows;
    for (const QString &line : linesOf(u"steps.txt"_s)) {
        const QString rest = line.mid(2);
        if (line.startsWith(u'{'))
            rows.begin(line);
        else if (line.startsWith(u':'))
            rows.expectWords(rest);
        else if (line.startsWith(u'!'))
            rows.expectRefused(rest);
        else if (line.startsWith(u'<'))
            rows.before = rest;
        else if (line.startsWith(u'>') || line.startsWith(u'='))
            rows.expectResult(line.startsWith(u'=') ? rows.before : rest);
    }
    EXPECT_EQ(rows.actions.size(), qsizetype(actionRows().size())) << "an action has no row";
    EXPECT_EQ(rows.tests.size(), qsizetype(testRows().size())) << "a test has no row";
}
