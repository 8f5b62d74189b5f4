#include "marc/encodingGuess.h"
#include "marc/isoLayout.h"
#include "platform/byteFile.h"
#include <QString>
#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype looked = 1 << 16; // bytes at the beginning that are examined as a whole
constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView leMark("\xFF\xFE");
constexpr QByteArrayView beMark("\xFE\xFF");

constexpr bool isDigit(uchar byte) {
    return byte >= '0' && byte <= '9';
}
constexpr bool isLead(uchar byte) {
    return byte >= 0x81 && byte <= 0xFE;
}
constexpr bool isTrail(uchar byte) {
    return byte >= 0x40 && byte <= 0xFE && byte != 0x7F;
}

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
    for (qsizetype at = 0; at < start.size();) {
        const qsizetype end = start.indexOf(char(recordTerminator), at);
        if (end < 0)
            break;
        while (at < end && (start[at] == '\r' || start[at] == '\n'))
            ++at;
        if (!declaresUtf8(start.sliced(at, end - at)))
            return false;
        any = true;
        at = end + 1;
        while (at < start.size() && (start[at] == '\r' || start[at] == '\n'))
            ++at;
    }
    return any;
}

constexpr bool isLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

// Returns the number of leading bytes that are ASCII, a multiple of eight.
qsizetype plainAhead(const char *from, const char *end) {
    const char *at = from;
    for (quint64 eight = 0; end - at >= 8; at += 8) {
        std::memcpy(&eight, at, sizeof eight);
        if (eight & Q_UINT64_C(0x8080808080808080))
            break;
    }
    return at - from;
}

} // namespace

// The fast path takes usual pairs at once; all other bytes are taken one by one.
void GbkShape::take(QByteArrayView bytes) {
    const char *at = bytes.begin();
    const char *const end = bytes.end();
    while (at < end) {
        if (m_place == Place::Between) {
            at += plainAhead(at, end);
            for (; end - at >= 2 && isLead(uchar(at[0])) && isTrail(uchar(at[1])); at += 2)
                takePair(uchar(at[0]), uchar(at[1]));
            if (at == end)
                break;
        }
        takeByte(uchar(*at++));
    }
}

void GbkShape::takePair(uchar lead, uchar trail) {
    constexpr uchar firstTrail = 0xA1; // in the national standard, which GBK extends
    ++pairs;
    if (trail < firstTrail) {
        foreign += lead >= 0xA1 && lead <= 0xA7;
        return;
    }
    foreign += (lead >= 0xA4 && lead <= 0xAF) || lead >= 0xF8;
    usual += (lead >= 0xB0 && lead <= 0xD7) || lead == 0xA1 || lead == 0xA3;
    seldom += lead >= 0xD8 && lead <= 0xF7;
}

bool GbkShape::looksChinese() const {
    constexpr qint64 word = 4;
    if (pairs == 0 || damaged * 20 > pairs)
        return pairs == 0 && damaged == 0;
    // Measured: 99 % of pairs are usual in simplified Chinese, 67 % in traditional Chinese, 26 % in Big5; accented
    // Latin letters give no usual pairs, and half of the pairs of Big5 are foreign.
    const bool isUsual = usual * 20 >= pairs * 9 || (usual * 5 >= pairs && foreign * 50 <= pairs);
    return isUsual || (pairs <= word && usual + seldom == pairs);
}

void GbkShape::takeByte(uchar byte) {
    const Place before = m_place;
    m_place = Place::Between;
    if (before == Place::BehindLead && isTrail(byte)) {
        takePair(m_lead, byte);
    } else if (before == Place::BehindLead && isDigit(byte)) {
        m_place = Place::BehindDigit;
    } else if (before == Place::BehindDigit && isLead(byte)) {
        m_place = Place::BehindSecondLead;
    } else if (before == Place::BehindSecondLead && isDigit(byte)) {
        ++fourByteForms;
    } else if (before == Place::BehindSecondLead && isTrail(byte)) {
        ++damaged; // the first half; the second half is a pair of its own
        takePair(m_lead, byte);
    } else {
        damaged += before != Place::Between;
        if (isLead(byte)) // may begin a new pair
            m_place = Place::BehindLead;
        else
            damaged += byte >= 0x80;
    }
    if (isLead(byte))
        m_lead = byte;
}

void Utf8Shape::take(QByteArrayView bytes) {
    const char *at = bytes.begin();
    const char *const end = bytes.end();
    const auto follows = [](char byte) { return (uchar(byte) & 0xC0) == 0x80; };
    while (at < end) {
        if (m_left == 0) {
            noteSides(isLetter(*at));
            at += plainAhead(at, end);
            // The lead bytes of three-byte forms whose next byte has no special bounds; most Chinese characters have
            // these.
            for (; end - at >= 3 && uchar(at[0]) > 0xE0 && uchar(at[0]) < 0xED && follows(at[1]) && follows(at[2]);
                 at += 3)
                ++longForms;
            if (at == end)
                break;
        }
        takeByte(uchar(*at), uchar(*at) >= 0x80 && isAfterLetter(bytes, at - bytes.begin()));
        ++at;
    }
    for (const char byte : bytes.last(std::min<qsizetype>(2, bytes.size()))) {
        m_tail[0] = m_tail[1];
        m_tail[1] = byte;
    }
}

// The code of a subfield is not a letter of its text.
bool Utf8Shape::isAfterLetter(QByteArrayView bytes, qsizetype at) const {
    const auto before = [&](qsizetype back) { return at >= back ? bytes[at - back] : m_tail[2 - (back - at)]; };
    return isLetter(before(1)) && before(2) != char(subfieldDelimiter);
}

void Utf8Shape::noteSides(bool beforeLetter) {
    if (!m_sidesOpen)
        return;
    m_sidesOpen = false;
    betweenLetters += m_afterLetter && beforeLetter;
    nextToLetter += m_afterLetter != beforeLetter;
}

void Utf8Shape::takeByte(uchar byte, bool afterLetter) {
    if (m_left > 0 && byte >= m_low && byte <= m_high) {
        m_low = 0x80;
        m_high = 0xBF;
        if (--m_left > 0)
            return;
        m_sidesOpen = m_length == 2;
        ++(m_length == 2 ? twoByteForms : longForms);
        return;
    }
    damaged += m_left > 0;
    m_left = 0;
    if (byte < 0x80)
        return;
    m_afterLetter = afterLetter;
    begin(byte);
}

// Counts overlong forms, surrogates and values beyond U+10FFFF as damaged.
void Utf8Shape::begin(uchar byte) {
    if (byte < 0xC2 || byte > 0xF4) {
        ++damaged;
        return;
    }
    m_length = byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    m_left = m_length - 1;
    m_low = byte == 0xE0 ? 0xA0 : byte == 0xF0 ? 0x90 : 0x80;
    m_high = byte == 0xED ? 0x9F : byte == 0xF4 ? 0x8F : 0xBF;
}

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
