#include "app/taskOffer.h"
#include "tasks/stepWords.h"
#include "tasks/taskRun.h"
#include "tasks/taskShelf.h"
#include <QFileInfo>
#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace app {

namespace {

tasks::Fit fitOf(tidy::TargetForm form) {
    using enum tidy::TargetForm;
    return form == GbkIso ? tasks::Fit::GbkRecord : form == Utf8Iso ? tasks::Fit::Utf8Record : tasks::Fit::Anything;
}

std::vector<tidy::StepTally> tallyOf(const QStringList &words, const tasks::TaskRun &run) {
    std::vector<tidy::StepTally> tallies;
    for (qsizetype i = 0; i < words.size(); ++i)
        tallies.push_back({words[i], run.counts()[size_t(i)].changes, run.counts()[size_t(i)].records});
    return tallies;
}

platform::Result<tidy::FileChange> fileChange(const platform::Host &host, const tasks::Task &task,
                                              const QString &source, tidy::TargetForm form) {
    if (std::ranges::none_of(task.steps, &tasks::Step::on))
        return platform::Failure{u"任务“"_s + task.name + u"”没有启用的步骤"};
    const auto pinyin = tasks::pinyinFor(task, host.programFolder());
    if (!pinyin)
        return pinyin.failure();
    auto prepared =
        tasks::TaskRun::prepare(task, {host.now().date(), QFileInfo(source).fileName()}, fitOf(form), pinyin.value());
    if (!prepared)
        return prepared.failure();
    if (prepared.value().needsRemarks())
        return platform::Failure{u"任务“"_s + task.name +
                                 u"”里有“校对有没有提示”的条件，整理时不校对，请在工作窗口里用“批量修改”"};
    const auto run = std::make_shared<tasks::TaskRun>(std::move(prepared).value());
    const auto change = [run](marc::FieldedRecord &record) -> tidy::RecordChange {
        const tasks::Outcome outcome = run->apply(record);
        return {outcome.changed, outcome.why};
    };
    return tidy::FileChange{task.name, change,
                            [run, words = tasks::stepsInWords(task)] { return tallyOf(words, *run); }};
}

} // namespace

tidy::ChangeOffer taskOffer(const platform::Host &host) {
    const tasks::TaskShelf shelf = tasks::openShelf(host.remembered());
    tidy::ChangeOffer offer;
    std::vector<tasks::Task> usable;
    for (const tasks::TaskShelf::Entry &entry : shelf.entries()) {
        if (!entry.fault.isEmpty())
            continue;
        offer.names.append(entry.name);
        usable.push_back(entry.task);
    }
    offer.prepare = [&host, usable](int index, const QString &source, tidy::TargetForm form) {
        return fileChange(host, usable[size_t(index)], source, form);
    };
    return offer;
}

} // namespace app
