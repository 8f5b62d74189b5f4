#include "platform/byteArena.h"
#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr qsizetype largestBlock = 1 << 20;

// Block sizes double, so that a few bytes cost only a small first block.
qsizetype sizeOfBlock(size_t before) {
    constexpr qsizetype smallest = 1 << 9;
    constexpr size_t doublings = 11; // from the smallest to the largest
    static_assert(smallest << doublings == largestBlock);
    return smallest << std::min(before, doublings);
}

} // namespace

QByteArrayView ByteArena::keep(QByteArrayView bytes) {
    const qsizetype size = bytes.size();
    const auto newBlock = [this](qsizetype wanted) {
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(size_t(wanted)));
        return m_blocks.back().get();
    };
    const qsizetype next = sizeOfBlock(m_blocks.size());
    char *place = nullptr;
    if (size > m_left && size > next / 4) { // gets a block of its own, and the last block stays in use
        place = newBlock(size);
    } else {
        if (size > m_left) {
            m_free = newBlock(next);
            m_left = next;
        }
        place = std::exchange(m_free, m_free + size);
        m_left -= size;
    }
    std::ranges::copy(bytes, place);
    return {place, size};
}

} // namespace platform
