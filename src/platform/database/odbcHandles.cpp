#include "platform/database/odbcHandles.h"
#include <algorithm>
#include <array>

namespace platform {

QString fromOdbc(const SQLWCHAR *buffer, qsizetype capacity) {
    const SQLWCHAR *const end = std::find(buffer, buffer + capacity, SQLWCHAR(0));
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(buffer), end - buffer);
}

Failure OdbcHandle::failure() const {
    Failure failure;
    for (SQLSMALLINT record = 1; m_handle; ++record) {
        std::array<SQLWCHAR, 6> state{};
        std::array<SQLWCHAR, 4096> message{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        // One character of the buffer is kept back: it stays NUL whatever the driver writes.
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(m_kind, m_handle, record, state.data(), &native, message.data(),
                                          SQLSMALLINT(message.size() - 1), &length)))
            break;
        failure.description = fromOdbc(message.data(), qsizetype(message.size())).trimmed();
        if (native != 0)
            failure.number = native;
        if (!failure.description.isEmpty())
            break;
    }
    if (failure.description.isEmpty())
        failure.description = m_handle ? QStringLiteral("ODBC") : QStringLiteral("没有可用的ODBC驱动程序管理器");
    return failure;
}

} // namespace platform
