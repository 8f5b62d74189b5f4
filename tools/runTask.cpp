// Runs a task over a record file: file to file, in the encoding of the workspace or, with --utf8, in UTF-8. Prints how
// many records were changed and how often each step did something; with --time also the records per second of processor
// time. With "-" as the task the file is only written again.
// Usage: runTask TASK SOURCE TARGET [--utf8] [--time]
#include "tasks/stepWords.h"
#include "tasks/taskFile.h"
#include "tasks/taskRun.h"
#include "tidy/tidyRun.h"
#include "tools/sourceText.h"
#include <QFileInfo>
#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

void print(const QString &line) {
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
}

platform::Status runThrough(tidy::TidyRun &run) {
    if (const platform::Status opened = run.open(); !opened)
        return opened;
    for (;;) {
        const platform::Result<bool> more = run.step();
        if (!more)
            return more.failure();
        if (!more.value())
            return run.close();
    }
}

void printCounts(const tasks::Task &task, const tasks::TaskRun &run) {
    for (size_t i = 0; i < task.steps.size(); ++i)
        print(u"%1\t%2\t%3"_s.arg(run.counts()[i].records).arg(run.counts()[i].changes).arg(describe(task.steps[i])));
}

} // namespace

int main(int count, char **arguments) {
    QStringList given;
    for (int i = 1; i < count; ++i)
        given.append(QString::fromLocal8Bit(arguments[i]));
    const bool timed = given.removeAll(u"--time"_s) > 0, asUtf8 = given.removeAll(u"--utf8"_s) > 0;
    if (given.size() != 3)
        return tools::complain(u"runTask"_s, u"usage: runTask TASK SOURCE TARGET [--utf8] [--time]"_s);
    const auto task = given[0] == u"-" ? platform::Result<tasks::Task>(tasks::Task()) : tasks::readTaskFile(given[0]);
    if (!task)
        return tools::complain(given[0], task.failure().description);
    auto run = tasks::TaskRun::prepare(task.value(), {QDate::currentDate(), QFileInfo(given[1]).fileName()},
                                       asUtf8 ? tasks::Fit::Utf8Record : tasks::Fit::GbkRecord);
    if (!run)
        return tools::complain(given[0], run.failure().description);
    tidy::TidyRun tidying(given[1], given[2], asUtf8 ? tidy::TargetForm::Utf8Iso : tidy::TargetForm::GbkIso);
    tidying.setChange({.name = task.value().name,
                       .change = [&](marc::FieldedRecord &record) -> tidy::RecordChange {
                           const tasks::Outcome outcome = run.value().apply(record);
                           return {outcome.changed, outcome.why};
                       },
                       .tally = {}});
    const std::clock_t begin = std::clock();
    if (const platform::Status done = runThrough(tidying); !done)
        return tools::complain(given[1], done.failure().description);
    const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
    printCounts(task.value(), run.value());
    print(tidy::report(tidying.result(), given[1]));
    if (timed)
        print(u"%1 records per second of processor time"_s.arg(qRound(double(tidying.result().in) / seconds)));
    return 0;
}
