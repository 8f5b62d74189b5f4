// The column widths of the list windows, in twips. Some columns are fixed; the others share what the grid has left.
#pragma once

#include <QList>

namespace catalogue {

inline constexpr int headingTwips = 350; // height of the heading row
// Every list window of the frame starts with this size.
inline constexpr int listWidthTwips = 11530;
inline constexpr int listHeightTwips = 6570;

struct GridRoom {
    int width;         // of the grid, in twips
    int height;        // likewise
    int rows;          // heading row included
    int headingHeight; // of row 0, in twips
};

// Whether the rows need a scroll bar: more of them than fit, the quotient taken to the nearest whole number.
bool scrollBarShows(const GridRoom &room);

QList<int> catalogueWidths(const GridRoom &room); // 8 columns, the first hidden
QList<int> copiesWidths(const GridRoom &room);    // 7 columns
QList<int> storeWidths();                         // 8 columns, all fixed

} // namespace catalogue
