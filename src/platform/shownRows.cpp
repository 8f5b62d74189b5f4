#include "platform/shownRows.h"
#include <algorithm>
#include <utility>

namespace platform {

void ShownRows::filter(std::optional<std::vector<int>> rows) {
    m_filter = std::move(rows);
}

void ShownRows::keep(int row) {
    m_kept = row;
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
    if (keepsAnother()) {
        const int place = placeInFilter(m_kept);
        if (position == place)
            return m_kept;
        if (position > place)
            --position;
    }
    return (*m_filter)[std::size_t(position)];
}

int ShownRows::positionOf(int row) const {
    if (!m_filter)
        return row;
    return placeInFilter(row) + (keepsAnother() && m_kept < row ? 1 : 0);
}

} // namespace platform
