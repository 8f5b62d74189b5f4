// The rows of a table that a view shows: all rows, or those of a filter together with one row that is always kept, the
// current one. Converts between the rows of the table and their positions in the view. All count from 0.
#pragma once

#include <optional>
#include <vector>

namespace platform {

class ShownRows {
public:
    // Shows only these rows, given in ascending order and each once; std::nullopt shows all. The kept row stays.
    void filter(std::optional<std::vector<int>> rows);
    // Shows this row even if the filter does not contain it, and no longer the row kept before; -1 keeps none.
    void keep(int row);

    int kept() const { return m_kept; }
    bool isFiltered() const { return m_filter.has_value(); }
    bool contains(int row) const { return !m_filter || row == m_kept || isInFilter(row); }
    // Returns the number of shown rows of a table with `tableRows` rows.
    int count(int tableRows) const { return positionOf(tableRows); }
    // Returns the row at a position, which must be below count().
    int rowAt(int position) const;
    // Returns the position of a row, or of the next shown one if the row is not shown.
    int positionOf(int row) const;

private:
    bool isInFilter(int row) const;
    int placeInFilter(int row) const;
    void findKept();

    std::optional<std::vector<int>> m_filter;
    int m_kept = -1;
    int m_keptPlace = -1; // of the kept row in the filter if it is not part of it
};

} // namespace platform
