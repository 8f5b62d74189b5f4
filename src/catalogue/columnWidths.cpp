#include "catalogue/columnWidths.h"
#include <algorithm>
#include <cmath>

namespace catalogue {

namespace {

constexpr int shared = -1;     // as a width: the column shares the remaining width
constexpr int narrowest = 910; // a sharing column stays legible in a grid too narrow for the fixed columns
constexpr int withScrollBar = 360;
constexpr int without = 80;

QList<int> shareOut(QList<int> widths, const GridRoom &room) {
    int fixed = 0;
    for (const int width : widths)
        fixed += width == shared ? 0 : width;
    const int left = room.width - fixed - (scrollBarShows(room) ? withScrollBar : without);
    const int share = std::max(narrowest, left / int(widths.count(shared)));
    std::ranges::replace(widths, shared, share);
    return widths;
}

} // namespace

bool scrollBarShows(const GridRoom &room) {
    if (room.headingHeight <= 0)
        return false;
    return room.rows - 1 > std::nearbyint(double(room.height - headingTwips) / room.headingHeight);
}

QList<int> catalogueWidths(const GridRoom &room) {
    return shareOut({0, 1340, shared, 1340, 910, shared, 910, 1340}, room);
}

QList<int> copiesWidths(const GridRoom &room) {
    return shareOut({shared, 910, shared, 910, 910, 910, shared}, room);
}

QList<int> storeWidths() {
    return {1200, 2800, 2800, 1400, 1000, 800, 800, 800};
}

} // namespace catalogue
