// Decodes the encodings of record files, by the converters of ICU. Each invalid byte sequence becomes U+FFFD and is
// counted.
#pragma once

#include "platform/result.h"
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

enum class Charset { Gbk, Gb18030, Utf8, Utf16Le, Utf16Be, Big5, Latin1, Marc8 };

class TextDecoder {
public:
    // Fails if ICU lacks the converter.
    static Result<TextDecoder> open(Charset charset);
    static Result<TextDecoder> open(const QByteArray &name); // as declared in XML
    TextDecoder(TextDecoder &&) noexcept;
    TextDecoder &operator=(TextDecoder &&) noexcept;
    ~TextDecoder();

    // Decodes the bytes. With `goesOn` a character that is cut off at their end is kept for the next call, except for
    // Gbk and Marc8; without it the bytes must be complete.
    QString decode(QByteArrayView bytes, bool goesOn = false);
    qint64 damaged() const; // invalid sequences in all calls
    bool isUtf8() const;

private:
    struct State;
    explicit TextDecoder(std::unique_ptr<State> state);
    std::unique_ptr<State> m_state;
};

} // namespace platform
