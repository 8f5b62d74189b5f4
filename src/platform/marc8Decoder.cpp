#include "platform/marc8Decoder.h"
#include <algorithm>
#ifdef TARVEX_YAZ
#include <yaz/yaz-iconv.h>
#endif

namespace platform {

#ifdef TARVEX_YAZ

namespace {

constexpr char escape = 0x1B;
constexpr QByteArrayView replacement("\xEF\xBF\xBD");

bool isSeparator(char byte) {
    return byte == '\x1D' || byte == '\x1E' || byte == '\x1F';
}

bool isPlain(char byte) {
    return uchar(byte) < 0x80 && byte != escape;
}

} // namespace

struct Marc8Decoder::State {
    std::unique_ptr<yaz_iconv_struct, int (*)(yaz_iconv_t)> converter{yaz_iconv_open("UTF-8", "MARC-8"),
                                                                      yaz_iconv_close};
    qint64 damaged = 0;
    QByteArray utf8;

    void convert(QByteArrayView part);
};

// Converts the bytes between two separators.
void Marc8Decoder::State::convert(QByteArrayView part) {
    constexpr size_t room = 1024;
    char out[room];
    auto *in = const_cast<char *>(part.data());
    size_t left = size_t(part.size());
    const auto step = [&](char **from) {
        char *to = out;
        size_t free = room;
        const size_t done = yaz_iconv(converter.get(), from, from ? &left : nullptr, &to, &free);
        utf8.append(out, to - out);
        return done != size_t(-1) || yaz_iconv_error(converter.get()) == YAZ_ICONV_E2BIG;
    };
    while (left > 0) {
        if (step(&in) || left == 0)
            continue;
        utf8.append(replacement);
        ++damaged;
        ++in;
        --left;
        step(nullptr); // back to the initial state
    }
    step(nullptr);
}

bool Marc8Decoder::isAvailable() {
    return true;
}

Marc8Decoder::Marc8Decoder()
    : m_state(std::make_unique<State>()) {}
Marc8Decoder::~Marc8Decoder() = default;

QString Marc8Decoder::decode(QByteArrayView bytes) {
    if (std::ranges::all_of(bytes, isPlain))
        return QString::fromLatin1(bytes);
    m_state->utf8.truncate(0);
    for (const char *at = bytes.begin(); at != bytes.end();) {
        const char *const end = std::ranges::find_if(at, bytes.end(), isSeparator);
        m_state->convert(QByteArrayView(at, end));
        if (end == bytes.end())
            break;
        m_state->utf8.append(*end);
        at = end + 1;
    }
    return QString::fromUtf8(m_state->utf8).normalized(QString::NormalizationForm_C);
}

qint64 Marc8Decoder::damaged() const {
    return m_state->damaged;
}

#else

struct Marc8Decoder::State {};

bool Marc8Decoder::isAvailable() {
    return false;
}

Marc8Decoder::Marc8Decoder() = default;
Marc8Decoder::~Marc8Decoder() = default;

QString Marc8Decoder::decode(QByteArrayView bytes) {
    return QString::fromLatin1(bytes);
}

qint64 Marc8Decoder::damaged() const {
    return 0;
}

#endif

} // namespace platform
