// Stores copies of byte sequences at fixed addresses until the arena is destroyed. The memory used is the sum of their
// sizes, without a cost per sequence.
#pragma once

#include <QByteArrayView>
#include <memory>
#include <vector>

namespace platform {

class ByteArena {
public:
    // Returns a copy of the bytes, valid as long as the arena.
    QByteArrayView keep(QByteArrayView bytes);

private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char *m_free = nullptr; // the unused rest of the last block
    qsizetype m_left = 0;
};

} // namespace platform
