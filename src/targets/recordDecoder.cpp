#include "targets/recordDecoder.h"
#include "marc/encodingGuess.h"
#include "marc/marcXmlRecord.h"
#include "platform/marc8Decoder.h"
#include <utility>

using namespace Qt::StringLiterals;
using platform::Charset;
using platform::Failure;
using platform::Result;

namespace targets {

namespace {

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr qsizetype unicodeAt = 9; // in the leader: "a" for Unicode

// Returns whether the character marks the beginning or the end of words that are ignored in sorting, in one of the two
// pairs in use.
bool isNonSortingMark(QChar c) {
    return c == u'\u0088' || c == u'\u0089' || c == u'\u0098' || c == u'\u009C';
}

void clean(marc::FieldedRecord &record) {
    for (marc::Field &field : record.fields) {
        field.content.removeIf(isNonSortingMark);
        field.content.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
    }
}

Result<RecordDecoder::Decoded> finished(RecordDecoder::Decoded decoded) {
    if (decoded.record.fields.empty())
        return Failure{u"记录里没有字段"_s};
    clean(decoded.record);
    return decoded;
}

} // namespace

Result<RecordDecoder::Decoded> RecordDecoder::decode(QByteArrayView answer) {
    if (answer.size() > longestAnswer)
        return Failure{u"记录有 %1 字节，超过 1 MB"_s.arg(answer.size())};
    if (answer.startsWith(utf8Mark))
        answer = answer.sliced(utf8Mark.size());
    return answer.trimmed().startsWith('<') ? decodeXml(answer) : decodeIso(answer);
}

Charset RecordDecoder::charsetOf(QByteArrayView record) const {
    if (m_charset == RecordCharset::Utf8)
        return Charset::Utf8;
    if (m_charset == RecordCharset::Marc8)
        return Charset::Marc8;
    marc::EncodingGuess guess;
    guess.take(record);
    switch (guess.guess()) {
    case marc::FileEncoding::Gb18030:
        return Charset::Gb18030;
    case marc::FileEncoding::Gbk:
        return Charset::Gbk;
    default:
        break;
    }
    if (m_charset == RecordCharset::Gbk)
        return Charset::Gbk;
    const bool isUnicode = record.size() > unicodeAt && record[unicodeAt] == 'a';
    const bool mayBeMarc8 = guess.guess() == marc::FileEncoding::Unknown && !isUnicode;
    return mayBeMarc8 && platform::Marc8Decoder::isAvailable() ? Charset::Marc8 : Charset::Utf8;
}

// Adds the number of damaged sequences to `damaged`.
QString RecordDecoder::textOf(QByteArrayView bytes, Charset charset, qint64 &damaged) {
    auto decoder = platform::TextDecoder::open(charset);
    if (!decoder)
        return QString::fromLatin1(bytes);
    QString text = decoder.value().decode(bytes);
    damaged += decoder.value().damaged();
    return text;
}

Result<RecordDecoder::Decoded> RecordDecoder::decodeIso(QByteArrayView answer) {
    while (answer.endsWith('\r') || answer.endsWith('\n') || answer.endsWith('\0'))
        answer.chop(1);
    if (!m_fields.take(answer))
        return Failure{u"不是机读目录记录，或者目次区和字段对不上"_s};
    const Charset charset = charsetOf(answer);
    Decoded decoded;
    decoded.directoryDamaged = m_fields.directoryDamaged();
    const QByteArrayView data = m_fields.data();
    if (decoded.record.take(m_fields.leader(), m_fields.tags(), textOf(data, charset, decoded.damaged)))
        return finished(std::move(decoded));
    // A damaged sequence contains a terminator: each field is decoded on its own.
    decoded.damaged = 0;
    qsizetype at = 0;
    for (marc::Field &field : decoded.record.fields) {
        const qsizetype end = data.indexOf(char(marc::fieldTerminator), at);
        field.content = textOf(data.sliced(at, end - at), charset, decoded.damaged);
        at = end + 1;
    }
    return finished(std::move(decoded));
}

// Takes the first record. Declared encodings are ignored: the answer is UTF-8 or, if that is not valid, GB18030.
Result<RecordDecoder::Decoded> RecordDecoder::decodeXml(QByteArrayView answer) {
    Decoded decoded;
    if (answer.contains("<!DOCTYPE")) // entities would only cost time
        return Failure{u"XML 里有 DOCTYPE"_s};
    const QByteArray utf8 = answer.isValidUtf8() ? answer.trimmed().toByteArray()
                                                 : textOf(answer, Charset::Gb18030, decoded.damaged).toUtf8();
    bool any = false;
    QString why;
    std::optional<marc::MarcXmlRecord> elements;
    elements.emplace([&] {
        if (std::exchange(any, true))
            return;
        why = elements->why();
        if (why.isEmpty())
            elements->toFields(decoded.record);
    });
    platform::XmlParser parser(*elements);
    if (parser.feed(utf8) == platform::XmlParser::State::WantsMore)
        parser.feed({});
    if (!any && !parser.fault().isEmpty())
        return Failure{u"XML 有错："_s + parser.fault()};
    if (!any)
        return Failure{u"XML 里没有机读目录记录"_s};
    if (!why.isEmpty())
        return Failure{why};
    return finished(std::move(decoded));
}

} // namespace targets
