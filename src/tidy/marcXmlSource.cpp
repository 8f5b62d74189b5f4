#include "tidy/marcXmlSource.h"
#include <algorithm>
#include <utility>

using platform::XmlParser;

namespace tidy {

namespace {

constexpr qsizetype blockSize = 1 << 18;
constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView leMark("\xFF\xFE");
constexpr QByteArrayView beMark("\xFE\xFF");
constexpr QByteArrayView replacement("\xEF\xBF\xBD");

// Returns the encoding in the XML declaration in lower case, or an empty array if there is none.
QByteArray declaredEncoding(QByteArrayView start) {
    constexpr qsizetype declared = 200;
    const QByteArray head = start.first(std::min(declared, start.size())).toByteArray().toLower();
    const QByteArray declaration = head.contains("<?xml") ? head.left(head.indexOf("?>")) : QByteArray();
    const qsizetype name = declaration.indexOf("encoding");
    const QByteArray value = name < 0 ? QByteArray() : declaration.sliced(name + 8).replace('\'', '"');
    return value.split('"').value(1);
}

// Selects the decoder by byte order mark, zero bytes or declaration. Chinese encodings are read as GB18030, which
// includes the others.
platform::Result<platform::TextDecoder> decoderFor(QByteArrayView start) {
    using platform::Charset;
    using platform::TextDecoder;
    if (start.startsWith(leMark) || start.startsWith(QByteArrayView("<\0", 2)))
        return TextDecoder::open(Charset::Utf16Le);
    if (start.startsWith(beMark) || start.startsWith(QByteArrayView("\0<", 2)))
        return TextDecoder::open(Charset::Utf16Be);
    const QByteArray name = declaredEncoding(start);
    for (const char *chinese : {"gbk", "gb2312", "gb18030", "cp936"}) {
        if (name == chinese)
            return TextDecoder::open(Charset::Gb18030);
    }
    return TextDecoder::open(name.isEmpty() || name.startsWith("utf-") ? QByteArray("utf-8") : name);
}

// Returns where an incomplete character at the end of `bytes` begins, or the size if there is none.
qsizetype wholeCharacters(QByteArrayView bytes) {
    constexpr qsizetype longest = 4;
    for (qsizetype back = 1; back <= std::min(longest, bytes.size()); ++back) {
        const uchar byte = uchar(bytes[bytes.size() - back]);
        if ((byte & 0xC0) == 0x80)
            continue;
        const qsizetype length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        return length > back ? bytes.size() - back : bytes.size();
    }
    return bytes.size();
}

} // namespace

MarcXmlSource::MarcXmlSource(platform::ByteReader reader)
    : m_reader(std::move(reader))
    , m_elements([this] { m_xml.pause(); })
    , m_xml(m_elements)
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
    return m_paused ? found(m_xml.resume()) : feed();
}

platform::Result<TidySource::Found> MarcXmlSource::feed() {
    std::ranges::copy(m_cut, m_block.begin());
    const auto count = m_reader.read(m_block.data() + m_cut.size(), m_block.size() - m_cut.size());
    if (!count)
        return count.failure();
    QByteArrayView bytes = QByteArrayView(m_block).first(m_cut.size() + count.value());
    if (!std::exchange(m_begun, true)) {
        if (const platform::Status begun = begin(bytes); !begun)
            return begun.failure();
        for (const QByteArrayView mark : {utf8Mark, leMark, beMark}) {
            if (bytes.startsWith(mark))
                bytes = bytes.sliced(mark.size());
        }
    }
    return found(m_xml.feed(inUtf8(bytes, count.value() == 0)));
}

platform::Status MarcXmlSource::begin(QByteArrayView start) {
    auto decoder = decoderFor(start);
    if (!decoder)
        return decoder.failure();
    m_decoder = std::move(decoder).value();
    m_isUtf8 = m_decoder->isUtf8();
    return platform::success();
}

// Returns valid UTF-8 unchanged. Damaged UTF-8 is decoded first, since the parser rejects it.
QByteArrayView MarcXmlSource::inUtf8(QByteArrayView bytes, bool atEnd) {
    if (!m_isUtf8) {
        m_decoded = m_decoder->decode(bytes, !atEnd).toUtf8();
        return m_decoded;
    }
    const QByteArrayView whole = bytes.first(atEnd ? bytes.size() : wholeCharacters(bytes));
    m_cut = bytes.sliced(whole.size()).toByteArray();
    if (whole.isValidUtf8())
        return whole;
    m_decoded = m_decoder->decode(whole).toUtf8();
    return m_decoded;
}

TidySource::Found MarcXmlSource::found(XmlParser::State state) {
    m_paused = state == XmlParser::State::Paused;
    switch (state) {
    case XmlParser::State::WantsMore:
        return Found::NotYet;
    case XmlParser::State::Ended:
        return Found::End;
    case XmlParser::State::Failed:
        m_broken = m_xml.fault();
        return Found::End;
    case XmlParser::State::Paused:
        break;
    }
    if (!m_elements.why().isEmpty())
        return Found::Unreadable;
    m_elements.toFields(m_record);
    if (m_decoder->damaged() > 0)
        m_damaged += m_elements.data().toByteArray().count(replacement);
    return Found::Record;
}

} // namespace tidy
