#include "platform/shownRows.h"
#include <algorithm>
#include <utility>

namespace platform {

void ShownRows::filter(std::optional<std::vector<int>> rows) {
    m_filter = std::move(rows);
    findKept();
}

void ShownRows::keep(int row) {
    m_kept = row;
    findKept();
}

void ShownRows::findKept() {
    const bool isApart = m_filter && m_kept >= 0 && !isInFilter(m_kept);
    m_keptPlace = isApart ? placeInFilter(m_kept) : -1;
}

int ShownRows::placeInFilter(int row) const {
    return int(std::ranges::lower_bound(*m_filter, row) - m_filter->begin());
}

bool ShownRows::isInFilter(int row) const {
    return std::ranges::binary_search(*m_filter, row);
}

int ShownRows::rowAt(int position) const {
    if (!m_filter)
        return position;
    if (position == m_keptPlace)
        return m_kept;
    return (*m_filter)[size_t(m_keptPlace >= 0 && position > m_keptPlace ? position - 1 : position)];
}

int ShownRows::positionOf(int row) const {
    if (!m_filter)
        return row;
    return placeInFilter(row) + (m_keptPlace >= 0 && m_kept < row ? 1 : 0);
}

} // namespace platform
