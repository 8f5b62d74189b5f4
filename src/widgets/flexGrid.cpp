#include "widgets/flexGrid.h"
#include "platform/desktop/screenSize.h"
#include "widgets/flexGridColours.h"
#include "widgets/flexGridColumns.h"
#include "widgets/flexGridModel.h"
#include "widgets/styleTokens.h"
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

Qt::Alignment alignmentOfMark(QChar mark) {
    const Qt::Alignment across = mark == u'^' ? Qt::AlignHCenter : mark == u'>' ? Qt::AlignRight : Qt::AlignLeft;
    return across | Qt::AlignVCenter;
}
} // namespace

FlexGrid::FlexGrid(const QString &objectName, int columns, int fixedRows, QWidget *parent)
    : QTableView(parent)
    , m_model(new FlexGridModel(columns, this))
    , m_fixedRows(fixedRows > 0 ? 1 : 0) {
    setObjectName(objectName);
    setAccessibleName(objectName);
    setModel(m_model);
    setItemDelegate(new FlexGridDelegate(this));
    setSelectionBehavior(SelectRows);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setWordWrap(false);
    setShowGrid(false);                           // the delegate paints the lines
    setContextMenuPolicy(Qt::PreventContextMenu); // the windows handle rightPressed and menuKeyPressed
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    m_columns = std::make_unique<FlexGridColumns>(*this, m_fixedRows > 0);
    fitHeights();
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { m_columns->stretch(); });
    connect(m_model, &FlexGridModel::rowsInserted, this, [this](const QModelIndex &, int first) {
        if (first <= positionOf(std::max(m_row, m_rowSel)) || first == 0)
            showSelection();
    });
    connect(m_model, &FlexGridModel::rowsRemoved, this, &FlexGrid::showSelection);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &FlexGrid::headingClicked);
    select(0, 0, 0);
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::setFormat(const QString &format) {
    const QStringList items = format.split(u'|');
    for (int column = 0; column < items.size() && column < columns(); ++column) {
        const QString &item = items[column];
        const QChar mark = item.isEmpty() ? QChar() : item[0];
        const bool marked = mark == u'^' || mark == u'<' || mark == u'>';
        m_model->setHeading(column, marked ? item.mid(1) : item);
        m_model->setHeadingAlignment(column, alignmentOfMark(mark));
        m_columns->fit(column);
    }
}

int FlexGrid::rows() const {
    return m_fixedRows + m_model->dataRows();
}

void FlexGrid::setRows(int count) {
    m_model->setDataRows(count - m_fixedRows);
    select(m_row, m_rowSel, m_column);
}

int FlexGrid::columns() const {
    return m_model->columnCount();
}

QString FlexGrid::text(int row, int column) const {
    return row == 0 && m_fixedRows > 0 ? m_model->heading(column) : m_model->text(row - m_fixedRows, column);
}

void FlexGrid::setText(int row, int column, const QString &text) {
    if (row == 0 && m_fixedRows > 0)
        m_model->setHeading(column, text);
    else
        m_model->setText(row - m_fixedRows, column, text);
}

void FlexGrid::clear() {
    m_model->clear();
}

int FlexGrid::nearestRow(int row) const {
    const int count = rows();
    return count > m_fixedRows ? std::clamp(row, m_fixedRows, count - 1) : 0;
}

void FlexGrid::showOnly(std::optional<std::vector<int>> rows) {
    m_model->showOnly(std::move(rows));
    select(m_row, m_model->shown().contains(m_rowSel - m_fixedRows) ? m_rowSel : m_row, m_column);
}

int FlexGrid::row() const {
    return nearestRow(m_row);
}

int FlexGrid::column() const {
    return m_column;
}

int FlexGrid::rowSel() const {
    return nearestRow(m_rowSel);
}

void FlexGrid::setRow(int row) {
    select(row, row, m_column);
    scrollToRow(m_row);
}

void FlexGrid::setColumn(int column) {
    select(m_row, m_rowSel, column);
    scrollToRow(row());
}

void FlexGrid::setRowSel(int row) {
    select(m_row, row, m_column);
}

void FlexGrid::select(int row, int rowSel, int column) {
    m_row = nearestRow(row);
    m_rowSel = nearestRow(rowSel);
    m_column = std::clamp(column, 0, columns() - 1);
    m_model->keep(m_row - m_fixedRows);
    if (positionOf(std::max(m_row, m_rowSel)) >= m_model->rowCount())
        m_model->announce();
    showSelection();
}

// Copies the selection of the grid to the view, never the other way round.
void FlexGrid::showSelection() {
    const int last = m_model->rowCount() - 1;
    if (last < 0) {
        selectionModel()->clear();
        return;
    }
    const int anchor = std::clamp(positionOf(row()), 0, last);
    const int end = std::clamp(positionOf(rowSel()), 0, last);
    const QItemSelection range(m_model->index(std::min(anchor, end), 0),
                               m_model->index(std::max(anchor, end), columns() - 1));
    selectionModel()->select(range, QItemSelectionModel::ClearAndSelect);
    // A hidden column must not be current: it shows nothing, and a screen reader has nothing to read.
    selectionModel()->setCurrentIndex(m_model->index(end, shownColumn(m_column)), QItemSelectionModel::NoUpdate);
}

