#include "marc/encodingGuess.h"
#include <QString>
#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

constexpr qsizetype looked = 1 << 16; // bytes of the beginning
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

// A file of records begins with digits or signs, which leave one half of the two bytes zero.
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

// The names that both kinds of XML begin with, be it in two bytes a character.
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

// How many of the bytes ahead are plain ASCII, in eights.
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

// The usual pair is taken at once, what is unusual byte by byte.
void GbkShape::take(QByteArrayView bytes) {
    const char *at = bytes.begin();
    const char *const end = bytes.end();
    while (at < end) {
        if (m_place == Place::Between) {
            at += plainAhead(at, end);
            for (; end - at >= 2 && isLead(uchar(at[0])) && isTrail(uchar(at[1])); at += 2)
                ++pairs;
            if (at == end)
                break;
        }
        takeByte(uchar(*at++));
    }
}

void GbkShape::takeByte(uchar byte) {
    const Place before = m_place;
    m_place = Place::Between;
    if (before == Place::BehindLead && isTrail(byte)) {
        ++pairs;
    } else if (before == Place::BehindLead && isDigit(byte)) {
        m_place = Place::BehindDigit;
    } else if (before == Place::BehindDigit && isLead(byte)) {
        m_place = Place::BehindSecondLead;
    } else if (before == Place::BehindSecondLead && isDigit(byte)) {
        ++fourByteForms;
    } else if (before == Place::BehindSecondLead && isTrail(byte)) {
        ++damaged; // the first half; the second is a pair of its own
        ++pairs;
    } else {
        damaged += before != Place::Between;
        if (isLead(byte)) // looked at anew
            m_place = Place::BehindLead;
        else
            damaged += byte >= 0x80;
    }
}

void Utf8Shape::take(QByteArrayView bytes) {
    const char *at = bytes.begin();
    const char *const end = bytes.end();
    const auto follows = [](char byte) { return (uchar(byte) & 0xC0) == 0x80; };
    while (at < end) {
        if (m_left == 0) {
            at += plainAhead(at, end);
            // The leads of three bytes that have no bounds of their own, which Chinese has nearly always.
            for (; end - at >= 3 && uchar(at[0]) > 0xE0 && uchar(at[0]) < 0xED && follows(at[1]) && follows(at[2]);
                 at += 3)
                ++longForms;
            if (at == end)
                break;
        }
        takeByte(uchar(*at++));
    }
}

void Utf8Shape::takeByte(uchar byte) {
    if (m_left > 0 && byte >= m_low && byte <= m_high) {
        m_low = 0x80;
        m_high = 0xBF;
        if (--m_left == 0)
            ++(m_length == 2 ? twoByteForms : longForms);
        return;
    }
    damaged += m_left > 0;
    m_left = 0;
    if (byte >= 0x80)
        begin(byte);
}

// Forms that are longer than they need be, halves of pairs and what lies beyond the last character are none.
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
    if (!m_begun)
        m_certain = certainByStart(bytes.first(std::min(looked, bytes.size())));
    m_begun = true;
    if (m_certain != FileEncoding::Unknown)
        return;
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

// GBK read as UTF-8 is damaged at nearly every character; UTF-8 read as GBK mostly passes, which is why it is looked at
// first. A word or two of two-byte forms may be either, and here they are rather Chinese.
FileEncoding EncodingGuess::guessByShape() const {
    constexpr qint64 few = 4;
    if (isSurelyUtf8())
        return FileEncoding::Utf8;
    const qint64 utf8Forms = m_utf8.twoByteForms + m_utf8.longForms;
    const bool mayBeGbk = m_gbk.damaged == 0 && m_utf8.longForms == 0 && m_utf8.twoByteForms < few;
    if (utf8Forms > 4 * m_utf8.damaged && !mayBeGbk)
        return FileEncoding::Utf8;
    if (m_gbk.fourByteForms > m_gbk.damaged)
        return FileEncoding::Gb18030;
    const bool isGbk = m_gbk.damaged == 0 || m_gbk.pairs > 4 * m_gbk.damaged;
    return isGbk ? FileEncoding::Gbk : FileEncoding::Unknown;
}

} // namespace marc
