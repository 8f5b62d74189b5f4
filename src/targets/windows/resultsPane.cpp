#include "targets/windows/resultsPane.h"
#include "targets/recordViews.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <QHeaderView>
#include <QShortcut>

using namespace Qt::StringLiterals;
using widgets::named;

namespace targets {

namespace {

enum View { CardView, StandardView, FieldsView };
constexpr QStringView paneName = u"targetResults";

} // namespace

ResultsPane::ResultsPane(const Surroundings &surroundings, QWidget *parent)
    : QSplitter(Qt::Vertical, parent)
    , grid(new widgets::FlexGrid(u"foundGrid"_s, FoundRecords::ColumnCount, 1, this))
    , viewBar(named(new QTabBar, u"viewBar"_s, u"怎样显示记录"_s))
    , recordText(named(new widgets::TextBox(u"recordText"_s), u"recordText"_s, u"当前记录"_s))
    , m_surroundings(surroundings) {
    setObjectName(u"resultsPane"_s);
    layOut();
    widgets::hint(
        {{grid, u"空格：取用不取用这一条；一条也没有选时，取用当前一条"}, {viewBar, u"左右键：卡片、标准、字段"}});
    connect(grid, &widgets::FlexGrid::enterCell, this, [this] {
        showRecord();
        Q_EMIT moved();
    });
    connect(grid, &widgets::FlexGrid::gridClicked, this, [this] {
        if (grid->column() == FoundRecords::TickColumn)
            toggle();
    });
    auto *space = new QShortcut(Qt::Key_Space, grid, nullptr, nullptr, Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, this, &ResultsPane::toggle);
    connect(viewBar, &QTabBar::currentChanged, this, &ResultsPane::showRecord);
    begin(std::make_shared<FoundRecords>());
}

void ResultsPane::layOut() {
    grid->setAccessibleName(u"查到的记录"_s);
    grid->setFormat(FoundRecords::headings.toString());
    grid->setStretchColumn(FoundRecords::KnownColumn);
    for (const QStringView view : {u"卡片", u"标准", u"字段"})
        viewBar->addTab(view.toString());
    viewBar->setExpanding(false);
    viewBar->setDrawBase(false);
    recordText->lock();
    auto *record = named(new QWidget, u"recordPane"_s);
    record->setLayout(widgets::column({viewBar, {recordText, 1}}));
    record->layout()->setContentsMargins(0, 0, 0, 0);
    record->layout()->setSpacing(0);
    addWidget(grid);
    addWidget(record);
    setChildrenCollapsible(false);
    setStretchFactor(0, 1);
    const int line = fontMetrics().lineSpacing();
    grid->setMinimumHeight(5 * line);
    recordText->setMinimumHeight(2 * line);
    setSizes({11 * line, 9 * line});
    fitWidths();
}

// Sets the widths in characters of the current font.
void ResultsPane::fitWidths() {
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({2, 11, 7, 7, 4, 8, 7, 4, 3, 3, 8});
    static_assert(characters.size() == FoundRecords::ColumnCount);
    for (size_t column = 0; column < characters.size(); ++column)
        grid->setColumnTwips(int(column), grid->toTwips(character * characters[column]));
    for (const auto column : {FoundRecords::SizeColumn, FoundRecords::ErrorColumn, FoundRecords::WarningColumn})
        grid->setColumnAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
}

void ResultsPane::begin(std::shared_ptr<FoundRecords> records) {
    m_records = std::move(records);
    grid->bind(m_records);
    showRecord();
}

void ResultsPane::grow() {
    const bool isFirst = recordText->text().isEmpty();
    grid->sourceHasGrown();
    if (isFirst)
        showRecord();
}

void ResultsPane::rowsChanged() {
    grid->viewport()->update();
}

int ResultsPane::current() const {
    if (m_records->rowCount() == 0)
        return -1;
    return std::clamp(grid->row() - 1, 0, m_records->rowCount() - 1);
}

void ResultsPane::toggle() {
    const int row = current();
    if (row < 0)
        return;
    m_records->tick(row, !m_records->isTicked(row));
    rowsChanged();
    Q_EMIT ticked();
}

void ResultsPane::tickAllOrNone() {
    m_records->tickAll(m_records->ticked() < m_records->rowCount());
    rowsChanged();
    Q_EMIT ticked();
}

QString ResultsPane::viewOf(const marc::FieldedRecord &record) const {
    switch (viewBar->currentIndex()) {
    case CardView:
        return m_surroundings.card ? m_surroundings.card(record) : fieldsView(record);
    case StandardView:
        return standardView(record);
    default:
        return fieldsView(record);
    }
}

void ResultsPane::showRecord() {
    const int row = current();
    recordText->setText(row < 0 ? QString() : viewOf(m_records->record(row)));
}

void ResultsPane::keep(const platform::DeskState &state) const {
    widgets::keepColumns(*grid, state, paneName.toString());
}

void ResultsPane::recall(const platform::DeskState &state) {
    widgets::recallColumns(*grid, state, paneName.toString());
}

} // namespace targets
