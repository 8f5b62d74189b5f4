// The form of one step: its condition and its action, and a box for each of their parameters. The boxes come from
// stepTables.h. The fault of a value is shown below its box.
#pragma once

#include "tasks/stepCheck.h"
#include "tasks/task.h"
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QScrollArea>
#include <map>
#include <optional>
#include <span>

namespace tasks {

struct Use;

class StepForm final : public QScrollArea {
    Q_OBJECT
public:
    explicit StepForm(QWidget *parent = nullptr);

    // Shows a step; std::nullopt shows an empty form.
    void show(const std::optional<Step> &step, bool mayChange);
    const Step &step() const { return m_step; }

    QComboBox *testBox;
    QComboBox *actionBox;
    // Returns the box of a parameter; null if the chosen test or action does not have it.
    QWidget *box(bool ofTest, Parameter parameter) const;
    QString faultText() const; // shown at a box; empty if the step can be used

Q_SIGNALS:
    void edited(); // by the user

private:
    struct Row {
        QWidget *box;
        QLabel *fault;
    };
    using Rows = std::map<Parameter, Row>;
    void build();
    void fill(QFormLayout *layout, Rows &rows, bool ofTest);
    QWidget *makeBox(const Use &use, QString &value);
    void take();
    void showFault();

    QFormLayout *m_testLayout;
    QFormLayout *m_actionLayout;
    Rows m_testRows;
    Rows m_actionRows;
    Step m_step;
    std::optional<StepFault> m_fault;
    bool m_mayChange = false;
};

} // namespace tasks
