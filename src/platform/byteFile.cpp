#include "platform/byteFile.h"
#include "platform/plainFile.h"
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr qsizetype gatherSize = 1 << 20;

} // namespace

// Counts in stretches of up to 240 bytes, so that each count fits in one byte: compilers vectorize that to a few
// instructions per 16 bytes.
qint64 countByte(QByteArrayView bytes, char wanted) {
    constexpr qsizetype stretch = 240;
    qint64 total = 0;
    while (!bytes.isEmpty()) {
        const QByteArrayView part = bytes.first(std::min(stretch, bytes.size()));
        quint8 count = 0;
        for (const char byte : part)
            count = quint8(count + (byte == wanted));
        total += count;
        bytes = bytes.sliced(part.size());
    }
    return total;
}

ByteReader::ByteReader(const QString &path, std::unique_ptr<QFile> file)
    : m_path(path)
    , m_file(std::move(file))
    , m_size(m_file->size())
    , m_written(QFileInfo(path).lastModified()) {}
ByteReader::ByteReader(ByteReader &&) noexcept = default;
ByteReader &ByteReader::operator=(ByteReader &&) noexcept = default;
ByteReader::~ByteReader() = default;

Result<ByteReader> ByteReader::open(const QString &path) {
    auto file = openPlainFile(path, QIODevice::ReadOnly);
    if (!file)
        return file.failure();
    return ByteReader(path, std::move(file).value());
}

// Looks the file up by its path: on some systems a deleted file can still be read through its open handle.
Status ByteReader::unchanged() const {
    const QFileInfo now(m_path);
    if (!now.exists())
        return Failure{u"文件{%1}在读取中不见了"_s.arg(m_path)};
    if (now.size() != m_size || now.lastModified() != m_written)
        return Failure{u"文件{%1}在读取中被改动了"_s.arg(m_path)};
    return success();
}

Result<qsizetype> ByteReader::read(char *into, qsizetype most) {
    const qint64 count = m_file->read(into, most);
    if (count < 0)
        return Failure{m_file->errorString(), int(m_file->error())};
    if (const Status same = unchanged(); !same)
        return same.failure();
    m_position += count;
    return qsizetype(count);
}

SavedFile::SavedFile(std::unique_ptr<QSaveFile> file)
    : m_file(std::move(file)) {
    m_gathered.reserve(gatherSize);
}
SavedFile::SavedFile(SavedFile &&) noexcept = default;
SavedFile &SavedFile::operator=(SavedFile &&) noexcept = default;
SavedFile::~SavedFile() = default;

Result<SavedFile> SavedFile::create(const QString &path, Saving saving) {
    if (const Status plain = mayBecomeFile(path); !plain)
        return plain.failure();
    auto file = std::make_unique<QSaveFile>(path);
    file->setDirectWriteFallback(saving == Saving::InPlace);
    // Unbuffered, since commit() does not report that the rest of a buffer did not fit on the disk.
    if (!file->open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        (saving == Saving::OwnerOnly && !file->setPermissions(ownerOnly)))
        return Failure{file->errorString(), int(file->error())};
    return SavedFile(std::move(file));
}

Status SavedFile::write(QByteArrayView bytes) {
    if (m_gathered.size() + bytes.size() > gatherSize) {
        if (const Status written = handOver(); !written)
            return written;
    }
    if (bytes.size() < gatherSize) {
        m_gathered.append(bytes);
        return success();
    }
    if (!notTaken(*m_file, bytes).isEmpty())
        return Failure{m_file->errorString(), int(m_file->error())};
    return success();
}

Status SavedFile::handOver() {
    const bool all = notTaken(*m_file, m_gathered).isEmpty();
    m_gathered.resize(0); // keeps the capacity
    if (all)
        return success();
    return Failure{m_file->errorString(), int(m_file->error())};
}

Status SavedFile::commit() {
    if (const Status written = handOver(); !written)
        return written;
    if (m_file->commit())
        return success();
    return Failure{m_file->errorString(), int(m_file->error())};
}

Status writeWholeFile(const QString &path, QByteArrayView bytes, Saving saving) {
    auto file = SavedFile::create(path, saving);
    if (!file)
        return file.failure();
    if (const Status written = file.value().write(bytes); !written)
        return written;
    return file.value().commit();
}

} // namespace platform
