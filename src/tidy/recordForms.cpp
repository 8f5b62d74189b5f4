#include "tidy/recordForms.h"
#include "platform/xmlParser.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tidy {

namespace {

constexpr QByteArrayView slimNamespace("http://www.loc.gov/MARC21/slim");

// Returns the length in bytes of the first character of a UTF-8 text; 0 if it is empty.
qsizetype firstCharacter(QByteArrayView text) {
    qsizetype length = text.isEmpty() ? 0 : 1;
    while (length > 0 && length < text.size() && (uchar(text[length]) & 0xC0) == 0x80)
        ++length;
    return length;
}

} // namespace

void MarcXmlWriter::begin() {
    m_xml.append("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<collection xmlns=\"").append(slimNamespace);
    m_xml.append("\">\n");
}

void MarcXmlWriter::add(const marc::FieldedRecord &record) {
    QByteArray leader = record.leader.toLatin1(); // the lengths in it have no meaning in XML
    marc::putNumber(leader.data(), marc::recordLengthWidth, 0);
    marc::putNumber(leader.data() + marc::baseAddressAt, marc::baseAddressLength, 0);
    m_xml.append(" <record>\n  <leader>");
    platform::appendEscaped(m_xml, leader);
    m_xml.append("</leader>\n");
    for (const marc::Field &field : record.fields)
        addField(field.tag.toLatin1(), field.content.toUtf8());
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
