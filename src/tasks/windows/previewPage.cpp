#include "tasks/windows/previewPage.h"
#include "widgets/layout.h"
#include <QHeaderView>
#include <QShortcut>
#include <QSplitter>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace tasks {

namespace {

QString countWords(const ChangePreview::Count &count) {
    return u"%1 处，%2 条"_s.arg(count.changes).arg(count.records);
}

} // namespace

PreviewPage::PreviewPage(QWidget *parent)
    : QWidget(parent)
    , scopeBox(named(new QComboBox(this), u"scopeBox"_s))
    , kindList(named(new QListWidget(this), u"kindList"_s, u"每一步改多少"_s))
    , grid(new widgets::FlexGrid(u"changeGrid"_s, PreviewRows().columnCount(), 1, this))
    , changeText(named(new DifferenceText(u"changeText"_s, this), u"changeText"_s, u"当前一处改动的全文"_s))
    , changeButton(new Button(u"changeButton"_s, u"&H 这一处不改"_s, this))
    , recordButton(new Button(u"recordButton"_s, u"&R 这一条不改"_s, this)) {
    setObjectName(u"previewPage"_s);
    layOut();
    widgets::hint({{grid, u"空格：这一处改不改；回车或双击：到这条记录"},
                   {changeButton, u"空格键也行；再按一次又改"},
                   {recordButton, u"这条记录一处也不改；再按一次又改"}});
    connect(kindList, &QListWidget::currentRowChanged, this, &PreviewPage::choose);
    connect(grid, &widgets::FlexGrid::enterCell, this, &PreviewPage::showRow);
    connect(grid, &widgets::FlexGrid::gridActivated, this, [this] {
        if (row() >= 0)
            Q_EMIT activated();
    });
    connect(grid, &widgets::FlexGrid::gridClicked, this, [this] {
        if (grid->column() == PreviewRows::WantedColumn)
            toggle(false);
    });
    auto *space = new QShortcut(Qt::Key_Space, grid, nullptr, nullptr, Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, this, [this] { toggle(false); });
    connect(changeButton, &Button::clicked, this, [this] { toggle(false); });
    connect(recordButton, &Button::clicked, this, [this] { toggle(true); });
    clear();
}

void PreviewPage::layOut() {
    grid->setAccessibleName(u"改动"_s);
    grid->setFormat(PreviewRows::headings.toString());
    grid->setItemDelegate(new DifferenceDelegate(PreviewRows::BeforeColumn, PreviewRows::AfterColumn, grid));
    grid->horizontalHeader()->setStretchLastSection(true);
    kindList->setWordWrap(true);
    kindList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *scopeLabel = widgets::naming(named(new QLabel(u"范围(&F):"_s, this), u"scopeLabel"_s), scopeBox);
    auto *down = named(new QSplitter(Qt::Vertical, this), u"changesDown"_s);
    down->addWidget(grid);
    down->addWidget(changeText);
    down->setStretchFactor(0, 1);
    auto *across = named(new QSplitter(Qt::Horizontal, this), u"changesAcross"_s);
    across->addWidget(kindList);
    across->addWidget(down);
    across->setStretchFactor(1, 1);
    for (QSplitter *splitter : {down, across})
        splitter->setChildrenCollapsible(false);
    const int line = fontMetrics().lineSpacing();
    kindList->setMinimumWidth(8 * line);
    changeText->setMinimumHeight(2 * line);
    grid->setMinimumHeight(4 * line);
    across->setSizes({13 * line, 40 * line});
    down->setSizes({16 * line, 5 * line});
    setLayout(widgets::column({widgets::row({scopeLabel, {scopeBox, 1}, changeButton, recordButton}), {across, 1}}));
    layout()->setContentsMargins(0, 0, 0, 0);
    fitWidths();
}

// Sets the widths in characters of the current font.
void PreviewPage::fitWidths() {
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({2, 3, 6, 6, 13, 8});
    for (int column = 0; const int wide : characters)
        grid->setColumnTwips(column++, grid->toTwips(character * wide));
}

