#include "marc/fileSurvey.h"
#include "marc/separators.h"
#include "platform/codepage936.h"
#include <algorithm>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr qsizetype heldHead = 1 << 16; // a directory is seldom a hundredth of that

const char *find(const char *from, const char *end, char wanted) {
    const auto *found = static_cast<const char *>(std::memchr(from, wanted, size_t(end - from)));
    return found ? found : end;
}

LineEnds lineEnds(qint64 pairs, qint64 carriageReturns, qint64 lineFeeds) {
    const std::pair<qint64, LineEnds> kinds[] = {
        {pairs, LineEnds::CrLf}, {carriageReturns - pairs, LineEnds::Cr}, {lineFeeds - pairs, LineEnds::Lf}};
    LineEnds found = LineEnds::None;
    for (const auto &[count, kind] : kinds) {
        if (count > 0)
            found = found == LineEnds::None ? kind : LineEnds::Mixed;
    }
    return found;
}

QString lineEndName(LineEnds ends) {
    switch (ends) {
    case LineEnds::None:
        return u"无"_s;
    case LineEnds::CrLf:
        return u"CR LF"_s;
    case LineEnds::Lf:
        return u"LF"_s;
    case LineEnds::Cr:
        return u"CR"_s;
    case LineEnds::Mixed:
        break;
    }
    return u"混用"_s;
}

} // namespace

void ReadableCount::take(QByteArrayView bytes) {
    const char *at = bytes.begin();
    const char *const end = bytes.end();
    while (at < end) {
        if (m_place == Place::Head) {
            at = takeHead(at, end);
            continue;
        }
        const bool inFields = m_place == Place::Fields;
        at = find(at, end, inFields ? char(recordTerminator) : '\r');
        if (at == end)
            break;
        ++at;
        if (inFields) { // line breaks in there are left out by the reader
            finish();
        } else {
            m_place = Place::Head;
            m_passLineFeed = true;
        }
    }
}

// Goes on to behind what ends the head or its line.
const char *ReadableCount::takeHead(const char *at, const char *end) {
    if (std::exchange(m_passLineFeed, false) && *at == '\n')
        return at + 1;
    const char *const stop = std::find_if(at, end, [](char byte) {
        return byte == '\r' || byte == char(recordTerminator) || byte == char(fieldTerminator);
    });
    m_head.append(at, stop - at);
    if (stop == end) {
        if (m_head.size() > heldHead)
            measureHead(true);
        return end;
    }
    measureHead(false); // each line is decoded for itself
    m_passLineFeed = *stop == '\r';
    if (*stop == char(fieldTerminator)) {
        const qint64 length = m_measured - leaderLength;
        m_damaged = length >= 0 && length % directoryEntryLength != 0;
        m_place = Place::Fields;
    } else if (*stop == char(recordTerminator)) {
        finish();
    }
    return stop + 1;
}

void ReadableCount::measureHead(bool lineGoesOn) {
    const QString text = platform::decode(m_head);
    m_measured += text.size();
    // A last byte that is no character by itself may become one with the next.
    const bool half = lineGoesOn && text.endsWith(QChar::ReplacementCharacter);
    m_measured -= half;
    m_head = half ? m_head.last(1) : QByteArray();
}

void ReadableCount::finish() {
    ++records;
    damagedDirectories += m_damaged;
    m_damaged = false;
    m_measured = 0;
    m_place = Place::BehindTerminator;
}

FileSurvey::FileSurvey(platform::ByteReader reader)
    : m_reader(std::move(reader))
    , m_block(blockSize, Qt::Uninitialized) {}

platform::Result<FileSurvey> FileSurvey::open(const QString &path) {
    auto reader = platform::ByteReader::open(path);
    if (!reader)
        return reader.failure();
    return FileSurvey(std::move(reader).value());
}

