#include "tasks/windows/frmTasks.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace tasks {

namespace {
constexpr std::chrono::milliseconds pace(400);
constexpr QStringView noList = u"打开机读目录文件以后，在工作窗口按 F9，就能预览和执行；整个文件用“整理”。";
} // namespace

frmTasks::frmTasks(platform::Host &host, ListDesk desk, QWidget *parent)
    : Window(u"frmTasks"_s, u"批量修改"_s, parent)
    , taskBar(new TaskBar(host, this))
    , pages(named(new QStackedWidget(this), u"pages"_s))
    , stepsPage(new StepsPage)
    , previewPage(new PreviewPage)
    , reportText(named(new widgets::TextBox(u"reportText"_s), u"reportText"_s, u"结果"_s))
    , labJinDu(new widgets::PacedLabel(u"labJinDu"_s, {}, this))
    , stepsButton(new Button(u"stepsButton"_s, u"&B 步骤"_s, this))
    , previewButton(new Button(u"previewButton"_s, u"&V 预览"_s, this))
    , runButton(new Button(u"runButton"_s, u"&E 执行"_s, this))
    , undoButton(new Button(u"undoButton"_s, u"&Z 撤销整批"_s, this))
    , stopButton(new Button(u"stopButton"_s, u"&S 停止"_s, this))
    , quitButton(new Button(u"quitButton"_s, u"&Q 退出"_s, this))
    , m_host(host)
    , m_work(host, std::move(desk)) {
    m_pace.setSingleShot(true);
    m_pace.setInterval(pace);
    runButton->markPrimary();
    layOut();
    connectControls();
    widgets::rememberPlace(this, host.remembered());
    showTask();
    prepare();
}

void frmTasks::layOut() {
    reportText->lock();
    for (QWidget *page : std::initializer_list<QWidget *>{stepsPage, previewPage, reportText})
        pages->addWidget(page);
    offerScopes();
    widgets::hint({{stepsButton, u"回到任务的步骤"},
                   {previewButton, u"列出这个任务会改什么；记录还不改"},
                   {runButton, u"照预览改这些记录；可以整批撤销"},
                   {undoButton, u"把上一次执行改过的记录恢复成原来的样子"},
                   {stopButton, u"停在这里，已经做了的留下"}});
    setLayout(widgets::column({taskBar,
                               widgets::hairline(this),
                               {pages, 1},
                               labJinDu,
                               widgets::row({widgets::stretch(), stepsButton, previewButton, runButton, undoButton,
                                             stopButton, quitButton})}));
    const int line = fontMetrics().height();
    resize(56 * line, 40 * line); // fits the preview; a small screen limits it
    widgets::tabInReadingOrder(this);
}

void frmTasks::offerScopes() {
    const auto scopes = std::to_array<QStringView>({u"读出的全部记录", u"题名列表里列出的", u"校对有问题的"});
    for (const QStringView scope : scopes)
        previewPage->scopeBox->addItem(scope.toString());
}

void frmTasks::connectControls() {
    taskBar->setGuard([this] { return mayLeaveTask(); });
    connect(taskBar, &TaskBar::chosen, this, &frmTasks::showTask);
    connect(stepsPage, &StepsPage::edited, this, [this] {
        m_unsaved = true;
        m_pace.start();
        allow();
    });
    connect(stepsPage, &StepsPage::renamed, this, [this](const QString &name) {
        store();
        taskBar->rename(name);
        showTask();
    });
    connect(&m_pace, &QTimer::timeout, this, [this] {
        if (stepsPage->fault().isEmpty())
            store();
    });
    connect(stepsButton, &Button::clicked, this, [this] { turnTo(stepsPage); });
    connect(previewButton, &Button::clicked, this, &frmTasks::preview);
    connect(previewPage->scopeBox, &QComboBox::activated, this, &frmTasks::preview);
    connect(previewPage, &PreviewPage::leftOut, this, &frmTasks::sayAll);
    connect(previewPage, &PreviewPage::activated, this, &frmTasks::jump);
    connect(runButton, &Button::clicked, this, &frmTasks::run);
    connect(undoButton, &Button::clicked, this, &frmTasks::undo);
    connect(stopButton, &Button::clicked, &m_work, &ListWork::stop);
    connect(quitButton, &Button::clicked, this, &frmTasks::unload);
    connect(&m_work, &ListWork::ended, this, &frmTasks::finish);
    connect(&m_work, &ListWork::progressed, this, [this] {
        labJinDu->setPacedText(m_work.progress());
        if (m_work.kind() == ListWork::Kind::Preview)
            previewPage->grow();
    });
}

void frmTasks::prepare() {
    if (!m_work.changes() || !m_work.changes()->isCurrent())
        turnTo(stepsPage);
    allow();
    taskBar->setFocus();
}

