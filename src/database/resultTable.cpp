#include "database/resultTable.h"
#include <algorithm>
#include <utility>

namespace database {

namespace {
constexpr quint64 nullBit = quint64(1) << 63;
constexpr std::size_t firstBlock = 1 << 10; // characters: a result of one row is done with it
constexpr std::size_t blockSize =
    1 << 18; // of the later ones: small beside any result that matters, large beside a cell
} // namespace

ResultTable::ResultTable(QStringList columnNames)
    : m_names(std::move(columnNames)) {}

int ResultTable::rowCount() const {
    return m_names.isEmpty() ? 0 : int(m_cells.size() / std::size_t(m_names.size()));
}

QString ResultTable::text(int row, int column) const {
    const QStringView view = cell(row, column);
    return view.isEmpty() ? QString() : view.toString();
}

QStringView ResultTable::cell(int row, int column) const {
    Q_ASSERT(row >= 0 && row < rowCount() && column >= 0 && column < columnCount());
    const std::size_t index = std::size_t(row) * std::size_t(m_names.size()) + std::size_t(column);
    const quint64 start = m_cells[index] & ~nullBit;
    const quint64 next = index + 1 < m_cells.size() ? m_cells[index + 1] & ~nullBit : ~nullBit;
    const std::u16string &block = m_blocks[start >> 32];
    const std::size_t from = quint32(start);
    const std::size_t end = next >> 32 == start >> 32 ? quint32(next) : block.size();
    return QStringView(block.data() + from, qsizetype(end - from));
}

std::optional<int> ResultTable::column(QStringView name) const {
    for (int column = 0; column < columnCount(); ++column)
        if (m_names.at(column).size() == name.size() && m_names.at(column).compare(name, Qt::CaseInsensitive) == 0)
            return column;
    return std::nullopt;
}

bool ResultTable::isNull(int row, int column) const {
    return m_cells[std::size_t(row) * std::size_t(m_names.size()) + std::size_t(column)] & nullBit;
}

void ResultTable::append(QStringView text) {
    const std::size_t size = std::size_t(text.size());
    if (m_blocks.empty() || m_blocks.back().size() + size > m_blocks.back().capacity())
        m_blocks.emplace_back().reserve(std::max(size, m_blocks.size() == 1 ? firstBlock : blockSize));
    std::u16string &block = m_blocks.back();
    m_cells.push_back(quint64(m_blocks.size() - 1) << 32 | quint64(block.size()));
    if (size > 0)
        block.append(text.utf16(), size);
}

void ResultTable::appendNull() {
    append({});
    m_cells.back() |= nullBit;
}

} // namespace database
