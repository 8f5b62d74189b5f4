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

// A record has so many digits and signs in its leader and directory that one half of the bytes is full of zeros.
FileEncoding wideByZeros(QByteArrayView start) {
    qsizetype zeros[2] = {0, 0};
    for (qsizetype i = 0; i < start.size(); ++i)
        zeros[i % 2] += start[i] == 0;
    const qsizetype many = start.size() / 10;
    if (zeros[1] > many && zeros[0] < zeros[1] / 4)
        return FileEncoding::Utf16Le;
    if (zeros[0] > many && zeros[1] < zeros[0] / 4)
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

void GbkShape::take(uchar byte) {
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

void Utf8Shape::take(uchar byte) {
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
    const char *at = bytes.begin();
    while (at < bytes.end()) {
        if (m_gbk.idle() && m_utf8.idle()) {
            at += plainAhead(at, bytes.end());
            if (at == bytes.end())
                break;
        }
        m_gbk.take(uchar(*at));
        m_utf8.take(uchar(*at));
        ++at;
    }
}

FileEncoding EncodingGuess::guess() const {
    return m_certain != FileEncoding::Unknown ? m_certain : guessByShape();
}

// GBK read as UTF-8 is damaged at nearly every character; UTF-8 read as GBK mostly passes, which is why it is looked at
// first. A word or two of two-byte forms may be either, and here they are rather Chinese.
FileEncoding EncodingGuess::guessByShape() const {
    constexpr qint64 few = 4;
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
