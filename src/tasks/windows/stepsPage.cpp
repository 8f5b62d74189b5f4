#include "tasks/windows/stepsPage.h"
#include "tasks/stepTables.h"
#include "tasks/stepWords.h"
#include "tasks/taskFile.h"
#include "widgets/foldingRow.h"
#include "widgets/selectingEdit.h"
#include <QScopedValueRollback>
#include <QSplitter>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace tasks {

StepsPage::StepsPage(QWidget *parent)
    : QWidget(parent)
    , nameEdit(new widgets::SelectingEdit(u"nameEdit"_s, this))
    , descriptionEdit(new widgets::SelectingEdit(u"descriptionEdit"_s, this))
    , noteLabel(named(new QLabel(this), u"noteLabel"_s))
    , stepList(named(new QListWidget(this), u"stepList"_s, u"步骤"_s))
    , addButton(new Button(u"addButton"_s, u"&A 加一步"_s, this))
    , copyButton(new Button(u"copyStepButton"_s, u"&Y 抄一步"_s, this))
    , upButton(new Button(u"upButton"_s, u"&U 上移"_s, this))
    , downButton(new Button(u"downButton"_s, u"&W 下移"_s, this))
    , removeButton(new Button(u"removeButton"_s, u"&X 去掉"_s, this))
    , form(new StepForm(this)) {
    setObjectName(u"stepsPage"_s);
    layOut();
    connectControls();
}

void StepsPage::layOut() {
    nameEdit->setMaxLength(int(longestName));
    descriptionEdit->setMaxLength(int(longestValue));
    noteLabel->setWordWrap(true);
    stepList->setWordWrap(true);
    stepList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    stepList->setToolTip(u"空格：停用或启用这一步"_s);
    auto *nameLabel = widgets::naming(named(new QLabel(u"名称(&M):"_s, this), u"nameLabel"_s), nameEdit);
    auto *wordsLabel = widgets::naming(named(new QLabel(u"说明(&G):"_s, this), u"descriptionLabel"_s), descriptionEdit);
    auto *left = named(new QWidget, u"stepsSide"_s);
    left->setLayout(widgets::column({{stepList, 1},
                                     new widgets::FoldingRow({
                                         widgets::row({addButton, copyButton, removeButton}),
                                         widgets::row({upButton, downButton, widgets::stretch()}),
                                     })}));
    left->layout()->setContentsMargins(0, 0, 0, 0);
    auto *across = named(new QSplitter(Qt::Horizontal, this), u"stepsAcross"_s);
    across->addWidget(left);
    across->addWidget(form);
    across->setChildrenCollapsible(false);
    across->setStretchFactor(0, 1);
    across->setStretchFactor(1, 1);
    form->setMinimumWidth(16 * fontMetrics().height());
    setLayout(widgets::column(
        {widgets::row({nameLabel, {nameEdit, 1}, wordsLabel, {descriptionEdit, 2}}), noteLabel, {across, 1}}));
    layout()->setContentsMargins(0, 0, 0, 0);
}

void StepsPage::connectControls() {
    connect(nameEdit, &QLineEdit::editingFinished, this, [this] {
        if (m_mayChange && nameEdit->text() != m_task.name)
            Q_EMIT renamed(nameEdit->text());
    });
    connect(descriptionEdit, &QLineEdit::textEdited, this, [this](const QString &text) {
        m_task.description = text;
        Q_EMIT edited();
    });
    connect(stepList, &QListWidget::currentRowChanged, this, [this] {
        if (!m_filling)
            showStep();
    });
    connect(stepList, &QListWidget::itemChanged, this, [this](const QListWidgetItem *item) {
        if (m_filling || !m_mayChange)
            return;
        m_task.steps[size_t(stepList->row(item))].on = item->checkState() == Qt::Checked;
        Q_EMIT edited();
    });
    connect(form, &StepForm::edited, this, [this] {
        Step &step = m_task.steps[size_t(stepList->currentRow())];
        const bool on = step.on;
        step = form->step();
        step.on = on;
        dropUnused(step);
        showWords(stepList->currentRow());
        Q_EMIT edited();
    });
    connect(addButton, &Button::clicked, this, [this] {
        insert({});
        form->actionBox->setFocus();
    });
    connect(copyButton, &Button::clicked, this, [this] { insert(m_task.steps[size_t(stepList->currentRow())]); });
    connect(upButton, &Button::clicked, this, [this] { move(-1); });
    connect(downButton, &Button::clicked, this, [this] { move(1); });
    connect(removeButton, &Button::clicked, this, &StepsPage::remove);
}

