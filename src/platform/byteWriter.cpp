#include "platform/byteWriter.h"
#include "platform/plainFile.h"
#include <QFile>
#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr QByteArrayView lineEnd("\r\n");
constexpr qsizetype gatherSize = 1 << 20; // splitting a file takes an eighth less time than with a quarter of this size
constexpr qsizetype smallBuffer = 1 << 16; // a longer buffer is written before a line that need not be copied

} // namespace

ByteWriter::ByteWriter(std::unique_ptr<QFile> file)
    : m_file(std::move(file)) {}
ByteWriter::ByteWriter(ByteWriter &&) noexcept = default;
ByteWriter::~ByteWriter() {
    if (m_file)
        std::ignore = flush();
}

Result<ByteWriter> ByteWriter::create(const QString &path) {
    auto file = openPlainFile(path, QIODevice::WriteOnly | QIODevice::Truncate);
    if (!file)
        return file.failure();
    ByteWriter writer(std::move(file).value());
    writer.m_buffer.resize(gatherSize);
    return writer;
}

Status ByteWriter::writeLine(QByteArrayView line) {
    if (!m_lines.isEmpty() || m_gathered + line.size() + lineEnd.size() > gatherSize) {
        if (const Status flushed = flush(); !flushed)
            return flushed;
    }
    if (m_fault)
        return *m_fault;
    const qsizetype from = m_gathered;
    m_gathered += line.size() + lineEnd.size();
    m_buffer.resize(std::max(m_buffer.size(), m_gathered));
    char *const end = std::ranges::copy(line, m_buffer.data() + from).out;
    std::ranges::copy(lineEnd, end);
    m_lineEnds.append(m_gathered);
    return success();
}

Status ByteWriter::writeLine(const QByteArray &memory, QByteArrayView line) {
    if (m_gathered > smallBuffer || (!m_lines.isEmpty() && m_lines.end() != line.begin())) {
        if (const Status flushed = flush(); !flushed)
            return flushed;
    }
    if (m_gathered > 0)
        return writeLine(line);
    if (m_fault)
        return *m_fault;
    if (m_lines.isEmpty())
        m_memory = memory;
    const char *const from = m_lines.isEmpty() ? line.begin() : m_lines.begin();
    m_lines = QByteArrayView(from, line.end() + lineEnd.size());
    m_lineEnds.append(m_lines.size());
    return success();
}

Status ByteWriter::flush() {
    if (m_fault)
        return *m_fault;
    const QByteArrayView waiting = m_lines.isEmpty() ? QByteArrayView(m_buffer).first(m_gathered) : m_lines;
    const QByteArrayView left = notTaken(*m_file, waiting);
    if (!left.isEmpty())
        m_fault = Failure{m_file->errorString(), int(m_file->error())};
    const qsizetype taken = waiting.size() - left.size();
    m_linesHandedOver += std::ranges::upper_bound(m_lineEnds, taken) - m_lineEnds.begin();
    m_lines = {};
    m_memory = {};
    m_gathered = 0;
    m_lineEnds.resize(0); // keeps the capacity
    return m_fault ? Status(*m_fault) : success();
}

Status ByteWriter::close() {
    const Status flushed = flush();
    m_file->close();
    if (flushed && m_file->error() != QFile::NoError)
        return Failure{m_file->errorString(), int(m_file->error())};
    return flushed;
}

} // namespace platform
