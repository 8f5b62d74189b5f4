// Stores copies of byte sequences at fixed addresses until the arena is destroyed, without a cost per sequence. The
// blocks grow with what they hold; the unused rest of the last one is reserved but never touched.
#pragma once

#include <QByteArrayView>
#include <memory_resource>

namespace platform {

class ByteArena {
public:
    // Returns a copy of the bytes, valid until clear() or the end of the arena.
    QByteArrayView keep(QByteArrayView bytes);
    void clear() { m_blocks.release(); }

private:
    static constexpr size_t smallestBlock = 512; // bytes
    std::pmr::monotonic_buffer_resource m_blocks{smallestBlock};
};

} // namespace platform