platform::Result<bool> FileSurvey::step() {
    for (qsizetype seen = 0; seen < stepSize;) {
        const platform::Result<qsizetype> count = m_reader.read(m_block.data(), m_block.size());
        if (!count)
            return count.failure();
        if (count.value() == 0)
            return false;
        take(QByteArrayView(m_block).first(count.value()));
        seen += count.value();
    }
    return true;
}

void FileSurvey::take(QByteArrayView bytes) {
    m_encoding.take(bytes);
    m_readable.take(bytes);
    m_encoding.isUtf16() ? takeWide(bytes) : takeNarrow(bytes);
}

void FileSurvey::takeNarrow(QByteArrayView bytes) {
    m_terminators += platform::countByte(bytes, char(recordTerminator));
    m_lineFeeds += platform::countByte(bytes, '\n');
    m_pairs += std::exchange(m_behindCarriageReturn, false) && bytes.front() == '\n';
    for (const char *at = bytes.begin(); (at = find(at, bytes.end(), '\r')) != bytes.end();) {
        ++m_carriageReturns;
        ++at;
        if (at == bytes.end())
            m_behindCarriageReturn = true;
        else
            m_pairs += *at == '\n';
    }
}

void FileSurvey::takeWide(QByteArrayView bytes) {
    const bool littleEndian = m_encoding.guess() == FileEncoding::Utf16Le;
    for (const char byte : bytes) {
        if (!m_half) {
            m_half = uchar(byte);
            continue;
        }
        const uchar first = *std::exchange(m_half, std::nullopt);
        takeUnit(char16_t(littleEndian ? uchar(byte) << 8 | first : first << 8 | uchar(byte)));
    }
}

void FileSurvey::takeUnit(char16_t unit) {
    m_terminators += unit == recordTerminator;
    m_lineFeeds += unit == u'\n';
    m_pairs += unit == u'\n' && m_behindCarriageReturn;
    m_behindCarriageReturn = unit == u'\r';
    m_carriageReturns += m_behindCarriageReturn;
}

FileFacts FileSurvey::facts() const {
    return {.size = size(),
            .encoding = m_encoding.guess(),
            .lineEnds = lineEnds(m_pairs, m_carriageReturns, m_lineFeeds),
            .terminators = m_terminators,
            .readable = m_readable.records,
            .damagedDirectories = m_readable.damagedDirectories};
}

QString encodingName(FileEncoding encoding) {
    switch (encoding) {
    case FileEncoding::Gbk:
        return u"GBK"_s;
    case FileEncoding::Gb18030:
        return u"GB18030（有四字节字符）"_s;
    case FileEncoding::Utf8:
        return u"UTF-8"_s;
    case FileEncoding::Utf8WithBom:
        return u"UTF-8（有 BOM）"_s;
    case FileEncoding::Utf16Le:
        return u"UTF-16 LE"_s;
    case FileEncoding::Utf16Be:
        return u"UTF-16 BE"_s;
    case FileEncoding::MarcXml:
        return u"MARCXML"_s;
    case FileEncoding::MarcXchange:
        return u"MarcXchange"_s;
    case FileEncoding::Unknown:
        break;
    }
    return u"不明"_s;
}

FactLines describe(const FileFacts &facts) {
    FactLines told;
    const bool readAsItIs = facts.encoding == FileEncoding::Gbk;
    const bool counted = facts.terminators == facts.readable;
    told.lines = {
        u"编码："_s + encodingName(facts.encoding) + (readAsItIs ? u""_s : u"（本程序需要 GBK）"_s),
        u"行结束符："_s + lineEndName(facts.lineEnds),
        counted && facts.readable > 0 ? u"记录 %1 条"_s.arg(facts.readable)
                                      : u"记录结束符 %1 个，将读出 %2 条"_s.arg(facts.terminators).arg(facts.readable),
    };
    if (facts.damagedDirectories > 0)
        told.lines.append(u"目次区损坏 %1 条"_s.arg(facts.damagedDirectories));
    told.disagree = facts.size > 0 && (!readAsItIs || !counted || facts.damagedDirectories > 0);
    return told;
}

} // namespace marc
