#include "targets/windows/frmTargets.h"
#include "platform/fileFilters.h"
#include "targets/searchWords.h"
#include "targets/targetTest.h"
#include "widgets/foldingRow.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include "widgets/selectingEdit.h"
#include <QSplitter>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace targets {

namespace {
constexpr QStringView testedIsbn = u"978-7-02-000220-7"; // a book that most catalogues with Chinese books have
} // namespace

frmTargets::frmTargets(platform::Host &host, TargetShelf &shelf, QWidget *parent)
    : Window(u"frmTargets"_s, u"目标"_s, parent)
    , targetList(named(new QListWidget(this), u"targetList"_s, u"目标"_s))
    , form(new TargetForm(this))
    , isbnEdit(new widgets::SelectingEdit(u"isbnEdit"_s, this))
    , testLabel(named(new QLabel(this), u"testLabel"_s))
    , testButton(new Button(u"testButton"_s, u"&T 测试"_s, this))
    , stopButton(new Button(u"stopButton"_s, u"&S 停止"_s, this))
    , addButton(new Button(u"addButton"_s, u"&N 新建"_s, this))
    , copyButton(new Button(u"copyButton"_s, u"&C 复制"_s, this))
    , deleteButton(new Button(u"deleteButton"_s, u"&D 删除"_s, this))
    , upButton(new Button(u"upButton"_s, u"&U 上移"_s, this))
    , downButton(new Button(u"downButton"_s, u"&W 下移"_s, this))
    , importButton(new Button(u"importButton"_s, u"&I 导入…"_s, this))
    , exportButton(new Button(u"exportButton"_s, u"&O 导出…"_s, this))
    , quitButton(new Button(u"quitButton"_s, u"&Q 退出"_s, this))
    , m_host(host)
    , m_shelf(shelf) {
    layOut();
    connectControls();
    widgets::rememberPlace(this, host.remembered());
    list(0);
    if (!shelf.complaint().isEmpty())
        testLabel->setText(u"目标的文件不能用，改好它或者移开它以前，这里什么也存不下：\n"_s + shelf.complaint());
}

frmTargets::~frmTargets() = default;

void frmTargets::layOut() {
    testButton->markPrimary();
    isbnEdit->setText(testedIsbn.toString());
    testLabel->setWordWrap(true);
    testLabel->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *isbnLabel = widgets::naming(named(new QLabel(u"测试时查的 ISBN(&F):"_s, this), u"isbnLabel"_s), isbnEdit);
    auto *across = named(new QSplitter(Qt::Horizontal, this), u"targetsAcross"_s);
    across->addWidget(targetList);
    across->addWidget(form);
    across->setStretchFactor(1, 1);
    across->setChildrenCollapsible(false);
    const int line = fontMetrics().lineSpacing();
    targetList->setMinimumWidth(8 * line);
    form->setMinimumSize(14 * line, 6 * line);
    across->setSizes({16 * line, 26 * line});
    widgets::hint({{targetList, u"批量查 ISBN 时，照这里的顺序问"},
                   {testButton, u"连接它，查一个 ISBN，把它答的话写在下面"},
                   {copyButton, u"照这个目标另做一个"},
                   {importButton, u"取入别人导出的目标；地址相同的不重复加"},
                   {exportButton, u"把全部目标存成文件，里面没有密码"}});
    setLayout(widgets::column(
        {{across, 1},
         widgets::row({isbnLabel, {isbnEdit, 1}, testButton, stopButton}),
         testLabel,
         widgets::hairline(this),
         new widgets::FoldingRow({widgets::row({addButton, copyButton, deleteButton, upButton, downButton}),
                                  widgets::row({widgets::stretch(), importButton, exportButton, quitButton})})}));
    resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 34);
    widgets::tabInReadingOrder(this);
    targetList->setFocus();
}

void frmTargets::connectControls() {
    connect(targetList, &QListWidget::currentRowChanged, this, &frmTargets::choose);
    connect(form, &TargetForm::edited, this, [this] { form->showFault(std::nullopt); });
    connect(testButton, &Button::clicked, this, &frmTargets::test);
    connect(stopButton, &Button::clicked, this, [this] {
        m_test->stop();
        endTest(false, u"已停止"_s);
    });
    connect(addButton, &Button::clicked, this, [this] {
        if (settle())
            take(m_shelf.add({.name = u"新目标"_s, .host = u"127.0.0.1"_s}));
    });
    connect(copyButton, &Button::clicked, this, [this] {
        if (settle())
            take(m_shelf.copy(m_current));
    });
    connect(deleteButton, &Button::clicked, this, &frmTargets::remove);
    const auto move = [this](int by) {
        if (!settle())
            return;
        if (const auto moved = m_shelf.move(m_current, by); moved)
            list(moved.value());
        else
            m_host.tell(moved.failure().description);
    };
    connect(upButton, &Button::clicked, this, [move] { move(-1); });
    connect(downButton, &Button::clicked, this, [move] { move(1); });
    connect(importButton, &Button::clicked, this, &frmTargets::importTargets);
    connect(exportButton, &Button::clicked, this, &frmTargets::exportTargets);
    connect(quitButton, &Button::clicked, this, &frmTargets::unload);
}

