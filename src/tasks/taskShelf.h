// The tasks that a user can choose: the ready ones, which are read-only, and those of the user, one file each in a
// folder. A file that is not a valid task is listed with the reason and never overwritten. Names of tasks are unique on
// the shelf, unless files were put into the folder by other means.
#pragma once

#include "platform/deskState.h"
#include "platform/result.h"
#include "tasks/task.h"
#include <vector>

namespace tasks {

class TaskShelf {
public:
    struct Entry {
        QString name; // the name of the file if it cannot be used
        QString path; // empty for a ready one
        bool ready = false;
        QString fault; // why the file cannot be used; empty if it can be
        Task task;     // as read from the file
    };

    // `own` is the user's folder and ends with a separator. If it is empty, no task can be stored; `trouble` is the
    // reason.
    TaskShelf(std::vector<Task> ready, QString own, QString trouble = {});

    // Reads the folder again. The ready tasks come first, then the user's by name.
    void refresh();
    const std::vector<Entry> &entries() const { return m_entries; }
    int find(const QString &name) const; // a usable task; -1: none

    // Each returns the index of the task that was written, among the new entries().
    platform::Result<int> add(Task task);                    // under its name or, if that is taken, a free one
    platform::Result<int> import(const QString &path);       // likewise
    platform::Result<int> save(int index, const Task &task); // a usable one of the user's; the name does not change
    platform::Result<int> rename(int index, const QString &name);
    platform::Status remove(int index); // one of the user's, usable or not
    platform::Status exportTo(int index, const QString &path) const;

    QString freeName(const QString &name) const;

private:
    int indexOfPath(const QString &path) const;
    QString freePath(const QString &name) const;
    platform::Result<int> write(QString path, const Task &task);

    std::vector<Task> m_ready;
    QString m_own;
    QString m_trouble;
    std::vector<Entry> m_entries;
};

// The shelf of the user who runs the program.
TaskShelf openShelf(const platform::DeskState &state);

} // namespace tasks
