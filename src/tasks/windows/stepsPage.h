// The steps of a task: as a list of sentences, each of which can be switched off, and the form of the current one.
#pragma once

#include "tasks/windows/stepForm.h"
#include "widgets/button.h"
#include <QLineEdit>
#include <QListWidget>
#include <QWidget>

namespace tasks {

class StepsPage final : public QWidget {
    Q_OBJECT
public:
    explicit StepsPage(QWidget *parent = nullptr);

    // Shows a task, or, instead of its steps, the fault of its file.
    void show(const Task &task, bool mayChange, const QString &fault = {});
    const Task &task() const { return m_task; }
    // Returns why the task cannot be run, with the number of the step; empty if it can.
    QString fault() const;
    // Makes the first step that cannot be run current.
    void goToFault();

    QLineEdit *nameEdit;
    QLineEdit *descriptionEdit;
    QLabel *noteLabel; // why nothing can be changed, or what must be done first
    QListWidget *stepList;
    widgets::Button *addButton;
    widgets::Button *copyButton;
    widgets::Button *upButton;
    widgets::Button *downButton;
    widgets::Button *removeButton;
    StepForm *form;

Q_SIGNALS:
    void edited(); // steps or description, by the user
    void renamed(const QString &name);

private:
    void layOut();
    void connectControls();
    void list(int current);
    void showWords(int row);
    void showStep();
    void insert(const Step &step);
    void move(int by);
    void remove();
    void allow();

    Task m_task;
    QString m_fault; // of the file of the task
    bool m_mayChange = false;
    bool m_filling = false;
};

} // namespace tasks
