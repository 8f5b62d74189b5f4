#include "marc/marcXmlRecord.h"
#include <QStringConverter>
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using platform::XmlElement;

namespace marc {

namespace {

constexpr QByteArrayView usualLeader("00000nam0 2200000   450 ");

bool isBlank(QByteArrayView text) {
    return std::ranges::all_of(text, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
}

// Returns whether the text is one character in UTF-8.
bool isOne(QByteArrayView text) {
    const auto begins = [](char byte) { return (uchar(byte) & 0xC0) != 0x80; };
    return std::ranges::count_if(text, begins) == 1;
}

} // namespace

MarcXmlRecord::Part MarcXmlRecord::partOf(QByteArrayView name) {
    struct Row {
        QByteArrayView name;
        Part part;
    };
    static constexpr auto rows = std::to_array<Row>({{"subfield", Part::Subfield},
                                                     {"datafield", Part::DataField},
                                                     {"controlfield", Part::ControlField},
                                                     {"leader", Part::Leader}});
    for (const Row &row : rows) {
        if (row.name == name)
            return row.part;
    }
    return Part::Other;
}

bool MarcXmlRecord::mayHold(Part outer, Part inner) {
    const bool isField = inner == Part::ControlField || inner == Part::DataField;
    return (outer == Part::Record && (isField || inner == Part::Leader)) ||
           (outer == Part::DataField && inner == Part::Subfield) || (outer == Part::Subfield && isField);
}

void MarcXmlRecord::startElement(const XmlElement &element) {
    if (element.name() == "record")
        return begin(element);
    if (m_open.empty())
        return;
    const qsizetype echoed = m_echo.size();
    element.appendStartTag(m_echo);
    const bool isEchoed = keepEcho(echoed);
    Open &outer = m_open.back();
    Part part = outer.part == Part::Other ? Part::Other : partOf(element.name());
    if (outer.part != Part::Other && !mayHold(outer.part, part)) {
        spoil(u"<%1> 不该在这里"_s.arg(QString::fromUtf8(element.name().toByteArray())));
        part = Part::Other;
    }
    if (outer.part == Part::Subfield && part != Part::Other) {
        if (!std::exchange(outer.holdsFields, true) && isBlank(QByteArrayView(m_data).sliced(outer.start)))
            m_data.truncate(outer.start); // white space from the formatting of the XML
    }
    m_open.push_back({.part = part, .start = m_data.size(), .isEchoed = isEchoed});
    if (part == Part::ControlField || part == Part::DataField)
        startField(element, part);
    else if (part == Part::Subfield)
        startSubfield(element);
}

// Of two nested record elements the inner one is the record and the outer one its wrapper.
void MarcXmlRecord::begin(const XmlElement &element) {
    m_open = {{Part::Record}};
    m_saysMarc = element.space().contains("MARC21/slim") || element.space().contains("marcxchange");
    m_fieldDepth = 0;
    for (QByteArray *text : {&m_leader, &m_tags, &m_data, &m_echo})
        text->truncate(0); // keeps the memory
    element.appendStartTag(m_echo);
    m_why.clear();
}

void MarcXmlRecord::startField(const XmlElement &element, Part part) {
    const QByteArrayView tag = element.attribute("tag");
    const bool usable = isTag(tag);
    if (!usable)
        spoil(u"字段标识符“%1”不对"_s.arg(QString::fromUtf8(tag)));
    if (++m_fieldDepth == 1)
        m_tags.append(usable ? tag : QByteArrayView("???"));
    else
        m_data.append(tag);
    m_atFirstSubfield = m_fieldDepth == 1;
    if (part == Part::DataField) {
        addIndicator(element.attribute("ind1"));
        addIndicator(element.attribute("ind2"));
    }
    m_open.back().start = m_data.size();
}

// A missing indicator becomes a blank.
void MarcXmlRecord::addIndicator(QByteArrayView value) {
    if (!value.isEmpty() && !isOne(value))
        spoil(u"指示符“%1”不是一个字符"_s.arg(QString::fromUtf8(value)));
    m_data.append(value.isEmpty() ? QByteArrayView(" ") : value);
}

// A blank as the code of the first subfield marks content before the first subfield.
void MarcXmlRecord::startSubfield(const XmlElement &element) {
    const QByteArrayView code = element.attribute("code");
    if (code.size() > 1 && !isOne(code))
        spoil(u"子字段的代码“%1”不是一个字符"_s.arg(QString::fromUtf8(code)));
    if (!std::exchange(m_atFirstSubfield, false) || code != " ") {
        m_data.append(char(subfieldDelimiter));
        m_data.append(code);
    }
    m_open.back().start = m_data.size();
    m_open.back().hasCode = !code.isEmpty();
}

void MarcXmlRecord::text(QByteArrayView text) {
    if (m_open.empty())
        return;
    const Open &open = m_open.back();
    const bool isContent = open.part == Part::ControlField || (open.part == Part::Subfield && !open.holdsFields) ||
                           open.part == Part::Leader;
    QByteArray &into = open.part == Part::Leader ? m_leader : m_data;
    const qsizetype echoed = m_echo.size();
    platform::appendEscaped(m_echo, text);
    if (!keepEcho(echoed))
        return;
    if (isContent)
        into.append(text);
    else if (open.part != Part::Other && !isBlank(text))
        spoil(u"字段以外有文字"_s);
}

void MarcXmlRecord::endElement(QByteArrayView name) {
    if (m_open.empty())
        return;
    const Open ended = m_open.back();
    if (ended.isEchoed)
        m_echo.append("</").append(name).append('>');
    m_open.pop_back();
    if (m_open.empty())
        endRecord();
    else
        endPart(ended);
}

void MarcXmlRecord::endPart(const Open &ended) {
    if (ended.part == Part::Subfield && !ended.hasCode && m_data.size() > ended.start)
        spoil(u"字段 %1 有没有代码的子字段"_s.arg(QString::fromLatin1(m_tags.last(tagLength))));
    if ((ended.part == Part::ControlField || ended.part == Part::DataField) && --m_fieldDepth == 0)
        m_data.append(char(fieldTerminator));
}

void MarcXmlRecord::endRecord() {
    if (hasMarc() || (m_saysMarc && !m_why.isEmpty()))
        m_ended();
    else
        ++m_passedOver;
}

// Removes what was appended to the unchanged element since it had that size, and returns false, if the record is too
// long; the caller then drops the text too.
bool MarcXmlRecord::keepEcho(qsizetype before) {
    if (m_echo.size() <= longest)
        return true;
    m_echo.truncate(before);
    spoil(u"太长"_s);
    return false;
}

void MarcXmlRecord::spoil(const QString &why) {
    if (m_why.isEmpty())
        m_why = why;
}

void MarcXmlRecord::toFields(FieldedRecord &record) const {
    const QByteArray leader = m_leader.size() > leaderLength ? m_leader.trimmed() : m_leader;
    // QString::fromUtf8() would drop U+FEFF at the beginning of the text.
    const QString data = QStringDecoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom)(m_data);
    record.take(leader.isEmpty() ? usualLeader : QByteArrayView(leader), m_tags, data);
}

} // namespace marc
