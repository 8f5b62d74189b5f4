#include "tidy/isoSource.h"
#include <algorithm>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;
using platform::Charset;

namespace tidy {

namespace {

constexpr char recordEnd = char(marc::recordTerminator);
constexpr char32_t byteOrderMark = 0xFEFF;
constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr char32_t endOfText = 0x1A; // follows the last record in old files

bool isWideCharset(Charset charset) {
    return charset == Charset::Utf16Le || charset == Charset::Utf16Be;
}

} // namespace

IsoSource::IsoSource(platform::ByteReader reader, platform::TextDecoder decoder, Charset charset)
    : m_reader(std::move(reader))
    , m_decoder(std::move(decoder))
    , m_littleEndian(charset == Charset::Utf16Le)
    , m_unit(isWideCharset(charset) ? 2 : 1)
    , m_block(2 * longest, Qt::Uninitialized) {}

platform::Result<std::unique_ptr<TidySource>> IsoSource::open(const QString &path, Charset charset) {
    auto reader = platform::ByteReader::open(path);
    if (!reader)
        return reader.failure();
    auto decoder = platform::TextDecoder::open(charset);
    if (!decoder)
        return decoder.failure();
    return std::unique_ptr<TidySource>(new IsoSource(std::move(reader).value(), std::move(decoder).value(), charset));
}

// Moves the remaining bytes to the front and reads the rest of the block after them.
platform::Status IsoSource::fill() {
    std::memmove(m_block.data(), m_block.constData() + m_at, size_t(m_filled - m_at));
    m_filled -= std::exchange(m_at, 0);
    const auto count = m_reader.read(m_block.data() + m_filled, m_block.size() - m_filled);
    if (!count)
        return count.failure();
    m_filled += count.value();
    m_atEnd = count.value() == 0;
    return platform::success();
}

char32_t IsoSource::unitAt(qsizetype at) const {
    const auto byte = [&](qsizetype i) { return char32_t(uchar(m_block[i])); };
    if (!isWide())
        return byte(at);
    return m_littleEndian ? byte(at + 1) << 8 | byte(at) : byte(at) << 8 | byte(at + 1);
}

void IsoSource::passMark() {
    const QByteArrayView start = QByteArrayView(m_block).first(m_filled);
    if (!isWide() && start.startsWith(utf8Mark))
        m_at = utf8Mark.size();
    else if (isWide() && m_filled >= m_unit && unitAt(0) == byteOrderMark)
        m_at = m_unit;
}

// Skips line breaks, fill characters and empty terminators between records.
void IsoSource::passBreaks() {
    while (m_at + m_unit <= m_filled) {
        const char32_t unit = unitAt(m_at);
        if (unit != U'\r' && unit != U'\n' && unit != U'\0' && unit != endOfText && unit != marc::recordTerminator)
            break;
        m_at += m_unit;
    }
}

qsizetype IsoSource::terminatorEnd() const {
    const char *const begin = m_block.constData();
    const char *from = begin + m_at;
    while (const auto *found =
               static_cast<const char *>(std::memchr(from, recordEnd, size_t(begin + m_filled - from)))) {
        const qsizetype at = (found - begin) - (found - begin - m_at) % m_unit;
        if (at + m_unit <= m_filled && unitAt(at) == marc::recordTerminator)
            return at + m_unit;
        from = found + 1;
    }
    return -1;
}

platform::Result<TidySource::Found> IsoSource::next() {
    if (!m_begun || (m_filled - m_at < m_unit && !m_atEnd)) {
        if (const platform::Status filled = fill(); !filled)
            return filled.failure();
        if (!std::exchange(m_begun, true))
            passMark();
    }
    if (!m_inLongRecord)
        passBreaks();
    if (const qsizetype end = terminatorEnd(); end >= 0)
        return takeRecord(end - m_at);
    if (m_atEnd)
        return takeTail();
    if (m_inLongRecord || m_filled - m_at > longest) {
        const qsizetype size = (m_filled - m_at) / m_unit * m_unit;
        m_inLongRecord = true;
        m_raw = QByteArrayView(m_block).sliced(m_at, size);
        m_at += size;
        return Found::Piece;
    }
    if (const platform::Status filled = fill(); !filled)
        return filled.failure();
    return Found::NotYet;
}

TidySource::Found IsoSource::unreadable(const QString &why) {
    m_why = why;
    return Found::Unreadable;
}

TidySource::Found IsoSource::takeRecord(qsizetype size) {
    m_raw = QByteArrayView(m_block).sliced(m_at, size);
    m_at += size;
    if (std::exchange(m_inLongRecord, false) || size > longest)
        return unreadable(u"太长"_s);
    QByteArrayView bytes = m_raw;
    if (isWide()) {
        m_narrow = m_decoder.decode(m_raw).toUtf8();
        bytes = m_narrow;
    }
    if (!m_fields.take(bytes))
        return unreadable(u"目次区和字段对不上"_s);
    decode();
    return Found::Record;
}

// Reads what follows the last terminator. A record that lacks only its own terminator is accepted.
TidySource::Found IsoSource::takeTail() {
    const qsizetype size = m_filled - m_at;
    if (size == 0 && !m_inLongRecord)
        return Found::End;
    const Found found = takeRecord(size);
    if (found == Found::Record && !m_fields.directoryRight())
        return unreadable(u"没有记录结束符"_s);
    if (found == Found::Unreadable)
        m_why = u"没有记录结束符"_s;
    return found;
}

// Damaged bytes may swallow a terminator; in that case the fields are decoded one by one.
void IsoSource::decode() {
    const QByteArrayView data = m_fields.data();
    const QString text = isWide() ? QString::fromUtf8(data) : m_decoder.decode(data);
    if (m_record.take(m_fields.leader(), m_fields.tags(), text))
        return;
    qsizetype at = 0;
    for (marc::Field &field : m_record.fields) {
        const qsizetype end = data.indexOf(char(marc::fieldTerminator), at);
        field.content = m_decoder.decode(data.sliced(at, end - at));
        at = end + 1;
    }
}

} // namespace tidy
