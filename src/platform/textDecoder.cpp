#include "platform/textDecoder.h"
#include "platform/codepage936.h"
#include "platform/marc8Decoder.h"
#include <QStringConverter>
#include <algorithm>
#include <optional>
#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

const char *converterName(Charset charset) {
    switch (charset) {
    case Charset::Gb18030:
        return "gb18030";
    case Charset::Utf16Le:
        return "UTF-16LE";
    case Charset::Utf16Be:
        return "UTF-16BE";
    case Charset::Big5:
        return "windows-950";
    case Charset::Latin1:
        return "windows-1252"; // a superset, which files labelled Latin-1 use
    case Charset::Gbk:         // codepage936.h has the tables
    case Charset::Marc8:
    case Charset::Utf8:
        break;
    }
    return "UTF-8";
}

// Called by the converter for each invalid sequence.
void replaceDamaged(const void *counter, UConverterToUnicodeArgs *arguments, const char *, int32_t,
                    UConverterCallbackReason reason, UErrorCode *status) {
    if (reason > UCNV_IRREGULAR) // called because the converter is reset, closed or copied
        return;
    ++*static_cast<qint64 *>(const_cast<void *>(counter));
    *status = U_ZERO_ERROR;
    const UChar replacement = QChar::ReplacementCharacter;
    ucnv_cbToUWriteUChars(arguments, &replacement, 1, 0, status);
}

// Returns the text, or std::nullopt if the bytes are not valid UTF-8, which is left to ICU: its converter counts the
// damaged sequences, but takes twice the time.
std::optional<QString> validUtf8(QByteArrayView bytes) {
    using enum QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Stateless | ConvertInitialBom);
    QString text(decoder.requiredSpace(bytes.size()), Qt::Uninitialized);
    text.truncate(decoder.appendToBuffer(text.data(), bytes) - text.constData());
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace

struct TextDecoder::State {
    bool isGbk = false;
    bool isUtf8 = false;
    bool goesOn = false; // the converter may keep a part of a character
    std::unique_ptr<Marc8Decoder> marc8;
    std::unique_ptr<UConverter, decltype(&ucnv_close)> converter{nullptr, ucnv_close};
    qint64 damaged = 0;
};

TextDecoder::TextDecoder(std::unique_ptr<State> state)
    : m_state(std::move(state)) {}
TextDecoder::TextDecoder(TextDecoder &&) noexcept = default;
TextDecoder &TextDecoder::operator=(TextDecoder &&) noexcept = default;
TextDecoder::~TextDecoder() = default;

Result<TextDecoder> TextDecoder::open(Charset charset) {
    if (charset != Charset::Gbk && charset != Charset::Marc8)
        return open(QByteArray(converterName(charset)));
    if (charset == Charset::Marc8 && !Marc8Decoder::isAvailable())
        return Failure{u"本程序编译时没有 YAZ 库，不能读 MARC-8"_s};
    auto state = std::make_unique<State>();
    state->isGbk = charset == Charset::Gbk;
    if (!state->isGbk)
        state->marc8 = std::make_unique<Marc8Decoder>();
    return TextDecoder(std::move(state));
}

Result<TextDecoder> TextDecoder::open(const QByteArray &name) {
    auto state = std::make_unique<State>();
    UErrorCode status = U_ZERO_ERROR;
    state->converter.reset(ucnv_open(name.constData(), &status));
    if (state->converter)
        ucnv_setToUCallBack(state->converter.get(), replaceDamaged, &state->damaged, nullptr, nullptr, &status);
    if (U_FAILURE(status))
        return Failure{
            u"系统的 ICU 库没有字符集 %1（%2）"_s.arg(QLatin1StringView(name), QLatin1StringView(u_errorName(status))),
            int(status)};
    state->isUtf8 = ucnv_getType(state->converter.get()) == UCNV_UTF8;
    return TextDecoder(std::move(state));
}

QString TextDecoder::decode(QByteArrayView bytes, bool goesOn) {
    if (m_state->isGbk) {
        QString text = platform::decode(bytes);
        if (text.contains(QChar::ReplacementCharacter)) // much faster than counting
            m_state->damaged += text.count(QChar::ReplacementCharacter);
        return text;
    }
    if (m_state->marc8) {
        QString text = m_state->marc8->decode(bytes);
        m_state->damaged = m_state->marc8->damaged();
        return text;
    }
    if (m_state->isUtf8 && !goesOn && !m_state->goesOn) {
        if (std::optional<QString> text = validUtf8(bytes))
            return *std::move(text);
    }
    m_state->goesOn = goesOn;
    // No encoding here has fewer bytes than UTF-16 units; the extra units are for bytes kept from the last call.
    constexpr qsizetype kept = 16;
    QString text(bytes.size() + kept, Qt::Uninitialized);
    auto *const begin = reinterpret_cast<UChar *>(text.data());
    UChar *out = begin;
    const char *in = bytes.data();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_toUnicode(m_state->converter.get(), &out, begin + text.size(), &in, in + bytes.size(), nullptr, !goesOn,
                   &status);
    text.truncate(out - begin);
    return text;
}

bool TextDecoder::isUtf8() const {
    return m_state->isUtf8;
}

qint64 TextDecoder::damaged() const {
    return m_state->damaged;
}

} // namespace platform
