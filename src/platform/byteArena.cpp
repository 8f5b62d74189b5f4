#include "platform/byteArena.h"
#include <algorithm>

namespace platform {

QByteArrayView ByteArena::keep(QByteArrayView bytes) {
    char *const place = static_cast<char *>(m_blocks.allocate(size_t(bytes.size()), alignof(char)));
    std::ranges::copy(bytes, place);
    return {place, bytes.size()};
}

} // namespace platform
