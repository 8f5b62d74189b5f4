// Decodes MARC-8 by the YAZ library, if the program was built with it.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <memory>

namespace platform {

class Marc8Decoder {
public:
    static bool isAvailable();

    Marc8Decoder(); // only if isAvailable()
    ~Marc8Decoder();
    Marc8Decoder(const Marc8Decoder &) = delete;
    Marc8Decoder &operator=(const Marc8Decoder &) = delete;

    // Decodes fields, or parts of them: each field and subfield starts with the default character sets. Letters with
    // combining marks are returned composed. Each invalid byte becomes U+FFFD and is counted.
    QString decode(QByteArrayView bytes);
    qint64 damaged() const; // invalid bytes in all calls

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace platform