bool frmTargets::isTesting() const {
    return m_test && m_test->isActive();
}

// Fills the list again, after the shelf has changed.
void frmTargets::list(int current) {
    const QSignalBlocker quiet(targetList);
    targetList->clear();
    for (const Target &target : m_shelf.list())
        targetList->addItem(captionOf(target));
    m_current = std::min(current, m_shelf.count() - 1);
    targetList->setCurrentRow(m_current);
    form->show(m_current < 0 ? std::nullopt : std::optional(m_shelf.at(m_current)));
    allow();
}

void frmTargets::choose(int row) {
    if (row == m_current)
        return;
    if (!settle()) {
        const QSignalBlocker quiet(targetList);
        targetList->setCurrentRow(m_current);
        return;
    }
    testLabel->clear();
    list(row);
}

void frmTargets::allow() {
    const bool testing = isTesting(), any = m_current >= 0;
    targetList->setEnabled(!testing);
    form->lock(testing);
    testButton->setEnabled(!testing && any);
    stopButton->setEnabled(testing);
    for (Button *button : {copyButton, deleteButton})
        button->setEnabled(!testing && any);
    upButton->setEnabled(!testing && m_current > 0);
    downButton->setEnabled(!testing && any && m_current < m_shelf.count() - 1);
    for (Button *button : {addButton, importButton})
        button->setEnabled(!testing);
    exportButton->setEnabled(!testing && any);
}

// Stores the changes in the form. If they cannot be stored, asks whether to discard them. Returns false if the user
// keeps them.
bool frmTargets::settle() {
    if (m_current < 0 || !form->isChanged())
        return true;
    const Target target = form->target();
    const auto fault = m_shelf.faultAt(m_current, target);
    QString reason = fault ? fault->reason : QString();
    if (!fault) {
        if (const platform::Status stored = m_shelf.set(m_current, target); stored) {
            list(m_current);
            return true;
        } else {
            reason = stored.failure().description;
        }
    }
    if (m_host.ask(reason + u"\r\n这个目标的改动没有存下。不要这些改动了吗？", platform::hintTitle,
                   platform::Answer::No)) {
        form->show(m_shelf.at(m_current));
        return true;
    }
    form->showFault(fault);
    return false;
}

void frmTargets::take(const platform::Result<int> &index) {
    if (!index)
        return m_host.tell(index.failure().description);
    list(index.value());
    form->setFocus();
}

void frmTargets::test() {
    if (!settle())
        return;
    m_test = std::make_unique<TargetTest>(m_shelf.at(m_current), isbnEdit->text().trimmed());
    connect(m_test.get(), &TargetTest::finished, this, &frmTargets::endTest);
    testLabel->setText(u"正在连接 "_s + addressOf(m_shelf.at(m_current)) + u"…");
    m_test->start();
    allow();
    stopButton->setFocus();
}

void frmTargets::endTest(bool answered, const QString &words) {
    testLabel->setText(words);
    if (answered && !m_shelf.at(m_current).tested) {
        if (const platform::Status kept = m_shelf.markTested(m_current); !kept)
            testLabel->setText(words + u'\n' + kept.failure().description);
        list(m_current);
    }
    allow();
    testButton->setFocus();
}

void frmTargets::remove() {
    if (!m_host.ask(u"确实要删除目标“"_s + m_shelf.at(m_current).name + u"”吗？", platform::hintTitle,
                    platform::Answer::No))
        return;
    if (const platform::Status removed = m_shelf.remove(m_current); !removed)
        m_host.tell(removed.failure().description);
    list(m_current);
}

void frmTargets::importTargets() {
    if (!settle())
        return;
    const QString path = m_host.chooseFile({.title = u"导入目标"_s, .filter = platform::filters::targets.toString()});
    if (path.isEmpty())
        return;
    const auto added = m_shelf.import(path);
    if (!added)
        return m_host.tell(added.failure().description);
    m_host.tell(u"加了 %1 个目标；地址相同的没有再加。"_s.arg(added.value()));
    list(added.value() > 0 ? m_shelf.count() - added.value() : m_current);
}

void frmTargets::exportTargets() {
    if (!settle())
        return;
    const QString path =
        m_host.chooseFileToWrite({.title = u"导出目标"_s, .filter = platform::filters::targets.toString()}, u".json");
    if (path.isEmpty())
        return;
    if (const platform::Status written = m_shelf.exportTo(path); !written)
        m_host.tell(u"导出失败：【"_s + written.failure().description + u"】");
}

bool frmTargets::queryUnload() {
    if (isTesting())
        m_test->stop();
    return settle();
}

} // namespace targets