void StepsPage::show(const Task &task, bool mayChange, const QString &fault) {
    m_task = task;
    m_mayChange = mayChange;
    nameEdit->setText(task.name);
    descriptionEdit->setText(task.description);
    descriptionEdit->setCursorPosition(0);
    nameEdit->setReadOnly(!mayChange);
    descriptionEdit->setReadOnly(!mayChange);
    m_fault = fault;
    list(0);
}

void StepsPage::list(int current) {
    {
        const QScopedValueRollback filling(m_filling, true);
        stepList->clear();
        for (size_t i = 0; i < m_task.steps.size(); ++i) {
            stepList->addItem(QString());
            showWords(int(i));
        }
        stepList->setCurrentRow(std::min(current, stepList->count() - 1));
    }
    showStep();
}

void StepsPage::showWords(int row) {
    const QScopedValueRollback filling(m_filling, true);
    const Step &step = m_task.steps[size_t(row)];
    QListWidgetItem *item = stepList->item(row);
    item->setText((checkStep(step) ? u"✕ "_s : QString()) + QString::number(row + 1) + u"　" + describe(step));
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    item->setFlags(m_mayChange ? flags | Qt::ItemIsUserCheckable : flags);
    item->setCheckState(step.on ? Qt::Checked : Qt::Unchecked);
}

void StepsPage::showStep() {
    const int row = stepList->currentRow();
    form->show(row < 0 ? std::nullopt : std::optional(m_task.steps[size_t(row)]), m_mayChange);
    allow();
}

void StepsPage::allow() {
    const int row = stepList->currentRow();
    addButton->setEnabled(m_mayChange && m_task.steps.size() < mostSteps);
    copyButton->setEnabled(addButton->isEnabled() && row >= 0);
    removeButton->setEnabled(m_mayChange && row >= 0);
    upButton->setEnabled(m_mayChange && row > 0);
    downButton->setEnabled(m_mayChange && row >= 0 && row < stepList->count() - 1);
    noteLabel->setText(!m_fault.isEmpty()     ? m_fault
                       : !m_mayChange         ? u"现成的任务不能改；要改，先“复制”一份。"_s
                       : m_task.steps.empty() ? u"这个任务还没有步骤，按“加一步”添加。"_s
                                              : QString());
    noteLabel->setVisible(!noteLabel->text().isEmpty());
}

// Inserts the step after the current one.
void StepsPage::insert(const Step &step) {
    const Step copy = step;
    const int row = stepList->currentRow() + 1;
    m_task.steps.insert(m_task.steps.begin() + row, copy);
    list(row);
    Q_EMIT edited();
}

void StepsPage::move(int by) {
    const int row = stepList->currentRow();
    std::swap(m_task.steps[size_t(row)], m_task.steps[size_t(row + by)]);
    list(row + by);
    Q_EMIT edited();
}

void StepsPage::remove() {
    const int row = stepList->currentRow();
    m_task.steps.erase(m_task.steps.begin() + row);
    list(row);
    if (!removeButton->isEnabled())
        addButton->setFocus();
    Q_EMIT edited();
}

QString StepsPage::fault() const {
    for (size_t i = 0; i < m_task.steps.size(); ++i)
        if (const auto fault = checkStep(m_task.steps[i]))
            return u"第%1步：%2"_s.arg(i + 1).arg(fault->reason);
    return {};
}

void StepsPage::goToFault() {
    for (size_t i = 0; i < m_task.steps.size(); ++i)
        if (const auto fault = checkStep(m_task.steps[i])) {
            stepList->setCurrentRow(int(i));
            if (QWidget *box = form->box(fault->inTest, fault->parameter))
                box->setFocus();
            return;
        }
}

} // namespace tasks
