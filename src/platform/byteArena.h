// Bytes that stay where they are put until all of them go together. A million pieces cost what they hold and nothing
// each.
#pragma once

#include <QByteArrayView>
#include <memory>
#include <vector>

namespace platform {

class ByteArena {
public:
    // A copy of the bytes, valid as long as the arena.
    QByteArrayView keep(QByteArrayView bytes);

private:
    std::vector<std::unique_ptr<char[]>> m_blocks;
    char *m_free = nullptr; // what is left of the last block
    qsizetype m_left = 0;
};

} // namespace platform
