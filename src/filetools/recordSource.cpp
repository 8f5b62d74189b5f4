#include "filetools/recordSource.h"
#include <utility>

namespace filetools {

RecordSource::RecordSource(marc::RecordCutter cutter)
    : m_cutter(std::move(cutter)) {}

platform::Result<RecordSource> RecordSource::open(const QString &path) {
    auto cutter = marc::RecordCutter::open(path);
    if (!cutter)
        return cutter.failure();
    return RecordSource(std::move(cutter).value());
}

platform::Result<bool> RecordSource::next() {
    if (m_cutter.next())
        return true;
    if (const auto &fault = m_cutter.fault())
        return *fault;
    return false;
}

platform::Status RecordSource::writeTo(platform::ByteWriter &writer) const {
    if (const QByteArray *const memory = m_cutter.lineMemory())
        return writer.writeLine(*memory, m_cutter.bytes());
    return writer.writeLine(m_cutter.bytes());
}

} // namespace filetools
