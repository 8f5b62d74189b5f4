#include "tidy/recordForms.h"
#include "platform/codepage936.h"
#include "platform/xmlParser.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tidy {

namespace {

constexpr qsizetype longestRecord = 99'999; // maximum of five digits
constexpr qsizetype longestField = 9'999;   // maximum of four digits
constexpr QByteArrayView slimNamespace("http://www.loc.gov/MARC21/slim");

// Returns the length in bytes of the first character of a UTF-8 text; 0 if it is empty.
qsizetype firstCharacter(QByteArrayView text) {
    qsizetype length = text.isEmpty() ? 0 : 1;
    while (length > 0 && length < text.size() && (uchar(text[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

// Writes a number that fits in `width` digits, padded with zeros.
void put(char *at, int width, qsizetype number) {
    for (int i = width - 1; i >= 0; --i, number /= 10)
        at[i] = char('0' + number % 10);
}

} // namespace

bool canHold(TargetForm form, char32_t character) {
    switch (form) {
    case TargetForm::GbkIso:
        return character < 0x10000 && platform::isEncodable(QString(QChar(char16_t(character))));
    case TargetForm::MarcXml: // the separators are not content
        return character >= 0x20 ? character != 0xFFFE && character != 0xFFFF
                                 : character == marc::fieldTerminator || character == marc::subfieldDelimiter;
    case TargetForm::Utf8Iso:
        break;
    }
    return true;
}

QByteArray leaderFor(TargetForm form, QByteArray leader) {
    constexpr qsizetype encodingAt = 9, countsAt = 10, entryMapAt = 20;
    leader.replace(countsAt, 2, "22").replace(entryMapAt, 4, "450 ");
    if (form == TargetForm::GbkIso && leader[encodingAt] == 'a')
        leader[encodingAt] = ' ';
    return leader;
}

QString IsoRecordBytes::make(const TidyRecord &record, QByteArrayView data) {
    const qsizetype fields = record.tags.size() / tagLength;
    const qsizetype base = marc::leaderLength + fields * marc::directoryEntryLength + 1;
    const qsizetype size = base + data.size() + 1;
    if (size > longestRecord)
        return u"%1 字节，长过 %2 字节"_s.arg(size).arg(longestRecord);
    m_bytes.resize(size);
    char *const out = m_bytes.data();
    std::copy(record.leader.begin(), record.leader.end(), out);
    put(out, 5, size);
    put(out + marc::baseAddressAt, marc::baseAddressLength, base);
    qsizetype start = 0;
    for (qsizetype i = 0; i < fields; ++i) {
        const qsizetype length = data.indexOf(char(marc::fieldTerminator), start) + 1 - start;
        if (length > longestField)
            return u"字段 %1 有 %2 字节，长过 %3 字节"_s
                .arg(QString::fromLatin1(record.tags.mid(i * tagLength, tagLength)))
                .arg(length)
                .arg(longestField);
        char *const entry = out + marc::leaderLength + i * marc::directoryEntryLength;
        std::copy_n(record.tags.constData() + i * tagLength, tagLength, entry);
        put(entry + tagLength, 4, length);
        put(entry + tagLength + 4, 5, start);
        start += length;
    }
    out[base - 1] = char(marc::fieldTerminator);
    std::copy(data.begin(), data.end(), out + base);
    out[size - 1] = char(marc::recordTerminator);
    return {};
}

void MarcXmlWriter::begin() {
    m_xml.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<collection xmlns=\"").append(slimNamespace);
    m_xml.append("\">\n");
}

void MarcXmlWriter::add(const TidyRecord &record) {
    QByteArray leader = record.leader; // the lengths in it have no meaning in XML
    put(leader.data(), 5, 0);
    put(leader.data() + marc::baseAddressAt, marc::baseAddressLength, 0);
    m_xml.append(" <record>\n  <leader>");
    platform::appendEscaped(m_xml, leader);
    m_xml.append("</leader>\n");
    const QByteArray data = record.data.toUtf8();
    qsizetype start = 0;
    for (qsizetype i = 0; i < record.tags.size(); i += tagLength) {
        const qsizetype end = data.indexOf(char(marc::fieldTerminator), start);
        addField(QByteArrayView(record.tags).sliced(i, tagLength), QByteArrayView(data).sliced(start, end - start));
        start = end + 1;
    }
    m_xml.append(" </record>\n");
}

void MarcXmlWriter::addAttribute(QByteArrayView name, QByteArrayView value) {
    m_xml.append(' ').append(name).append("=\"");
    platform::appendEscaped(m_xml, value);
    m_xml.append('"');
}

// Content before the first subfield gets a subfield with a blank code, so that it is not lost. An empty one is added if
// the first subfield has a blank code itself and would be mistaken for it.
void MarcXmlWriter::addField(QByteArrayView tag, QByteArrayView field) {
    constexpr char delimiter = char(marc::subfieldDelimiter);
    const bool isControl = tag.startsWith("00") && !field.contains(delimiter);
    m_xml.append(isControl ? "  <controlfield" : "  <datafield");
    addAttribute("tag", tag);
    if (isControl) {
        m_xml.append('>');
        platform::appendEscaped(m_xml, field);
        m_xml.append("</controlfield>\n");
        return;
    }
    for (const char *name : {"ind1", "ind2"}) {
        const qsizetype length = field.startsWith(delimiter) ? 0 : firstCharacter(field);
        addAttribute(name, length == 0 ? QByteArrayView(" ") : field.first(length));
        field = field.sliced(length);
    }
    m_xml.append(">\n");
    const qsizetype first = field.indexOf(delimiter);
    const QByteArrayView before = first < 0 ? field : field.first(first);
    const bool isMistakable = first >= 0 && field.sliced(first + 1).startsWith(' ');
    if (!before.isEmpty() || isMistakable)
        addSubfield(" ", before);
    for (qsizetype at = first; at >= 0;) {
        const qsizetype next = field.indexOf(delimiter, at + 1);
        const QByteArrayView part = field.sliced(at + 1, (next < 0 ? field.size() : next) - at - 1);
        const qsizetype code = firstCharacter(part);
        addSubfield(part.first(code), part.sliced(code));
        at = next;
    }
    m_xml.append("  </datafield>\n");
}

void MarcXmlWriter::addSubfield(QByteArrayView code, QByteArrayView text) {
    m_xml.append("   <subfield");
    addAttribute("code", code);
    m_xml.append('>');
    platform::appendEscaped(m_xml, text);
    m_xml.append("</subfield>\n");
}

void MarcXmlWriter::end() {
    m_xml.append("</collection>\n");
}

QByteArray MarcXmlWriter::take() {
    QByteArray bytes = m_xml;
    m_xml = QByteArray();
    return bytes;
}

} // namespace tidy
