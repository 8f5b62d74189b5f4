#include "tasks/windows/taskBar.h"
#include "platform/fileFilters.h"
#include "widgets/layout.h"

using namespace Qt::StringLiterals;
using widgets::Button;

namespace tasks {

namespace {

QString captionOf(const TaskShelf::Entry &entry) {
    return entry.name + (entry.ready ? u"（现成）"_s : entry.fault.isEmpty() ? u""_s : u"（不能用）"_s);
}

} // namespace

TaskBar::TaskBar(platform::Host &host, QWidget *parent)
    : QWidget(parent)
    , taskBox(widgets::named(new QComboBox(this), u"taskBox"_s))
    , newButton(new Button(u"newButton"_s, u"&N 新建"_s, this))
    , copyButton(new Button(u"copyButton"_s, u"&C 复制"_s, this))
    , deleteButton(new Button(u"deleteButton"_s, u"&D 删除"_s, this))
    , importButton(new Button(u"importButton"_s, u"&I 导入…"_s, this))
    , exportButton(new Button(u"exportButton"_s, u"&O 导出…"_s, this))
    , m_host(host)
    , m_shelf(openShelf(host.remembered())) {
    setObjectName(u"taskBar"_s);
    auto *label = widgets::naming(widgets::named(new QLabel(u"任务(&T):"_s, this), u"taskLabel"_s), taskBox);
    taskBox->setMinimumContentsLength(12);
    taskBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setLayout(widgets::row({label, {taskBox, 1}, newButton, copyButton, deleteButton, importButton, exportButton}));
    layout()->setContentsMargins(0, 0, 0, 0);
    setFocusProxy(taskBox);
    widgets::hint({{taskBox, u"现成的任务不能改，复制一份再改"},
                   {copyButton, u"照这个任务另做一个，可以随意改"},
                   {importButton, u"取入别人导出的任务文件"},
                   {exportButton, u"把这个任务存成文件，交给别人"}});
    connect(taskBox, &QComboBox::activated, this, [this](int index) {
        if (index != m_chosen && !m_mayLeave())
            taskBox->setCurrentIndex(m_chosen);
        else
            choose(index);
    });
    connect(newButton, &Button::clicked, this, [this] {
        if (m_mayLeave())
            take(m_shelf.add({.name = u"新任务"_s, .description = {}, .steps = {}}));
    });
    connect(copyButton, &Button::clicked, this, [this] {
        if (m_mayLeave())
            take(m_shelf.add(entry()->task));
    });
    connect(deleteButton, &Button::clicked, this, &TaskBar::remove);
    connect(importButton, &Button::clicked, this, &TaskBar::import);
    connect(exportButton, &Button::clicked, this, &TaskBar::exportTask);
    list(0);
}

const TaskShelf::Entry *TaskBar::entry() const {
    const auto &entries = m_shelf.entries();
    return m_chosen >= 0 && size_t(m_chosen) < entries.size() ? &entries[size_t(m_chosen)] : nullptr;
}

// Fills the box again, after the shelf has changed.
void TaskBar::list(int current) {
    taskBox->clear();
    for (const TaskShelf::Entry &entry : m_shelf.entries())
        taskBox->addItem(captionOf(entry));
    taskBox->setCurrentIndex(current);
    choose(current);
}

void TaskBar::choose(int index) {
    m_chosen = index;
    const TaskShelf::Entry *now = entry();
    const bool usable = now && now->fault.isEmpty();
    copyButton->setEnabled(usable);
    exportButton->setEnabled(usable);
    deleteButton->setEnabled(now && !now->ready);
    Q_EMIT chosen();
}

void TaskBar::take(const platform::Result<int> &index) {
    if (index)
        list(index.value());
    else
        m_host.tell(index.failure().description);
}

bool TaskBar::store(const Task &task) {
    const auto stored = m_shelf.save(m_chosen, task);
    if (!stored)
        m_host.tell(u"任务没有存下："_s + stored.failure().description);
    return stored.ok();
}

void TaskBar::rename(const QString &name) {
    if (name != entry()->name)
        take(m_shelf.rename(m_chosen, name));
}

void TaskBar::remove() {
    if (!m_host.ask(u"确实要删除任务“"_s + entry()->name + u"”吗？", platform::hintTitle, platform::Answer::No))
        return;
    if (const auto removed = m_shelf.remove(m_chosen); !removed)
        m_host.tell(removed.failure().description);
    list(0);
}

void TaskBar::import() {
    if (!m_mayLeave())
        return;
    const QString path = m_host.chooseFile({.title = u"导入任务"_s, .filter = platform::filters::tasks.toString()});
    if (!path.isEmpty())
        take(m_shelf.import(path));
}

void TaskBar::exportTask() {
    if (!m_mayLeave())
        return;
    const QString path =
        m_host.chooseFileToWrite({.title = u"导出任务"_s, .filter = platform::filters::tasks.toString()}, u".json");
    if (path.isEmpty())
        return;
    if (const auto written = m_shelf.exportTo(m_chosen, path); !written)
        m_host.tell(u"导出失败：【"_s + written.failure().description + u"】");
}

} // namespace tasks
