#include "batch/windows/remarkTable.h"
#include "batch/windows/remarkDelegate.h"
#include "batch/windows/silenceMenu.h"
#include "platform/fileFilters.h"
#include "widgets/layout.h"
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace batch {

namespace {

constexpr int shownLines = 3; // minimum height of the table, with the heading
constexpr int textLines = 2;  // of the current remark

// Two paragraphs: what is wrong, and what the rule demands.
QString fullText(const RuleBook &rules, const Remark &remark) {
    const QString explanation = rules.explanationOf(remark);
    return rules.wordsOf(remark) + (explanation.isEmpty() ? QString() : QString(u'\n' + explanation));
}

// Says why no remark is shown although there are some: a filter always leaves at least one.
QString emptyText(const RemarkList &list) {
    const int silenced = list.silencedCount();
    return silenced > 0 ? u"发现的 %1 处都不再提示。按“Y 不再提示”，可以恢复。"_s.arg(silenced) : QString();
}

} // namespace

RemarkTable::RemarkTable(const QString &objectName, platform::Host &host, Reminders *reminders, QWidget *parent)
    : QWidget(parent)
    , filterBar(new RemarkFilterBar(this))
    , silenceButton(new Button(u"silenceButton"_s, u"&Y 不再提示"_s, this))
    , words(new widgets::PacedLabel(u"words"_s, {}, this))
    , grid(new widgets::FlexGrid(u"grid"_s, RemarkList().columnCount(), 1, this))
    , remarkText(named(new QPlainTextEdit(this), u"remarkText"_s, u"当前结果的全文和说明"_s))
    , copyButton(new Button(u"copyButton"_s, u"&C 复制"_s, this))
    , saveButton(new Button(u"saveButton"_s, u"&O 另存为…"_s, this))
    , m_host(host)
    , m_reminders(reminders)
    , m_above(widgets::row({}))
    , m_below(widgets::row({})) {
    setObjectName(objectName);
    setFocusProxy(grid);
    layOut();
    widgets::hint({{grid, u"回车或双击：到这条记录、这个字段；F4 下一处"},
                   {silenceButton, u"不再列出这一类；已经不再提示的类也在这里恢复"},
                   {copyButton, u"复制列出的全部结果"},
                   {saveButton, u"把列出的结果存为文本表格"}});
    connectControls();
    begin(RemarkList());
}

void RemarkTable::layOut() {
    grid->setFormat(RemarkList::headings.toString());
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->setItemDelegate(new RemarkDelegate(m_list, grid));
    remarkText->setReadOnly(true);
    remarkText->setFrameShape(QFrame::NoFrame);
    remarkText->document()->setDocumentMargin(0);
    remarkText->viewport()->setAutoFillBackground(false);
    m_above->addWidget(words, 1);
    m_below->addWidget(remarkText, 1);
    for (Button *button : {copyButton, saveButton})
        m_below->addWidget(button, 0, Qt::AlignTop);
    silenceButton->setVisible(m_reminders);
    setLayout(widgets::column({widgets::row({{filterBar, 1}, silenceButton}), m_above, {grid, 1}, m_below}));
    layout()->setContentsMargins(0, 0, 0, 0);
    fitWidths();
}

void RemarkTable::connectControls() {
    connect(words, &widgets::PacedLabel::aboutToShow, this, [this] {
        showChoices();
        showRow();
    });
    connect(filterBar, &RemarkFilterBar::chosen, this, &RemarkTable::filter);
    connect(grid, &widgets::FlexGrid::enterCell, this, [this] {
        m_rowChosen = m_rowVisited = true;
        showRow();
    });
    connect(grid, &widgets::FlexGrid::gridActivated, this, &RemarkTable::activateRow);
    connect(copyButton, &Button::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_list->tabSeparated(u"\n")); });
    connect(saveButton, &Button::clicked, this, [this] {
        save({u"另存为"_s, platform::filters::remarks.toString(), u".tsv"},
             [this](const QString &path) { return saveRemarks(path, *m_list); });
    });
    if (!m_reminders)
        return;
    connect(m_reminders, &Reminders::changed, this, &RemarkTable::silence);
    connect(silenceButton, &Button::clicked, this,
            [this] { openMenu(silenceButton->mapToGlobal(silenceButton->rect().bottomLeft())); });
    connect(grid, &widgets::FlexGrid::rightPressed, this, [this] {
        const QPoint where = QCursor::pos();
        if (const int row = grid->rowAt(grid->viewport()->mapFromGlobal(where).y()); row >= 0)
            grid->clickRow(row + 1);
        openMenu(where);
    });
    connect(grid, &widgets::FlexGrid::menuKeyPressed, this,
            [this] { openMenu(grid->parentWidget()->mapToGlobal(grid->cellRect(grid->row(), 1).bottomLeft())); });
}

