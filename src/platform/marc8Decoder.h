// Text from MARC-8, by the YAZ library, where the program was built with it.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

class Marc8Decoder {
public:
    static bool isAvailable();

    Marc8Decoder(); // isAvailable() only
    ~Marc8Decoder();
    Marc8Decoder(const Marc8Decoder &) = delete;
    Marc8Decoder &operator=(const Marc8Decoder &) = delete;

    // Fields, or parts of them: each field and subfield begins with the character sets that it has without escapes.
    // Letters and their marks come composed. Bytes that are none become U+FFFD, one for each, and are counted.
    QString decode(QByteArrayView bytes);
    qint64 damaged() const; // over all calls

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace platform
