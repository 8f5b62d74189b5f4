#include "filetools/recordForms.h"
#include "platform/codepage936.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace filetools {

namespace {

constexpr qsizetype longestRecord = 99'999; // what five digits tell
constexpr qsizetype longestField = 9'999;   // and four
constexpr QLatin1StringView slimNamespace("http://www.loc.gov/MARC21/slim");

// The digits of a number that fits, as they stand in a record.
void put(char *at, int width, qsizetype number) {
    for (int i = width - 1; i >= 0; --i, number /= 10)
        at[i] = char('0' + number % 10);
}

} // namespace

bool canHold(TargetForm form, char32_t character) {
    switch (form) {
    case TargetForm::GbkIso:
        return character < 0x10000 && platform::isEncodable(QString(QChar(char16_t(character))));
    case TargetForm::MarcXml: // the separators are no content
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

MarcXmlWriter::MarcXmlWriter()
    : m_xml(&m_text) {
    m_xml.setAutoFormatting(true);
    m_xml.setAutoFormattingIndent(1);
}

void MarcXmlWriter::begin() {
    m_xml.writeStartDocument();
    m_xml.writeDefaultNamespace(slimNamespace.toString());
    m_xml.writeStartElement(slimNamespace.toString(), u"collection"_s);
}

void MarcXmlWriter::add(const TidyRecord &record) {
    QByteArray leader = record.leader; // lengths say nothing there
    put(leader.data(), 5, 0);
    put(leader.data() + marc::baseAddressAt, marc::baseAddressLength, 0);
    m_xml.writeStartElement(u"record"_s);
    m_xml.writeTextElement(u"leader"_s, QString::fromLatin1(leader));
    qsizetype start = 0;
    for (qsizetype i = 0; i < record.tags.size(); i += tagLength) {
        const qsizetype end = record.data.indexOf(QChar(marc::fieldTerminator), start);
        addField(QByteArrayView(record.tags).sliced(i, tagLength), QStringView(record.data).sliced(start, end - start));
        start = end + 1;
    }
    m_xml.writeEndElement();
}

// What stands ahead of the first subfield gets a blank for its code, so that it is not lost; nothing at all does where
// a true blank would be taken for that.
void MarcXmlWriter::addField(QByteArrayView tag, QStringView field) {
    const bool isControl = tag.startsWith("00") && !field.contains(QChar(marc::subfieldDelimiter));
    m_xml.writeStartElement(isControl ? u"controlfield"_s : u"datafield"_s);
    m_xml.writeAttribute(u"tag"_s, QString::fromLatin1(tag));
    if (isControl) {
        m_xml.writeCharacters(field.toString());
        m_xml.writeEndElement();
        return;
    }
    const qsizetype first = field.indexOf(QChar(marc::subfieldDelimiter));
    const qsizetype given = std::min<qsizetype>(2, first < 0 ? field.size() : first);
    const QString indicators = field.first(given).toString().leftJustified(2);
    m_xml.writeAttribute(u"ind1"_s, indicators.left(1));
    m_xml.writeAttribute(u"ind2"_s, indicators.right(1));
    const auto parts = field.sliced(given).split(QChar(marc::subfieldDelimiter));
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const bool isMistakable = parts.size() > 1 && parts[1].startsWith(u' ');
        if (i == 0 && parts[i].isEmpty() && !isMistakable)
            continue;
        const bool isPair = !parts[i].isEmpty() && parts[i].front().isHighSurrogate();
        const qsizetype codeLength = i == 0 ? 0 : isPair ? 2 : 1;
        m_xml.writeStartElement(u"subfield"_s);
        m_xml.writeAttribute(u"code"_s, i == 0 ? u" "_s : parts[i].left(codeLength).toString());
        m_xml.writeCharacters(parts[i].mid(codeLength).toString());
        m_xml.writeEndElement();
    }
    m_xml.writeEndElement();
}

void MarcXmlWriter::end() {
    m_xml.writeEndDocument();
}

QByteArray MarcXmlWriter::take() {
    const QByteArray bytes = m_text.toUtf8();
    m_text.resize(0); // keeps its room
    return bytes;
}

} // namespace filetools