// Sets the widths in characters of the current font.
void RemarkTable::fitWidths() {
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({5, 8, 3, 4, 8, 12});
    for (int column = 0; const int wide : characters)
        grid->setColumnTwips(column++, grid->toTwips(character * wide));
    // A line of Chinese may be higher than the font's own if another font supplies the characters.
    const QRect line = fontMetrics().boundingRect(u"书"_s);
    const int lineHeight = std::max(fontMetrics().lineSpacing(), line.height());
    remarkText->setFixedHeight(textLines * lineHeight + lineHeight / 2);
    grid->setMinimumHeight(qRound(shownLines * widgets::rowFactor * fontMetrics().height()) + 2 * grid->frameWidth());
}

void RemarkTable::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitWidths();
}

void RemarkTable::begin(RemarkList list) {
    const auto former = std::exchange(m_list, std::make_shared<RemarkList>(std::move(list)));
    if (m_reminders)
        m_list->silence(m_reminders->silenced());
    m_rowChosen = false;
    filterBar->clear();
    showAgain();
    m_clearing.add([former] { return former->dropSome(); });
}

void RemarkTable::take(std::vector<Remark> remarks) {
    if (remarks.empty())
        return;
    for (Remark &remark : remarks)
        m_list->add(std::move(remark));
    grid->sourceHasGrown();
}

void RemarkTable::settle() {
    const int current = m_rowChosen && grid->row() > 0 ? m_list->idOf(grid->row() - 1) : -1;
    m_list->sort();
    const bool visited = m_rowVisited;
    showAgain();
    if (current < 0)
        return;
    grid->setRow(m_list->rowOf(current) + 1);
    m_rowVisited = visited;
    showRow();
}

void RemarkTable::showChoices() {
    filterBar->offer(*m_list);
    const int silenced = m_list->silencedCount();
    silenceButton->setText(silenced > 0 ? u"&Y 不再提示 (%1)"_s.arg(silenced) : u"&Y 不再提示"_s);
}

void RemarkTable::filter() {
    m_list->setFilter(filterBar->filter());
    showAgain();
}

// A filter that would leave nothing is given up.
void RemarkTable::silence() {
    m_list->silence(m_reminders->silenced());
    if (m_list->rowCount() == 0 && !m_list->filter().isEmpty()) {
        filterBar->clear();
        m_list->setFilter({});
    }
    showAgain();
}

void RemarkTable::showAgain() {
    grid->bind(m_list); // makes the first row current
    m_rowVisited = false;
    showChoices();
    showRow();
}

const Remark *RemarkTable::current() const {
    const int row = grid->row() - 1;
    return row < 0 || row >= m_list->rowCount() ? nullptr : &m_list->remark(row);
}

void RemarkTable::showRow() {
    const Remark *remark = current();
    const QString text = remark                    ? fullText(m_list->rules(), *remark)
                         : m_list->rowCount() == 0 ? emptyText(*m_list)
                                                   : QString();
    if (remarkText->toPlainText() != text)
        remarkText->setPlainText(text);
}

void RemarkTable::openMenu(const QPoint &where) {
    silenceMenu(*m_reminders, m_list->rules(), current(), this)->popup(where);
}

void RemarkTable::activateRow() {
    const Remark *remark = current();
    if (!remark || remark->record < 0)
        return;
    m_rowVisited = true;
    Q_EMIT activated(*remark);
}

RemarkTable::Step RemarkTable::step(int by) {
    const int rows = m_list->rowCount();
    Step step;
    int row = grid->row() - 1;
    if (!m_rowVisited && by > 0)
        --row;
    for (int tried = 0; tried < rows && !step.remark; ++tried) {
        row += by;
        if (row < 0 || row >= rows) {
            step.wrapped = true;
            row = by < 0 ? rows - 1 : 0;
        }
        if (m_list->remark(row).record >= 0)
            step.remark = &m_list->remark(row);
    }
    if (!step.remark)
        return step;
    m_rowChosen = m_rowVisited = true;
    step.number = row + 1;
    grid->setRow(row + 1);
    showRow();
    return step;
}

void RemarkTable::save(const SaveTarget &target, const std::function<platform::Status(const QString &path)> &write) {
    if (const auto saved = saveChosen(m_host, target, write))
        words->setText(*saved);
}

} // namespace batch
