#include "platform/codepage936.h"
#include <array>
#include <memory>
#include <unicode/ucnv.h>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr uchar firstLead = 0x81;
constexpr uchar lastLead = 0xFE;
constexpr uchar firstTrail = 0x40;
constexpr uchar lastTrail = 0xFE;
constexpr int trails = 256;
constexpr char16_t replacement = 0xFFFD;
constexpr char16_t euroSign = 0x20AC;
constexpr char16_t byteFF = 0xF8F5;

constexpr bool isLead(uchar byte) {
    return byte >= firstLead && byte <= lastLead;
}
constexpr bool isTrail(uchar byte) {
    return byte >= firstTrail && byte <= lastTrail && byte != 0x7F;
}

struct Tables {
    std::array<char16_t, (lastLead - firstLead + 1) * trails> text{}; // by lead and trail byte; 0 if not a valid pair
    std::array<quint16, 0x10000> code{};                              // by character; 0 if it has no code

    char16_t pair(uchar lead, uchar trail) const { return text[size_t((lead - firstLead) * trails + trail)]; }
};

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

Converter openConverter(const char *name, UErrorCode &status) {
    return {ucnv_open(name, &status), ucnv_close};
}

std::unique_ptr<Tables> buildTables() {
    auto tables = std::make_unique<Tables>();
    UErrorCode status = U_ZERO_ERROR;
    const Converter converter = openConverter("windows-936", status);
    for (int lead = firstLead; lead <= lastLead; ++lead) {
        for (int trail = firstTrail; trail <= lastTrail; ++trail) {
            if (!isTrail(uchar(trail)))
                continue;
            const char bytes[2] = {char(lead), char(trail)};
            UChar character[4] = {};
            status = U_ZERO_ERROR;
            // Each of these pairs has a character of its own; those of the user-defined areas are private ones.
            ucnv_toUChars(converter.get(), character, 4, bytes, 2, &status);
            tables->text[size_t((lead - firstLead) * trails + trail)] = character[0];
            tables->code[character[0]] = quint16(lead << 8 | trail);
        }
    }
    for (char16_t ascii = 1; ascii < 0x80; ++ascii)
        tables->code[ascii] = ascii;
    tables->code[euroSign] = 0x80;
    tables->code[byteFF] = 0xFF;
    return tables;
}

const Tables &tables() {
    static const std::unique_ptr<Tables> built = buildTables();
    return *built;
}

} // namespace

Status codePageReady(const char *converter) {
    UErrorCode status = U_ZERO_ERROR;
    if (openConverter(converter, status))
        return success();
    return Failure{u"系统的 ICU 库没有 GBK 字符集（%1，%2），汉字会全部丢失，程序不能运行。"_s.arg(
                       QLatin1StringView(converter), QLatin1StringView(u_errorName(status))),
                   int(status)};
}

QString decode(QByteArrayView bytes) {
    const Tables &table = tables();
    QString text(bytes.size(), Qt::Uninitialized);
    auto *out = reinterpret_cast<char16_t *>(text.data());
    const char16_t *begin = out;
    const auto *in = reinterpret_cast<const uchar *>(bytes.data());
    const uchar *end = in + bytes.size();
    while (in < end) {
        const uchar byte = *in++;
        if (byte < 0x80) {
            *out++ = byte;
        } else if (isLead(byte)) {
            const char16_t character = in < end && isTrail(*in) ? table.pair(byte, *in) : u'\0';
            if (character)
                ++in;
            *out++ = character ? character : replacement;
        } else {
            *out++ = byte == 0x80 ? euroSign : byteFF;
        }
    }
    text.truncate(out - begin);
    return text;
}

char *encodeTo(QStringView text, char *out) {
    const Tables &table = tables();
    for (const QChar unit : text) {
        const char16_t character = unit.unicode();
        const quint16 code = table.code[character];
        if (code > 0xFF) {
            *out++ = char(code >> 8);
            *out++ = char(code & 0xFF);
        } else {
            *out++ = code || !character ? char(code) : '?';
        }
    }
    return out;
}

QByteArray encode(QStringView text) {
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    bytes.truncate(encodeTo(text, bytes.data()) - bytes.constData());
    return bytes;
}

qsizetype gbkLength(QStringView text) {
    const Tables &table = tables();
    qsizetype length = text.size();
    for (const QChar unit : text)
        length += table.code[unit.unicode()] > 0xFF;
    return length;
}

bool isEncodable(QStringView text) {
    const Tables &table = tables();
    for (const QChar unit : text) {
        if (!table.code[unit.unicode()] && unit.unicode())
            return false;
    }
    return true;
}

} // namespace platform
