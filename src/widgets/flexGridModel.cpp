#include "widgets/flexGridModel.h"
#include "widgets/cellText.h"
#include "widgets/flexGridColours.h"
#include <QBrush>
#include <algorithm>
#include <utility>

namespace widgets {

constexpr int frameMilliseconds = 16;

FlexGridModel::FlexGridModel(int columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_columns(size_t(std::max(columns, 1))) {
    connect(&m_pace, &QTimer::timeout, this, &FlexGridModel::announce);
}

int FlexGridModel::dataRows() const {
    return m_source ? std::max(m_source->rowCount(), m_leastRows) : int(m_rows.size());
}

bool FlexGridModel::holds(int row, int column) const {
    return row >= 0 && row < dataRows() && column >= 0 && column < columnCount();
}

void FlexGridModel::setDataRows(int count) {
    m_leastRows = std::max(count, 0);
    if (m_source) {
        const int end = dataRows();
        std::erase_if(m_overrides, [end](const auto &entry) { return entry.first >= end; });
    } else {
        m_rows.resize(size_t(m_leastRows));
    }
    announce();
}

void FlexGridModel::announce() {
    m_pace.stop();
    const int count = shownCount();
    if (count > m_announced) {
        beginInsertRows({}, m_announced, count - 1);
        m_announced = count;
        endInsertRows();
    } else if (count < m_announced) {
        beginRemoveRows({}, count, m_announced - 1);
        m_announced = count;
        endRemoveRows();
    }
}

void FlexGridModel::sourceHasGrown() {
    if (m_source && !m_pace.isActive())
        m_pace.start(frameMilliseconds);
}

const FlexGridModel::Cell *FlexGridModel::find(int row, int column) const {
    const Row *cells = nullptr;
    if (!m_source)
        cells = m_rows[size_t(row)].get();
    else if (const auto found = m_overrides.find(row); found != m_overrides.end())
        cells = &found->second;
    const auto at = size_t(column);
    return cells && at < cells->size() ? &(*cells)[at] : nullptr;
}

FlexGridModel::Cell &FlexGridModel::touch(int row, int column) {
    Row *cells = nullptr;
    if (m_source) {
        cells = &m_overrides[row];
    } else {
        std::unique_ptr<Row> &own = m_rows[size_t(row)];
        if (!own)
            own = std::make_unique<Row>();
        cells = own.get();
    }
    const auto at = size_t(column);
    if (at >= cells->size())
        cells->resize(at + 1);
    return (*cells)[at];
}

void FlexGridModel::changed(int row, int column) {
    const int position = m_shown.positionOf(row);
    if (position < m_announced && m_shown.contains(row))
        Q_EMIT dataChanged(index(position, column), index(position, column));
}

// Replaces the positions from the first difference on, so that the view is consistent in between.
void FlexGridModel::showOnly(std::optional<std::vector<int>> rows) {
    platform::ShownRows next = m_shown;
    next.filter(std::move(rows));
    const int common = std::min(m_announced, next.count(dataRows()));
    int head = 0;
    while (head < common && m_shown.rowAt(head) == next.rowAt(head))
        ++head;
    const bool removing = head < m_announced;
    if (removing)
        beginRemoveRows({}, head, m_announced - 1);
    m_shown = std::move(next);
    m_announced = head;
    if (removing)
        endRemoveRows();
    announce();
}

void FlexGridModel::keep(int row) {
    if (row == m_shown.kept())
        return;
    platform::ShownRows without = m_shown;
    without.keep(-1);
    const int former = m_shown.kept();
    const int position = m_shown.positionOf(former);
    if (former >= 0 && !without.contains(former) && position < m_announced) {
        beginRemoveRows({}, position, position);
        m_shown = without;
        --m_announced;
        endRemoveRows();
    }
    if (without.contains(row) || row < 0 || row >= dataRows())
        return m_shown.keep(row);
    const int place = without.positionOf(row);
    beginInsertRows({}, place, place);
    m_shown.keep(row);
    ++m_announced;
    endInsertRows();
}

QString FlexGridModel::text(int row, int column) const {
    if (!holds(row, column))
        return {};
    if (const Cell *cell = find(row, column); cell && cell->text)
        return *cell->text;
    if (m_source && row < m_source->rowCount() && column < m_source->columnCount())
        return m_source->text(row, column);
    return {};
}

void FlexGridModel::setText(int row, int column, const QString &text) {
    if (!holds(row, column))
        return;
    touch(row, column).text = text;
    changed(row, column);
}

void FlexGridModel::moveOverrides(int from, int by) {
    std::unordered_map<int, Row> moved;
    for (auto &[row, cells] : m_overrides)
        moved.emplace(row < from ? row : row + by, std::move(cells));
    m_overrides = std::move(moved);
}

// A row beyond those reported to the view is reported later with the other new rows.
void FlexGridModel::sourceInsertedRow(int row) {
    if (!m_source || row < 0 || row >= m_source->rowCount())
        return;
    moveOverrides(row, 1);
    ++m_leastRows;
    if (row > m_announced)
        return;
    beginInsertRows({}, row, row);
    ++m_announced;
    endInsertRows();
}

void FlexGridModel::sourceRemovedRow(int row) {
    if (!m_source || row < 0 || row > m_source->rowCount())
        return;
    m_overrides.erase(row);
    moveOverrides(row, -1);
    m_leastRows = std::max(m_leastRows - 1, 0);
    if (row >= m_announced)
        return;
    beginRemoveRows({}, row, row);
    --m_announced;
    endRemoveRows();
}

void FlexGridModel::sourceChanged(int row, int column) {
    if (m_source && holds(row, column))
        changed(row, column);
}

void FlexGridModel::clear() {
    showOnly(std::nullopt);
    m_rows.clear();
    m_rows.resize(size_t(m_announced));
    m_source.reset();
    if (m_announced > 0)
        Q_EMIT dataChanged(index(0, 0), index(m_announced - 1, columnCount() - 1));
}

// Removes and inserts rows instead of resetting the model: on a reset the view would lose its column widths.
void FlexGridModel::bind(std::shared_ptr<const platform::TableSource> source) {
    const bool removing = m_announced > 0;
    if (removing)
        beginRemoveRows({}, 0, m_announced - 1);
    m_announced = 0;
    m_rows.clear();
    m_overrides.clear();
    m_leastRows = 0;
    m_shown.filter(std::nullopt);
    m_source = std::move(source);
    if (removing)
        endRemoveRows();
    announce();
}

QString FlexGridModel::heading(int column) const {
    return column >= 0 && column < columnCount() ? m_columns[size_t(column)].heading : QString();
}

void FlexGridModel::setHeading(int column, const QString &text) {
    if (column < 0 || column >= columnCount() || heading(column) == text)
        return;
    m_columns[size_t(column)].heading = text;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void FlexGridModel::setHeadingAlignment(int column, Qt::Alignment alignment) {
    if (column < 0 || column >= columnCount())
        return;
    m_columns[size_t(column)].headingAlignment = alignment;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void FlexGridModel::setColumnAlignment(int column, Qt::Alignment alignment) {
    if (column < 0 || column >= columnCount())
        return;
    m_columns[size_t(column)].alignment = alignment;
    if (m_announced > 0)
        Q_EMIT dataChanged(index(0, column), index(m_announced - 1, column));
}

void FlexGridModel::setBackground(int row, int column, quint32 colour) {
    if (!holds(row, column))
        return;
    touch(row, column).background = colour;
    changed(row, column);
}

std::optional<quint32> FlexGridModel::background(int row, int column) const {
    if (!holds(row, column))
        return {};
    const Cell *cell = find(row, column);
    return cell ? cell->background : std::nullopt;
}

int FlexGridModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : m_announced;
}

int FlexGridModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant FlexGridModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || index.row() >= m_announced)
        return {};
    const int row = m_shown.rowAt(index.row());
    if (role == Qt::DisplayRole)
        return shownText(text(row, index.column()));
    if (role == Qt::AccessibleTextRole && text(row, index.column()).isEmpty())
        return rowText(row); // an empty cell is read as its row
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(m_columns[size_t(index.column())].alignment);
    if (role == Qt::BackgroundRole || role == Qt::ForegroundRole) {
        const std::optional<quint32> colour = background(row, index.column());
        if (!colour)
            return {};
        const QColor back = colourFromNumber(*colour);
        return QBrush(role == Qt::BackgroundRole ? back : legibleOn(back));
    }
    return {};
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const Column &column = m_columns[size_t(section)];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return column.heading;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(column.headingAlignment);
    return {};
}

} // namespace widgets
