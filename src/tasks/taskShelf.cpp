#include "tasks/taskShelf.h"
#include "platform/byteFile.h"
#include "platform/kept.h"
#include "platform/paths.h"
#include "tasks/readyTasks.h"
#include "tasks/taskFile.h"
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr QStringView suffix = u".json";
constexpr qsizetype longestFileName = 60; // characters; file systems allow 255 bytes

// Returns the name as part of a file name on any system.
QString asFileName(const QString &name) {
    QString plain = name.left(longestFileName);
    for (QChar &c : plain)
        if (c < u' ' || QStringView(u"/\\:*?\"<>|.").contains(c) || c.isSurrogate())
            c = u'_';
    return plain.trimmed();
}

} // namespace

TaskShelf::TaskShelf(std::vector<Task> ready, QString own, QString trouble)
    : m_ready(std::move(ready))
    , m_own(std::move(own))
    , m_trouble(std::move(trouble)) {
    refresh();
}

void TaskShelf::refresh() {
    m_entries.clear();
    for (const Task &task : m_ready)
        m_entries.push_back({.name = task.name, .path = {}, .ready = true, .fault = {}, .task = task});
    const auto files =
        m_own.isEmpty() ? QStringList() : QDir(m_own).entryList({u"*"_s + suffix}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        Entry entry{.name = file, .path = m_own + file, .fault = {}, .task = {}};
        if (auto task = readTaskFile(entry.path)) {
            entry.task = std::move(task).value();
            entry.name = entry.task.name;
        } else {
            entry.fault = task.failure().description;
        }
        m_entries.push_back(std::move(entry));
    }
    std::stable_sort(m_entries.begin() + std::ptrdiff_t(m_ready.size()), m_entries.end(),
                     [](const Entry &a, const Entry &b) { return a.name.localeAwareCompare(b.name) < 0; });
}

int TaskShelf::find(const QString &name) const {
    const auto found = std::ranges::find_if(
        m_entries, [&](const Entry &entry) { return entry.name == name && entry.fault.isEmpty(); });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

int TaskShelf::indexOfPath(const QString &path) const {
    return int(std::ranges::find(m_entries, path, &Entry::path) - m_entries.begin());
}

QString TaskShelf::freeName(const QString &name) const {
    QString free = name.left(longestName);
    for (int number = 2; find(free) >= 0; ++number) {
        const QString ending = u" (%1)"_s.arg(number);
        free = name.left(longestName - ending.size()) + ending;
    }
    return free;
}

QString TaskShelf::freePath(const QString &name) const {
    const QString stem = m_own + asFileName(name);
    QString path = stem + suffix;
    for (int number = 2; QFileInfo::exists(path) || QFileInfo(path).isSymLink(); ++number)
        path = stem + u" (%1)"_s.arg(number) + suffix;
    return path;
}

// The path is a copy, since an entry may own it.
platform::Result<int> TaskShelf::write(QString path, const Task &task) { // NOLINT(performance-unnecessary-value-param)
    if (const auto written = writeTaskFile(path, task); !written)
        return written.failure();
    refresh();
    return indexOfPath(path);
}

platform::Result<int> TaskShelf::add(Task task) {
    if (m_own.isEmpty())
        return platform::Failure{m_trouble};
    task.name = freeName(task.name);
    return write(freePath(task.name), task);
}

platform::Result<int> TaskShelf::import(const QString &path) {
    auto task = readTaskFile(path);
    if (!task)
        return task.failure();
    return add(std::move(task).value());
}

platform::Result<int> TaskShelf::save(int index, const Task &task) {
    Task named = task;
    named.name = m_entries.at(size_t(index)).name;
    return write(m_entries.at(size_t(index)).path, named);
}

platform::Result<int> TaskShelf::rename(int index, const QString &name) {
    const Entry &entry = m_entries.at(size_t(index));
    if (const QString fault = nameFault(name); !fault.isEmpty())
        return platform::Failure{u"名称"_s + fault};
    if (name != entry.name && find(name) >= 0)
        return platform::Failure{u"已经有任务“%1”"_s.arg(name)};
    Task renamed = entry.task;
    renamed.name = name;
    return write(entry.path, renamed);
}

platform::Status TaskShelf::remove(int index) {
    auto removed = platform::removeFile(m_entries.at(size_t(index)).path);
    refresh();
    return removed;
}

platform::Status TaskShelf::exportTo(int index, const QString &path) const {
    return platform::writeWholeFile(path, writtenTask(m_entries.at(size_t(index)).task));
}

TaskShelf openShelf(const platform::DeskState &state) {
    const auto folder = state.folderFor(platform::kept::tasks);
    return folder ? TaskShelf(readyTasks(), folder.value()) : TaskShelf(readyTasks(), {}, folder.failure().description);
}

} // namespace tasks
