#include "tasks/readyTasks.h"
#include "tasks/taskFile.h"
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace tasks {

std::vector<Task> readyTasks() {
    std::vector<Task> tasks;
    const QDir folder(u":/tasks/ready"_s);
    for (const QString &name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        auto task = readTask(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        Q_ASSERT(task);
        if (task)
            tasks.push_back(std::move(task).value());
    }
    return tasks;
}

} // namespace tasks
