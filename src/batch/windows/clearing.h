// Releases large values that are no longer needed in slices between events: a million texts at once would stop the
// window.
#pragma once

#include "platform/slicedWork.h"
#include <deque>

namespace batch {

class Clearing {
public:
    // Calls `dropSome` until it returns false, then destroys it together with what it owns.
    void add(std::function<bool()> dropSome);

private:
    bool step();

    std::deque<std::function<bool()>> m_waiting;
    platform::SlicedWork m_work{std::chrono::milliseconds(5), [this] { return step(); }, [](bool) {}};
};

} // namespace batch
