#include "filetools/splitRun.h"
#include "filetools/checks.h"
#include <utility>

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Status;

namespace filetools {

namespace {

Failure noLimit() {
    return Failure{u"每个拆分文件的最大记录数无效"_s};
}

} // namespace

SplitRun::SplitRun(QString source, TargetPattern target)
    : m_source(std::move(source))
    , m_target(std::move(target)) {}

Status SplitRun::open() {
    auto records = RecordSource::open(m_source);
    if (!records)
        return records.failure();
    m_records = std::move(records).value();
    return openTarget(TargetPattern::firstNumber);
}

Status SplitRun::openTarget(int number) {
    const QString path = m_target.numbered(number);
    auto writer = platform::ByteWriter::create(path);
    if (!writer)
        return writer.failure();
    if (m_writer)
        m_inFilesBefore += m_writer->linesHandedOver();
    m_writer.emplace(std::move(writer).value());
    m_number = number;
    m_currentFile = path;
    return platform::success();
}

platform::Result<bool> SplitRun::next() {
    platform::Result<bool> found = m_records->next();
    if (!found)
        return failed(found.failure());
    return found;
}

Status SplitRun::write(QStringView limit) {
    ++m_total;
    ++m_inFile;
    if (const Status written = m_records->writeTo(*m_writer); !written)
        return written;
    const std::optional<qint64> &most = mostPerFile(limit);
    if (!most)
        return failed(noLimit());
    return m_total % *most == 0 ? rollOver() : platform::success();
}

// Always adds the line to the report. A new file is opened only if the source has more bytes after the current line,
// even if they are only empty lines.
Status SplitRun::rollOver() {
    reportTarget();
    m_inFile = 0;
    if (m_records->atEnd())
        return platform::success();
    if (const Status closed = m_writer->close(); !closed)
        return closed;
    return openTarget(m_number + 1);
}

qint32 SplitRun::handOver() {
    if (!m_writer)
        return 0;
    std::ignore = m_writer->flush();
    return qint32(m_inFilesBefore + m_writer->linesHandedOver());
}

Status SplitRun::close(QStringView limit) {
    const std::optional<qint64> &most = mostPerFile(limit);
    if (!most)
        return failed(noLimit());
    if (m_total % *most != 0)
        reportTarget();
    return m_writer->close();
}

const std::optional<qint64> &SplitRun::mostPerFile(QStringView limit) {
    if (limit != m_limit) {
        m_limit = limit.toString();
        m_mostPerFile = recordsPerFile(limit);
    }
    return m_mostPerFile;
}

void SplitRun::reportTarget() {
    m_targetLines += u"文件{" + m_currentFile + u"}保存了" + QString::number(m_inFile) + u"条记录！\r\n";
}

Failure SplitRun::failed(Failure failure) {
    std::ignore = m_writer->flush();
    return failure;
}

// The line of the source has no closing brace, unlike those of the targets.
QString SplitRun::report() const {
    return u"【源文件】\r\n文件{" + m_source + u"处理了" + QString::number(m_total) + u"条记录！\r\n【目标文件】\r\n" +
           m_targetLines;
}

} // namespace filetools
