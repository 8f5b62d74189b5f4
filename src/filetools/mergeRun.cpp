#include "filetools/mergeRun.h"
#include "platform/paths.h"
#include <utility>

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Status;

namespace filetools {

MergeRun::MergeRun(QString target)
    : m_target(std::move(target)) {}

Status MergeRun::open() {
    auto writer = platform::ByteWriter::create(m_target);
    if (!writer)
        return writer.failure();
    m_writer.emplace(std::move(writer).value());
    return platform::success();
}

Status MergeRun::openSource(const QString &path) {
    m_source = path;
    m_ofSource = 0;
    m_mostOfSource.reset();
    if (platform::isSameFile(path, m_target)) {
        // The source is the target under another path: only the records of the sources before it count. Records copied
        // from it are appended to it and would be read again until the disk is full.
        m_mostOfSource = m_total;
        if (const Status flushed = m_writer->flush(); !flushed)
            return flushed;
    }
    auto records = RecordSource::open(path);
    if (!records)
        return failed(records.failure());
    m_records = std::move(records).value();
    return platform::success();
}

platform::Result<bool> MergeRun::next() {
    if (m_mostOfSource == m_ofSource)
        return false;
    platform::Result<bool> found = m_records->next();
    if (!found)
        return failed(found.failure());
    return found;
}

Status MergeRun::write() {
    if (Status written = m_records->writeTo(*m_writer); !written)
        return written;
    ++m_total;
    ++m_ofSource;
    return platform::success();
}

qint32 MergeRun::handOver() {
    if (!m_writer)
        return 0;
    std::ignore = m_writer->flush();
    return qint32(m_writer->linesHandedOver());
}

void MergeRun::closeSource() {
    m_records.reset();
    m_sourceLines += u"文件{" + m_source + u"}处理了" + QString::number(m_ofSource) + u"条记录！\r\n";
}

Status MergeRun::close() {
    return m_writer->close();
}

Failure MergeRun::failed(Failure failure) {
    std::ignore = m_writer->flush();
    return failure;
}

QString MergeRun::report() const {
    return u"【源文件】\r\n" + m_sourceLines + u"\r\n【目标文件】\r\n文件{" + m_target + u"}保存了" +
           QString::number(m_total) + u"条记录！";
}

} // namespace filetools
