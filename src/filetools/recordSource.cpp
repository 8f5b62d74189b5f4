#include "filetools/recordSource.h"
#include <utility>

namespace filetools {

RecordSource::RecordSource(platform::LineReader reader)
    : m_reader(std::move(reader))
    , m_cutter(m_reader) {}

platform::Result<std::unique_ptr<RecordSource>> RecordSource::open(const QString &path,
                                                                   std::function<void()> beforeReading) {
    auto reader = platform::LineReader::open(path);
    if (!reader)
        return reader.failure();
    reader.value().beforeReading(std::move(beforeReading));
    return std::unique_ptr<RecordSource>(new RecordSource(std::move(reader).value()));
}

platform::Result<bool> RecordSource::next() {
    if (m_cutter.next())
        return true;
    if (const auto fault = m_reader.fault())
        return *fault;
    return false;
}

platform::Status RecordSource::writeTo(platform::ByteWriter &writer) const {
    return m_cutter.stands() ? writer.writeStanding(m_cutter.bytes()) : writer.writeLine(m_cutter.bytes());
}

} // namespace filetools