// Returns the column if it is visible, else the first visible one. The view does not scroll to a hidden column.
int FlexGrid::shownColumn(int wanted) const {
    int column = isColumnHidden(wanted) ? 0 : wanted;
    while (column < columns() - 1 && isColumnHidden(column))
        ++column;
    return column;
}

void FlexGrid::scrollToRow(int row) {
    scrollToCell(row, m_column);
}

void FlexGrid::scrollToCell(int row, int column) {
    scrollTo(m_model->index(positionOf(row), shownColumn(column)));
}

void FlexGrid::showOrder(int column, Qt::SortOrder order) {
    horizontalHeader()->setSortIndicatorShown(column >= 0);
    horizontalHeader()->setSortIndicator(column, order);
}

void FlexGrid::setCellBackground(int row, int column, quint32 colour) {
    m_model->setBackground(row - m_fixedRows, column, colour);
}

std::optional<quint32> FlexGrid::cellBackground(int row, int column) const {
    return m_model->background(row - m_fixedRows, column);
}

int FlexGrid::toTwips(int pixels) const {
    return m_columns->toTwips(pixels);
}

int FlexGrid::toPixels(int twips) const {
    return m_columns->toPixels(twips);
}

void FlexGrid::setStretchColumn(int column) {
    m_columns->setStretched(column);
}

QMap<int, int> FlexGrid::drawnWidths() const {
    return m_columns->drawn();
}

void FlexGrid::setDrawnWidths(const QMap<int, int> &widths) {
    m_columns->setDrawn(widths);
}

void FlexGrid::setColumnTwips(int column, int twips) {
    m_columns->setTwips(column, twips);
    m_model->setColumnShown(column, !isColumnHidden(column));
}

int FlexGrid::columnTwips(int column) const {
    return m_columns->twips(column);
}

void FlexGrid::setHeadingTwips(int twips) {
    m_headingTwips = twips;
    fitHeights();
}

void FlexGrid::fitHeights() {
    const int needed = qRound(fontMetrics().height() * (platform::isScreenLow(this) ? lowRowFactor : rowFactor));
    verticalHeader()->setMinimumSectionSize(needed);
    verticalHeader()->setDefaultSectionSize(needed);
    horizontalHeader()->setFixedHeight(std::max(m_columns->toPixels(m_headingTwips), needed));
    horizontalHeader()->setVisible(m_fixedRows > 0 && m_headingTwips != 0);
    m_columns->fitAll();
}

void FlexGrid::setColumnAlignment(int column, Qt::Alignment alignment) {
    m_model->setColumnAlignment(column, alignment);
}

void FlexGrid::setHeadingAlignment(Qt::Alignment alignment) {
    for (int column = 0; column < columns(); ++column)
        m_model->setHeadingAlignment(column, alignment);
}

void FlexGrid::bind(std::shared_ptr<const platform::TableSource> source) {
    m_model->bind(std::move(source));
    setRow(m_fixedRows);
}

void FlexGrid::sourceHasGrown() {
    m_model->sourceHasGrown();
}

void FlexGrid::sourceInsertedRow(int row) {
    m_model->sourceInsertedRow(row - m_fixedRows);
}

void FlexGrid::sourceRemovedRow(int row) {
    m_model->sourceRemovedRow(row - m_fixedRows);
    select(m_row, m_rowSel, m_column);
}

void FlexGrid::sourceChanged(int row, int column) {
    m_model->sourceChanged(row - m_fixedRows, column);
}

QRect FlexGrid::cellRect(int row, int column) const {
    m_model->announce();
    QRect place;
    QRect sight = viewport()->rect();
    const QWidget *within = viewport();
    if (row == 0 && m_fixedRows > 0) {
        within = horizontalHeader()->viewport();
        sight = within->rect();
        place = QRect(horizontalHeader()->sectionViewportPosition(column), 0, columnWidth(column), sight.height());
    } else {
        place = visualRect(m_model->index(positionOf(row), column));
    }
    if (place.intersects(sight))
        place &= sight;
    return place.translated(within->mapTo(this, QPoint(0, 0)) + pos());
}

void FlexGrid::changeEvent(QEvent *event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitHeights();
    if (event->type() == QEvent::EnabledChange)
        m_dragTimer.stop();
}

void FlexGrid::resizeEvent(QResizeEvent *event) {
    QTableView::resizeEvent(event);
    m_columns->stretch();
}

void FlexGrid::showEvent(QShowEvent *event) {
    QTableView::showEvent(event);
    scrollToRow(row());
}

} // namespace widgets
