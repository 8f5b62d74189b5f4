#include "marc/isoWriter.h"
#include "platform/byteFile.h"
#include "platform/codepage936.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace marc {

namespace {

// Writes a text of printable ASCII characters. Returns false if it contains others.
bool putPlain(char *at, QStringView text) {
    bool plain = true;
    for (const QChar c : text) {
        plain &= c >= u' ' && c <= u'~';
        *at++ = char(c.unicode());
    }
    return plain;
}

bool holdsTerminator(const Field &field) {
    return field.content.contains(QChar(fieldTerminator)) || field.content.contains(QChar(recordTerminator));
}

QString tooLong(qsizetype size, qsizetype longest) {
    return u"%1 字节，长过 %2 字节"_s.arg(size).arg(longest);
}

} // namespace

QString IsoWriter::make(const FieldedRecord &record, IsoEncoding encoding) {
    m_size = 0;
    const qsizetype base = baseAddress(qsizetype(record.fields.size()));
    ensureSpace(base);
    if (record.leader.size() != leaderLength || !putPlain(m_bytes.data(), record.leader))
        return u"头标区不是 %1 个 ASCII 字符"_s.arg(leaderLength);
    putNumber(m_bytes.data() + baseAddressAt, baseAddressLength, base);
    m_size = base;
    QString why; // of the first field that does not fit
    for (size_t i = 0; i < record.fields.size(); ++i) {
        const Field &field = record.fields[i];
        char tag[tagLength];
        if (field.tag.size() != tagLength || !putPlain(tag, field.tag))
            return u"字段标识符“%1”不对"_s.arg(field.tag);
        const qsizetype start = m_size - base;
        const qsizetype length = put(field.content, encoding);
        if (length > longestField && why.isEmpty())
            why = u"字段 %1 有 "_s.arg(field.tag) + tooLong(length, longestField);
        char *const entry = m_bytes.data() + leaderLength + qsizetype(i) * directoryEntryLength;
        std::ranges::copy(tag, entry);
        putNumber(entry + tagLength, fieldLengthWidth, length);
        putNumber(entry + fieldStartAt, fieldStartWidth, start);
    }
    const QByteArrayView data = bytes().sliced(base);
    if (platform::countByte(data, char(fieldTerminator)) != qint64(record.fields.size()) ||
        data.contains(char(recordTerminator)))
        return u"字段 %1 里有记录或字段的结束符"_s.arg(std::ranges::find_if(record.fields, holdsTerminator)->tag);
    ensureSpace(1);
    m_bytes[base - 1] = char(fieldTerminator);
    m_bytes[m_size++] = char(recordTerminator);
    putNumber(m_bytes.data(), recordLengthWidth, m_size);
    return m_size > longestRecord ? tooLong(m_size, longestRecord) : why;
}

// Appends the content and its terminator.
qsizetype IsoWriter::put(QStringView content, IsoEncoding encoding) {
    const qsizetype before = m_size;
    if (encoding == IsoEncoding::Gbk) {
        ensureSpace(2 * content.size() + 1);
        m_size = platform::encodeTo(content, m_bytes.data() + before) - m_bytes.constData();
    } else {
        ensureSpace(m_utf8.requiredSpace(content.size()) + 1);
        m_size = m_utf8.appendToBuffer(m_bytes.data() + before, content) - m_bytes.constData();
    }
    m_bytes[m_size++] = char(fieldTerminator);
    return m_size - before;
}

void IsoWriter::ensureSpace(qsizetype more) {
    if (m_size + more > m_bytes.size())
        m_bytes.resize(2 * (m_size + more));
}

RawRecord IsoWriter::text() const {
    return platform::decode(bytes());
}

} // namespace marc
