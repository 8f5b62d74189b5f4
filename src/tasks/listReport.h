// Texts about a task that was carried out on the list, or undone.
#pragma once

#include "tasks/listHistory.h"
#include <QStringList>

namespace tasks {

// `steps` are the steps of the task in words. `stopped`: by the user.
QString runReport(const ChangePreview &preview, const ListHistory &history, const QString &task,
                  const QStringList &steps, bool stopped);
// `kept` are the rows that were not restored.
QString undoReport(const QString &task, int undone, const std::vector<int> &kept, bool stopped);
// Returns the question whether to undo the last run although these records were changed since.
QString undoQuestion(const std::vector<int> &changedSince);

} // namespace tasks