void PreviewPage::begin(std::shared_ptr<ChangePreview> preview, const QStringList &steps) {
    m_preview = std::move(preview);
    m_steps = steps;
    m_rows = std::make_shared<PreviewRows>(m_preview);
    kindList->clear();
    for (size_t i = 0; m_preview && i <= m_preview->counts().size(); ++i)
        kindList->addItem(QString());
    kindList->setCurrentRow(0);
    showCounts();
    choose();
}

void PreviewPage::clear() {
    begin(nullptr, {});
}

void PreviewPage::showCounts() {
    if (!m_preview)
        return;
    const auto counts = m_preview->counts();
    const auto set = [&](size_t at, const QString &words, const ChangePreview::Count &count, bool hide) {
        kindList->item(int(at))->setText(words + u"\n　" + countWords(count));
        kindList->item(int(at))->setHidden(hide);
    };
    set(0, u"全部改动"_s, m_preview->all(), false);
    for (size_t i = 0; i < m_preview->steps(); ++i)
        set(i + 1, m_steps[qsizetype(i)], counts[i], false);
    const auto other = [&](size_t at, const QString &words) {
        set(at + 1, words, counts[at], counts[at].changes == 0);
    };
    other(m_preview->alteredAt(), u"重建记录时另变的字段（同手工修改）"_s);
    other(m_preview->refusedAt(), u"⚠ 改不成的记录"_s);
    other(m_preview->doubtfulAt(), u"⚠ 读音没有把握，请看一眼"_s);
}

void PreviewPage::choose() {
    m_rows->choose(kindList->currentRow() - 1);
    grid->bind(m_rows);
    showRow();
}

void PreviewPage::grow() {
    constexpr size_t fewChanges = 50'000; // counted in a millisecond
    m_rows->grow();
    grid->sourceHasGrown();
    if (m_preview->marks().size() < fewChanges)
        showCounts();
}

void PreviewPage::settle() {
    grow();
    showCounts();
    showRow();
}

int PreviewPage::row() const {
    const int row = grid->row() - 1;
    return row < m_rows->rowCount() ? row : -1;
}

int PreviewPage::currentRecord() const {
    return row() < 0 ? -1 : m_preview->recordOf(m_rows->id(row())).row;
}

const Change *PreviewPage::current() const {
    return row() < 0 ? nullptr : &m_rows->change(row());
}

void PreviewPage::allow(bool mayLeaveOut) {
    m_mayLeaveOut = mayLeaveOut;
    showRow();
}

void PreviewPage::showRow() {
    const int at = row();
    const bool may = m_mayLeaveOut && at >= 0 && m_preview->marks()[m_rows->id(at)].step >= 0;
    const bool recordOut = at >= 0 && m_preview->recordOf(m_rows->id(at)).out;
    const bool out = at >= 0 && m_preview->isOut(m_rows->id(at));
    changeButton->setEnabled(may);
    recordButton->setEnabled(may);
    changeButton->setText(out ? u"&H 这一处要改"_s : u"&H 这一处不改"_s);
    recordButton->setText(recordOut ? u"&R 这一条要改"_s : u"&R 这一条不改"_s);
    if (at < 0)
        return changeText->show({}, {}, {});
    const QString doubt = m_rows->change(at).doubt;
    changeText->show(m_rows->content(at, PreviewRows::BeforeColumn), m_rows->content(at, PreviewRows::AfterColumn),
                     doubt.isEmpty() ? QString() : u"⚠ 请看一眼："_s + doubt);
}

void PreviewPage::toggle(bool wholeRecord) {
    const int at = row();
    if (at < 0 || !changeButton->isEnabled())
        return;
    const quint32 id = m_rows->id(at);
    if (wholeRecord)
        m_preview->setRecordOut(id, !m_preview->recordOf(id).out);
    else
        m_preview->setOut(id, !m_preview->isOut(id));
    grid->viewport()->update();
    showCounts();
    showRow();
    Q_EMIT leftOut();
}

} // namespace tasks
