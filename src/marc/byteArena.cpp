#include "marc/byteArena.h"
#include <algorithm>
#include <utility>

namespace marc {

namespace {
constexpr qsizetype blockSize = 1 << 20;
}

QByteArrayView ByteArena::keep(QByteArrayView bytes) {
    const qsizetype size = bytes.size();
    const auto newBlock = [this](qsizetype wanted) {
        m_blocks.push_back(std::make_unique_for_overwrite<char[]>(std::size_t(wanted)));
        return m_blocks.back().get();
    };
    char *place = nullptr;
    if (size > blockSize / 4) { // what is left of the last block is not given up for it
        place = newBlock(size);
    } else {
        if (size > m_left) {
            m_free = newBlock(blockSize);
            m_left = blockSize;
        }
        place = std::exchange(m_free, m_free + size);
        m_left -= size;
    }
    std::ranges::copy(bytes, place);
    return {place, size};
}

} // namespace marc
