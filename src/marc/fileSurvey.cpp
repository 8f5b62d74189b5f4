#include "marc/fileSurvey.h"
#include "marc/directory.h"
#include <algorithm>
#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr qsizetype heldRecord = 1 << 20; // ten times the longest record that the format allows

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

QList<qsizetype> linesWithin(const QList<qsizetype> &lineEnds, qsizetype size) {
    QList<qsizetype> within;
    std::ranges::copy_if(lineEnds, std::back_inserter(within), [size](qsizetype end) { return end <= size; });
    return within;
}

// `head` ends with the first field terminator. The length of the directory is counted in characters, which are decoded
// line by line.
bool hasDamagedDirectory(QByteArrayView head, const QList<qsizetype> &lineEnds) {
    uchar bits = 0;
    for (const char byte : head)
        bits |= uchar(byte);
    if (bits < 0x80) // as in nearly all records: each byte is a character
        return head.size() > leaderLength && (head.size() - 1 - leaderLength) % directoryEntryLength != 0;
    return viewDirectory(decodeLines(head, linesWithin(lineEnds, head.size() - 1))).damaged;
}

// Characters that may be between records and after the last one.
bool isFiller(char16_t unit) {
    return unit == u'\r' || unit == u'\n' || unit == u' ' || unit == u'\0' || unit == u'\x1A' || unit == 0xFEFF;
}

} // namespace

ReadableCount::ReadableCount()
    : m_joiner(heldRecord) {}

void ReadableCount::take(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        bytes = bytes.sliced(m_joiner.take(bytes));
        if (m_joiner.hasRecord())
            takeRecord();
    }
}

void ReadableCount::takeRecord() {
    ++records;
    if (m_joiner.isTooLong()) {
        ++misfits;
        return;
    }
    const QByteArrayView record = m_joiner.bytes();
    const qsizetype head = record.indexOf(char(fieldTerminator));
    const bool damaged = head >= 0 && hasDamagedDirectory(record.first(head + 1), m_joiner.lineEnds());
    damagedDirectories += damaged;
    misfits += !damaged && !directoryFits(record);
}

void TerminatorCount::take(QByteArrayView bytes) {
    for (const char *at = bytes.begin(); at != bytes.end();) {
        const char *const found = find(at, bytes.end(), char(recordTerminator));
        if (!endsInRecord)
            endsInRecord = std::ranges::any_of(at, found, [](char byte) { return !isFiller(char16_t(uchar(byte))); });
        if (found == bytes.end())
            break;
        terminators += std::exchange(endsInRecord, false);
        at = found + 1;
    }
}

void TerminatorCount::takeUnit(char16_t unit) {
    if (unit == recordTerminator)
        terminators += std::exchange(endsInRecord, false);
    else
        endsInRecord = endsInRecord || !isFiller(unit);
}

FileSurvey::FileSurvey(platform::ByteReader reader, Subject subject)
    : m_reader(std::move(reader))
    , m_subject(subject)
    , m_block(blockSize, Qt::Uninitialized) {}

platform::Result<FileSurvey> FileSurvey::open(const QString &path, Subject subject) {
    auto reader = platform::ByteReader::open(path);
    if (!reader)
        return reader.failure();
    return FileSurvey(std::move(reader).value(), subject);
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
    if (m_subject == Subject::Everything)
        m_readable.take(bytes);
    m_encoding.isUtf16() ? takeWide(bytes) : takeNarrow(bytes);
}

void FileSurvey::takeNarrow(QByteArrayView bytes) {
    m_terminators.take(bytes);
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
    m_terminators.takeUnit(unit);
    m_lineFeeds += unit == u'\n';
    m_pairs += unit == u'\n' && m_behindCarriageReturn;
    m_behindCarriageReturn = unit == u'\r';
    m_carriageReturns += m_behindCarriageReturn;
}

FileFacts FileSurvey::facts() const {
    return {.size = size(),
            .encoding = m_encoding.guess(),
            .doubtful = m_encoding.isDoubtful(),
            .lineEnds = lineEnds(m_pairs, m_carriageReturns, m_lineFeeds),
            .terminators = m_terminators.terminators,
            .endsInRecord = m_terminators.endsInRecord,
            .readable = m_readable.records,
            .damagedDirectories = m_readable.damagedDirectories,
            .misfits = m_readable.misfits};
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
    const bool isXml = facts.encoding == FileEncoding::MarcXml || facts.encoding == FileEncoding::MarcXchange;
    const bool counted = facts.terminators == facts.readable && facts.readable > 0;
    const QStringView need = readAsItIs ? u"" : u"（本程序需要 GBK）";
    const QStringView doubt = facts.doubtful ? u"（字太少，不一定对）" : u"";
    told.disagree = facts.size > 0 && (!readAsItIs || !counted || facts.endsInRecord || facts.damagedDirectories > 0 ||
                                       facts.misfits > 0);
    const bool isEmpty = facts.size == 0;
    told.lines = {
        {u"编码："_s + encodingName(facts.encoding) + doubt + need, !readAsItIs || facts.doubtful},
        {u"行结束符："_s + lineEndName(facts.lineEnds)},
        {counted ? u"记录 %1 条"_s.arg(facts.readable)
                 : u"记录结束符 %1 个，将读出 %2 条"_s.arg(facts.terminators).arg(facts.readable),
         !counted && !isEmpty},
    };
    if (facts.damagedDirectories > 0)
        told.lines.append({u"目次区损坏 %1 条"_s.arg(facts.damagedDirectories), true});
    if (facts.misfits > 0 && readAsItIs) // in other encodings the lengths may be those of that encoding
        told.lines.append({u"目次区与字段对不上 %1 条，请整理"_s.arg(facts.misfits), true});
    if (facts.endsInRecord && !isXml)
        told.lines.append({u"文件末尾没有记录结束符，最后一条读不出"_s, true});
    return told;
}

} // namespace marc
