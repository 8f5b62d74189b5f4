// Chooses a task of the shelf, and makes, copies, deletes, imports and exports tasks. Ready tasks and invalid files
// cannot be changed.
#pragma once

#include "platform/host.h"
#include "tasks/taskShelf.h"
#include "widgets/button.h"
#include <QComboBox>
#include <QWidget>

namespace tasks {

class TaskBar final : public QWidget {
    Q_OBJECT
public:
    explicit TaskBar(platform::Host &host, QWidget *parent = nullptr);

    const TaskShelf::Entry *entry() const; // the chosen one; null if the shelf is empty
    // Stores the steps and the description of the chosen task, one of the user's. Reports a failure. Returns whether it
    // was stored.
    bool store(const Task &task);
    void rename(const QString &name); // likewise

    QComboBox *taskBox;
    widgets::Button *newButton;
    widgets::Button *copyButton;
    widgets::Button *deleteButton;
    widgets::Button *importButton;
    widgets::Button *exportButton;

    // Called before another task is chosen, to store the edits. If it returns false, the task stays.
    void setGuard(std::function<bool()> mayLeave) { m_mayLeave = std::move(mayLeave); }

Q_SIGNALS:
    void chosen(); // another task, or the same one with another name

private:
    void list(int current);
    void choose(int index);
    void take(const platform::Result<int> &index);
    void remove();
    void import();
    void exportTask();

    platform::Host &m_host;
    TaskShelf m_shelf;
    std::function<bool()> m_mayLeave = [] { return true; };
    int m_chosen = -1;
};

} // namespace tasks
