// The column widths of the list windows in twips. Some columns have a fixed width; the others share the rest of the
// grid.
#pragma once

#include <QList>

namespace catalogue {

inline constexpr int headingTwips = 350; // height of the heading row
// The initial size of every list window.
inline constexpr int listWidthTwips = 11530;
inline constexpr int listHeightTwips = 6570;

struct GridRoom {
    int width;         // of the grid, in twips
    int height;        // likewise
    int rows;          // including the heading row
    int headingHeight; // of row 0, in twips
};

// Returns whether the rows need a scroll bar: more rows than fit, with the quotient rounded to the nearest integer.
bool scrollBarShows(const GridRoom &room);

QList<int> catalogueWidths(const GridRoom &room); // 8 columns, the first hidden
QList<int> copiesWidths(const GridRoom &room);    // 7 columns
QList<int> storeWidths();                         // 8 columns, all fixed

} // namespace catalogue
