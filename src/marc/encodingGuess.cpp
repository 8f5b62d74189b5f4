#include "marc/encodingGuess.h"
#include "marc/isoLayout.h"
#include "platform/byteFile.h"
#include <QString>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype looked = 1 << 16; // bytes at the beginning that are examined as a whole
constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView leMark("\xFF\xFE");
constexpr QByteArrayView beMark("\xFE\xFF");

// A record file begins with digits or punctuation, which leaves one byte of each two-byte unit zero.
FileEncoding wideByZeros(QByteArrayView start) {
    constexpr qsizetype units = 5;
    qsizetype zeros[2] = {0, 0};
    for (qsizetype i = 0; i < std::min(2 * units, start.size()); ++i)
        zeros[i % 2] += start[i] == 0;
    if (zeros[1] == units && zeros[0] == 0)
        return FileEncoding::Utf16Le;
    if (zeros[0] == units && zeros[1] == 0)
        return FileEncoding::Utf16Be;
    return FileEncoding::Unknown;
}

// Recognizes both kinds of XML by their names, also in two-byte encodings.
FileEncoding xmlByNames(QByteArrayView start) {
    QByteArray text = start.toByteArray();
    text.removeIf([](char byte) { return byte == 0 || uchar(byte) >= 0x80; });
    if (!text.trimmed().startsWith('<'))
        return FileEncoding::Unknown;
    if (text.toLower().contains("marcxchange"))
        return FileEncoding::MarcXchange;
    for (const char *name : {"MARC21/slim", "<record", ":record", "<collection", ":collection"}) {
        if (text.contains(name))
            return FileEncoding::MarcXml;
    }
    return FileEncoding::Unknown;
}

FileEncoding certainByStart(QByteArrayView start) {
    if (const FileEncoding xml = xmlByNames(start); xml != FileEncoding::Unknown)
        return xml;
    if (start.startsWith(utf8Mark))
        return FileEncoding::Utf8WithBom;
    if (start.startsWith(leMark))
        return FileEncoding::Utf16Le;
    if (start.startsWith(beMark))
        return FileEncoding::Utf16Be;
    return wideByZeros(start);
}

constexpr char escape = 0x1B; // switches the character set in MARC-8 and in ISO 2022

// Returns whether a record declares UTF-8: by "a" in position 9 of the leader, or "50" in positions 26 and 27 of 100
// $a, counted from 0.
bool declaresUtf8(QByteArrayView record) {
    constexpr qsizetype leaderCode = 9, fieldCode = 26;
    if (record.size() < leaderLength)
        return false;
    if (record[leaderCode] == 'a')
        return true;
    const qsizetype directoryEnd = record.indexOf(char(fieldTerminator));
    qsizetype field = directoryEnd;
    for (qsizetype at = leaderLength; field >= 0 && at + directoryEntryLength <= directoryEnd;
         at += directoryEntryLength) { // the fields are assumed to be in directory order
        if (record.sliced(at).startsWith("100")) {
            const QByteArrayView content = record.sliced(field + 1);
            // After the indicators and $a.
            const QByteArrayView value = content.sliced(std::min<qsizetype>(4, content.size()));
            return value.sliced(std::min(fieldCode, value.size())).startsWith("50");
        }
        field = record.indexOf(char(fieldTerminator), field + 1);
    }
    return false;
}

// Returns whether each complete record at the beginning declares UTF-8, and there is one.
bool allDeclareUtf8(QByteArrayView start) {
    bool any = false;
    for (qsizetype at = 0, end = 0; (end = start.indexOf(char(recordTerminator), at)) >= 0; at = end + 1) {
        while (at < end && (start[at] == '\r' || start[at] == '\n'))
            ++at;
        if (!declaresUtf8(start.sliced(at, end - at)))
            return false;
        any = true;
    }
    return any;
}

} // namespace

void EncodingGuess::take(QByteArrayView bytes) {
    if (!m_begun) {
        const QByteArrayView start = bytes.first(std::min(looked, bytes.size()));
        m_certain = certainByStart(start);
        m_declaredUtf8 = allDeclareUtf8(start);
    }
    m_begun = true;
    if (m_certain != FileEncoding::Unknown)
        return;
    m_escapes += platform::countByte(bytes, escape);
    if (!isSurelyUtf8())
        m_gbk.take(bytes);
    if (!isSurelyNotUtf8())
        m_utf8.take(bytes);
}

bool EncodingGuess::isSurelyUtf8() const {
    constexpr qint64 many = 1000;
    return m_utf8.longForms > many && m_utf8.longForms > many * m_utf8.damaged;
}

bool EncodingGuess::isSurelyNotUtf8() const {
    constexpr qint64 many = 1000;
    return m_utf8.damaged > many && m_utf8.damaged > m_utf8.twoByteForms + m_utf8.longForms;
}

FileEncoding EncodingGuess::guess() const {
    return m_certain != FileEncoding::Unknown ? m_certain : guessByShape();
}

// GBK read as UTF-8 is damaged at nearly every character, but UTF-8 read as GBK is mostly valid, so UTF-8 is checked
// first. A few two-byte forms may be either.
FileEncoding EncodingGuess::guessByShape() const {
    if (isSurelyUtf8())
        return FileEncoding::Utf8;
    if (mayBeEither())
        return guessByNeighbours();
    if (m_utf8.twoByteForms + m_utf8.longForms > 4 * m_utf8.damaged)
        return FileEncoding::Utf8;
    return guessChinese();
}

bool EncodingGuess::mayBeEither() const {
    constexpr qint64 few = 4;
    return m_gbk.damaged == 0 && m_utf8.damaged == 0 && m_utf8.longForms == 0 && m_utf8.twoByteForms > 0 &&
           m_utf8.twoByteForms < few;
}

// An accented letter is next to other letters; a Chinese character is not.
FileEncoding EncodingGuess::guessByNeighbours() const {
    const qint64 withLetter = m_utf8.betweenLetters + m_utf8.nextToLetter;
    if (m_declaredUtf8 || withLetter == m_utf8.twoByteForms)
        return FileEncoding::Utf8;
    return withLetter == 0 ? guessChinese() : FileEncoding::Unknown;
}

FileEncoding EncodingGuess::guessChinese() const {
    constexpr qint64 strayEscape = 1000; // pairs per escape byte
    if (m_escapes > 0 && m_gbk.pairs < strayEscape * m_escapes)
        return FileEncoding::Unknown;
    if (m_gbk.fourByteForms > m_gbk.damaged && (m_gbk.pairs == 0 || m_gbk.looksChinese()))
        return FileEncoding::Gb18030;
    return m_gbk.looksChinese() ? FileEncoding::Gbk : FileEncoding::Unknown;
}

bool EncodingGuess::isDoubtful() const {
    constexpr qint64 fewPairs = 8, fewForms = 16;
    const FileEncoding found = guess();
    if (found == FileEncoding::Gbk)
        return m_gbk.pairs > 0 && m_gbk.pairs < fewPairs;
    return found == FileEncoding::Utf8 && m_certain != found && m_utf8.longForms == 0 && m_utf8.betweenLetters == 0 &&
           !(m_declaredUtf8 && m_utf8.nextToLetter > 0) && m_utf8.twoByteForms < fewForms;
}

} // namespace marc
