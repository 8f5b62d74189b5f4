// Text from bytes in the encodings that record files come in, by the machine's own converters. Damaged bytes become
// U+FFFD, one for each sequence that is none, and are counted.
#pragma once

#include "platform/result.h"
#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

enum class Charset { Gbk, Gb18030, Utf8, Utf16Le, Utf16Be, Big5, Latin1, Marc8 };

class TextDecoder {
public:
    // Fails where the machine lacks the converter.
    static Result<TextDecoder> open(Charset charset);
    static Result<TextDecoder> open(const QByteArray &name); // as XML declares it
    TextDecoder(TextDecoder &&) noexcept;
    TextDecoder &operator=(TextDecoder &&) noexcept;
    ~TextDecoder();

    // The text of bytes that are whole in themselves. With `goesOn` a character that is cut at their end is kept for
    // the next call; not with Gbk and Marc8.
    QString decode(QByteArrayView bytes, bool goesOn = false);
    qint64 damaged() const; // sequences, over all calls
    bool isUtf8() const;

private:
    struct State;
    explicit TextDecoder(std::unique_ptr<State> state);
    std::unique_ptr<State> m_state;
};

} // namespace platform
