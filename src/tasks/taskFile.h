// Tasks as files, one JSON file each; see docs/handbook/tasks.md for the language.
#pragma once

#include "platform/result.h"
#include "tasks/task.h"
#include <QByteArray>

namespace tasks {

inline constexpr qint64 largestTask = 4 * 1024 * 1024; // bytes
inline constexpr qsizetype longestName = 100;          // characters

// Fails with the key and the reason if the text is not JSON, if a key is unknown or missing, if a value has the wrong
// type, or if a step cannot be run.
platform::Result<Task> readTask(const QByteArray &json);
// Returns the text of a task: one line per step, the keys in the order of stepTables.h. readTask() of it returns an
// equal task if the task is valid.
QByteArray writtenTask(const Task &task);

// The same for files. Failures name the file; on a failed write an existing file stays unchanged.
platform::Result<Task> readTaskFile(const QString &path);
platform::Status writeTaskFile(const QString &path, const Task &task);

// Returns the fault of a task's name; an empty text if it has none.
QString nameFault(const QString &name);

} // namespace tasks
