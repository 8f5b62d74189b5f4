#include "filetools/marcXmlSource.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace filetools {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr int tokensPerStep = 4000;
constexpr qsizetype mostForToken = 64 << 20; // bytes in which the parser has to come upon something
constexpr QByteArrayView usualLeader("00000nam0 2200000   450 ");

// By the mark, the zeros or the declaration. Chinese encodings are read as the largest of them.
std::optional<platform::Charset> charsetOf(QByteArrayView start) {
    using platform::Charset;
    constexpr qsizetype declared = 200;
    if (start.startsWith("\xFF\xFE") || start.startsWith(QByteArrayView("<\0", 2)))
        return Charset::Utf16Le;
    if (start.startsWith("\xFE\xFF") || start.startsWith(QByteArrayView("\0<", 2)))
        return Charset::Utf16Be;
    const QByteArray head = start.first(std::min(declared, start.size())).toByteArray().toLower();
    const QByteArray declaration = head.contains("<?xml") ? head.left(head.indexOf("?>")) : QByteArray();
    for (const char *chinese : {"gbk", "gb2312", "gb18030", "cp936"}) {
        if (declaration.contains(chinese))
            return Charset::Gb18030;
    }
    if (declaration.contains("encoding") && !declaration.contains("utf-8"))
        return std::nullopt;
    return Charset::Utf8;
}

// One character; a blank where there is none.
QChar indicator(const QXmlStreamAttributes &attributes, QLatin1StringView name) {
    const auto value = attributes.value(name);
    return value.isEmpty() ? QChar(u' ') : value.front();
}

} // namespace

MarcXmlSource::MarcXmlSource(platform::ByteReader reader)
    : m_reader(std::move(reader))
    , m_block(blockSize, Qt::Uninitialized) {}

platform::Result<std::unique_ptr<TidySource>> MarcXmlSource::open(const QString &path) {
    auto reader = platform::ByteReader::open(path);
    if (!reader)
        return reader.failure();
    return std::unique_ptr<TidySource>(new MarcXmlSource(std::move(reader).value()));
}

platform::Result<TidySource::Found> MarcXmlSource::next() {
    if (m_broken)
        return Found::End;
    for (int token = 0; token < tokensPerStep; ++token) {
        const QXmlStreamReader::TokenType type = m_xml.readNext();
        if (type == QXmlStreamReader::Invalid) {
            if (m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError)
                return feed();
            return breakOff(m_xml.errorString());
        }
        m_fedForToken = 0;
        if (type == QXmlStreamReader::EndDocument)
            return Found::End;
        if (type == QXmlStreamReader::StartElement)
            startElement();
        else if (type == QXmlStreamReader::Characters)
            takeText();
        else if (type == QXmlStreamReader::EndElement && endElement())
            return m_why.isEmpty() ? Found::Record : Found::Unreadable;
    }
    return Found::NotYet;
}

platform::Result<TidySource::Found> MarcXmlSource::feed() {
    const auto count = m_reader.read(m_block.data(), m_block.size());
    if (!count)
        return count.failure();
    const QByteArrayView bytes = QByteArrayView(m_block).first(count.value());
    m_fedForToken += bytes.size();
    if (bytes.isEmpty() || m_fedForToken > mostForToken)
        return breakOff(bytes.isEmpty() ? u"文件没有完"_s : u"一处太长"_s);
    const bool isStart = !std::exchange(m_begun, true);
    if (isStart) {
        if (const platform::Status begun = begin(bytes); !begun)
            return begun.failure();
    }
    if (!m_decoder) {
        m_xml.addData(bytes.toByteArray());
        return Found::NotYet;
    }
    QString text = m_decoder->decode(bytes, true);
    if (isStart && text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    m_xml.addData(text);
    return Found::NotYet;
}

platform::Status MarcXmlSource::begin(QByteArrayView start) {
    const std::optional<platform::Charset> charset = charsetOf(start);
    if (!charset)
        return platform::success();
    auto decoder = platform::TextDecoder::open(*charset);
    if (!decoder)
        return decoder.failure();
    m_decoder = std::move(decoder).value();
    return platform::success();
}

TidySource::Found MarcXmlSource::breakOff(const QString &why) {
    m_broken = u"第 %1 行第 %2 列：%3"_s.arg(m_xml.lineNumber()).arg(m_xml.columnNumber()).arg(why);
    return Found::End;
}

void MarcXmlSource::spoil(const QString &why) {
    if (m_why.isEmpty())
        m_why = why;
}

void MarcXmlSource::startElement() {
    const auto name = m_xml.name();
    if (name == "record"_L1) {
        m_inRecord = true;
        m_fieldDepth = 0;
        m_text = Text::None;
        m_leader.clear();
        m_record = {};
        m_why.clear();
    } else if (!m_inRecord) {
        return;
    } else if (name == "leader"_L1) {
        m_text = Text::Leader;
    } else if (name == "controlfield"_L1) {
        startField(false);
        m_text = Text::Content;
    } else if (name == "datafield"_L1) {
        startField(true);
        m_text = Text::None;
    } else if (name == "subfield"_L1 && m_fieldDepth > 0) {
        // A blank for the first one's code stands for what a field holds ahead of its first subfield.
        const auto code = m_xml.attributes().value("code"_L1);
        if (!std::exchange(m_atFirstSubfield, false) || code != " "_L1)
            m_record.data += QChar(marc::subfieldDelimiter) + code.toString();
        m_text = Text::Content;
    }
}

void MarcXmlSource::startField(bool withIndicators) {
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const auto tag = attributes.value("tag"_L1);
    const bool usable = isTag(tag.toUtf8());
    if (!usable)
        spoil(u"字段标识符“%1”不对"_s.arg(tag));
    if (++m_fieldDepth == 1)
        m_record.tags += usable ? tag.toLatin1() : QByteArray("???");
    else
        m_record.data += tag;
    m_atFirstSubfield = m_fieldDepth == 1 && withIndicators;
    if (withIndicators)
        m_record.data += QString(indicator(attributes, "ind1"_L1)) + indicator(attributes, "ind2"_L1);
}

void MarcXmlSource::endField() {
    if (m_fieldDepth > 0 && --m_fieldDepth == 0)
        m_record.data += QChar(marc::fieldTerminator);
}

void MarcXmlSource::takeText() {
    if (m_text == Text::None)
        return;
    QString &text = m_text == Text::Leader ? m_leader : m_record.data;
    if (text.size() + m_xml.text().size() > longest)
        spoil(u"太长"_s);
    else
        text += m_xml.text();
}

bool MarcXmlSource::endElement() {
    m_text = Text::None;
    const auto name = m_xml.name();
    if (name == "controlfield"_L1 || name == "datafield"_L1)
        endField();
    if (name != "record"_L1 || !std::exchange(m_inRecord, false))
        return false;
    if (m_decoder && m_decoder->damaged() > 0)
        m_damaged += m_record.data.count(QChar::ReplacementCharacter);
    const QString leader = m_leader.size() > marc::leaderLength ? m_leader.trimmed() : m_leader;
    m_record.leader = leader.isEmpty() ? usualLeader.toByteArray() : tidyLeader(leader.toLatin1());
    return true;
}

} // namespace filetools
