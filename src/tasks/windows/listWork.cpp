#include "tasks/windows/listWork.h"
#include "marc/fieldRows.h"
#include "tasks/listReport.h"
#include "tasks/stepTables.h"
#include "tasks/stepWords.h"
#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {
constexpr std::chrono::milliseconds slice(12);
} // namespace

ListWork::ListWork(platform::Host &host, ListDesk desk)
    : m_host(host)
    , m_desk(std::move(desk))
    , m_history(m_desk.records, m_desk.put)
    , m_slices(
          slice, [this] { return step(); }, [this](bool more) { report(more); }) {}

std::vector<int> ListWork::rowsOf(Scope scope) const {
    int count = m_desk.records->rowCount(); // empty rows are at the end
    while (count > 0 && m_desk.records->number(count - 1).isEmpty())
        --count;
    std::vector<int> rows;
    if (scope == Scope::Remarked) {
        rows = m_desk.remarked();
    } else if (const auto shown = scope == Scope::Shown ? m_desk.shown() : std::nullopt) {
        rows = *shown;
    } else {
        rows.resize(size_t(count));
        std::iota(rows.begin(), rows.end(), 0);
    }
    std::erase_if(rows, [&](int row) { return row >= count; });
    return rows;
}

platform::Status ListWork::preview(const Task &task, Scope scope) {
    if (std::ranges::none_of(task.steps, &Step::on))
        return platform::Failure{u"这个任务没有启用的步骤"_s};
    if (!m_pinyin) {
        auto opened = pinyinFor(task, m_host.programFolder());
        if (!opened)
            return opened.failure();
        m_pinyin = std::move(opened).value();
    }
    const QDateTime now = m_host.now();
    auto run = TaskRun::prepare(task, {now.date(), QFileInfo(m_desk.file).fileName()}, Fit::GbkRecord, m_pinyin);
    if (!run)
        return run.failure();
    const auto remarks = run.value().needsRemarks() ? m_desk.remarks() : nullptr;
    if (run.value().needsRemarks() && !remarks)
        return platform::Failure{u"任务里有“校对有没有提示”的条件，请先“校对全部”"_s};
    m_task = task;
    m_preview =
        std::make_shared<ChangePreview>(ChangePreview::Source{m_desk.records, rowsOf(scope), remarks, m_desk.busyRow()},
                                        ListRecord(std::move(run).value()), task.steps.size(), now);
    begin(Kind::Preview);
    return platform::success();
}

void ListWork::run() {
    m_history.begin(*m_preview, m_task.name);
    begin(Kind::Run);
}

void ListWork::undo() {
    m_kept = m_history.changedSince();
    if (!m_kept.empty() && m_host.insist(undoQuestion(m_kept), platform::hintTitle, platform::Answer::No))
        m_kept.clear();
    m_undoneTask = m_history.task();
    m_history.beginUndo(m_kept);
    begin(Kind::Undo);
}

void ListWork::begin(Kind kind) {
    m_kind = kind;
    m_slices.start();
}

bool ListWork::step() {
    return m_kind == Kind::Preview ? m_preview->step() : m_kind == Kind::Run ? m_history.step() : m_history.undoStep();
}

void ListWork::report(bool more) {
    Q_EMIT progressed();
    if (!more)
        finish(false);
}

void ListWork::stop() {
    if (isBusy())
        finish(true);
}

void ListWork::finish(bool stopped) {
    m_slices.stop();
    const Kind kind = std::exchange(m_kind, Kind::None);
    QString words;
    if (kind == Kind::Run)
        words = runReport(*m_preview, m_history, m_task.name, steps(), stopped);
    else if (kind == Kind::Undo)
        words = undoReport(m_undoneTask, m_history.undone(), m_kept, stopped);
    if (kind != Kind::Preview)
        m_preview.reset(); // the records have changed
    Q_EMIT ended(words, stopped);
}

void ListWork::forget() {
    if (!isBusy())
        m_preview.reset();
}

QStringList ListWork::steps() const {
    return stepsInWords(m_task);
}

QString ListWork::progress() const {
    switch (m_kind) {
    case Kind::Preview:
        return u"正在预览，%1 / %2 条"_s.arg(m_preview->looked()).arg(m_preview->total());
    case Kind::Run:
        return u"正在执行，%1 / %2 条"_s.arg(m_history.position()).arg(m_history.total());
    case Kind::Undo:
        return u"正在撤销，已恢复 %1 条"_s.arg(m_history.undone());
    default:
        return {};
    }
}

marc::FieldPlace ListWork::placeOf(int row, const Change *change) const {
    marc::FieldPlace place{.record = row, .fieldRow = 0, .moment = m_desk.records->replacements()};
    if (!change || change->tag.isEmpty())
        return place;
    const marc::FieldRows rows = marc::showRecord(m_desk.records->record(row)).rows;
    int left = std::max(change->occurrence, 1);
    for (qsizetype at = 0; at < rows.size(); ++at)
        if (rows[at].identifier == (change->tag == leaderTag ? u"000"_s : change->tag) && --left == 0)
            place.fieldRow = int(at) + 1;
    return place;
}

} // namespace tasks