void frmTasks::showTask() {
    m_unsaved = false;
    const TaskShelf::Entry *entry = taskBar->entry();
    stepsPage->show(entry ? entry->task : Task(), entry && !entry->ready && entry->fault.isEmpty(),
                    entry ? entry->fault : QString());
    turnTo(stepsPage);
}

void frmTasks::turnTo(QWidget *page) {
    if (page == stepsPage) {
        m_work.forget();
        previewPage->clear();
        labJinDu->setText(m_work.desk().records ? QString() : noList.toString());
    }
    pages->setCurrentWidget(page);
    allow();
}

void frmTasks::allow() {
    const bool busy = m_work.isBusy(), hasList = m_work.desk().records != nullptr;
    const bool atSteps = pages->currentWidget() == stepsPage, atPreview = pages->currentWidget() == previewPage;
    taskBar->setEnabled(!busy);
    stepsPage->setEnabled(!busy);
    previewPage->scopeBox->setEnabled(!busy);
    previewPage->allow(!busy);
    stepsButton->setVisible(!atSteps);
    stepsButton->setEnabled(!busy);
    previewButton->setVisible(atSteps);
    previewButton->setEnabled(!busy && hasList && !stepsPage->task().steps.empty());
    runButton->setVisible(atPreview);
    runButton->setEnabled(!busy && m_work.changes() && m_work.changes()->all().changes > 0);
    undoButton->setVisible(hasList);
    undoButton->setEnabled(!busy && m_work.history().canUndo());
    stopButton->setVisible(hasList);
    stopButton->setEnabled(busy);
}

// Stores the edits, unless the steps cannot be run: the file then stays unchanged.
bool frmTasks::store() {
    m_pace.stop();
    if (!m_unsaved)
        return true;
    if (!stepsPage->fault().isEmpty())
        return false;
    m_unsaved = !taskBar->store(stepsPage->task());
    return !m_unsaved;
}

void frmTasks::preview() {
    if (const QString fault = stepsPage->fault(); !fault.isEmpty()) {
        m_host.tell(fault);
        return stepsPage->goToFault();
    }
    store();
    const auto scope = Scope(previewPage->scopeBox->currentIndex());
    if (const auto begun = m_work.preview(stepsPage->task(), scope); !begun)
        return m_host.tell(begun.failure().description);
    previewPage->begin(m_work.changes(), m_work.steps());
    turnTo(previewPage);
    labJinDu->setPacedText(m_work.progress());
    stopButton->setFocus();
}

void frmTasks::run() {
    m_work.run();
    previewPage->clear(); // its changes are computed from the records that are being changed
    allow();
    stopButton->setFocus();
}

void frmTasks::undo() {
    m_work.undo();
    previewPage->clear();
    allow();
    stopButton->setFocus();
}

void frmTasks::finish(const QString &report, bool stopped) {
    if (report.isEmpty()) {
        previewPage->settle();
        sayAll();
        if (stopped)
            labJinDu->setText(u"停下了，只看了前 %1 条；"_s.arg(m_work.changes()->looked()) + labJinDu->text());
        allow();
        previewPage->grid->setFocus();
    } else {
        reportText->setText(report);
        labJinDu->setText(report.section(u"\r\n"_s, 0, 0));
        turnTo(reportText);
        reportText->setFocus();
    }
}

// Sums up the preview, without the changes that the user has left out.
void frmTasks::sayAll() {
    const ChangePreview &preview = *m_work.changes();
    const ChangePreview::Count all = preview.all();
    const int refused = preview.counts()[preview.refusedAt()].records;
    const QString words =
        all.changes == 0
            ? u"没有什么要改的"_s
            : u"会改 %1 条记录，共 %2 处。改过的记录重新生成 001，可以整批撤销"_s.arg(all.records).arg(all.changes);
    labJinDu->setText(words + (refused > 0 ? u"。%1 条改不成，原因见左边"_s.arg(refused) : QString()));
    runButton->setEnabled(!m_work.isBusy() && all.changes > 0);
}

void frmTasks::jump() {
    if (m_work.isBusy() || !m_work.desk().jump)
        return;
    const marc::FieldPlace place = m_work.placeOf(previewPage->currentRecord(), previewPage->current());
    unload();
    m_work.desk().jump(place);
}

bool frmTasks::queryUnload() {
    if (m_work.isBusy() && !m_host.ask(u"还没有做完，确实要停下退出吗？"_s, platform::hintTitle, platform::Answer::No))
        return false;
    m_work.stop();
    return mayLeaveTask();
}

// Stores the edits. If the steps cannot be run, asks whether to discard them.
bool frmTasks::mayLeaveTask() {
    if (store())
        return true;
    const QString fault = stepsPage->fault();
    const bool discards =
        m_host.ask((fault.isEmpty() ? QString() : fault + u"\r\n") + u"这个任务的改动没有存下。不要这些改动了吗？",
                   platform::hintTitle, platform::Answer::No);
    if (discards)
        showTask();
    else
        stepsPage->goToFault();
    return discards;
}

} // namespace tasks
