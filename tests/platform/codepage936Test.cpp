#include "platform/codepage936.h"
#include "support/qtPrinters.h"
#include <set>

using namespace platform;

TEST(Codepage936, ConvertsEachTwoByteCodeThereAndBack) {
    std::set<char16_t> seen;
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            const QByteArray bytes{std::initializer_list<char>{char(lead), char(trail)}.begin(), 2};
            const QString text = decode(bytes);
            if (trail == 0x7F) {
                EXPECT_EQ(text, u"\uFFFD\u007F"_s);
                continue;
            }
            ASSERT_EQ(text.size(), 1) << lead << ' ' << trail;
            EXPECT_EQ(encode(text), bytes);
            EXPECT_TRUE(seen.insert(text[0].unicode()).second) << lead << ' ' << trail;
        }
    }
    EXPECT_EQ(seen.size(), 23'940u);
    EXPECT_FALSE(seen.contains(0xFFFD));
}

TEST(Codepage936, AgreesWithKnownCodes) {
    const std::pair<QByteArray, QString> cases[] = {
        {"a\x7F~", u"a\u007F~"_s},
        {"\xCA\xFD\xBE\xDD\xBF\xE2", u"数据库"_s},
        {"\xA1\xAA\xA1\xA4\xA3\xA4\xA1\xAD", u"—·￥…"_s},
        {"\x81\x40\xFE\x4F", u"丂\uFA29"_s},
        {"\xAA\xA1\xAF\xFE\xF8\xA1\xFE\xFE\xA1\x40\xA7\xA0", u"\uE000\uE233\uE234\uE4C5\uE4C6\uE765"_s}, // user-defined
        {"\x80\xFF", u"€\uF8F5"_s},
        {QByteArray("\0\x1D\x1E\x1F", 4), QString::fromUtf16(u"\0\x1D\x1E\x1F", 4)},
    };
    for (const auto &[bytes, text] : cases) {
        EXPECT_EQ(decode(bytes), text);
        EXPECT_EQ(encode(text), bytes);
        EXPECT_TRUE(isEncodable(text));
        EXPECT_EQ(gbkLength(text), bytes.size());
    }
}

TEST(Codepage936, ReplacesWhatHasNoCode) {
    const std::pair<QByteArray, QString> cases[] = {
        {"\xB0", u"\uFFFD"_s},
        {"\xB0\r\n", u"\uFFFD\r\n"_s},
        {"\xB0\xFF\xB0\xB0\xA1", u"\uFFFD\uF8F5鞍\uFFFD"_s},
        {"\xB0 \xB0\x39\xB0\x40", u"\uFFFD \uFFFD9癅"_s},
        {"\xB0\x80x", u"皜x"_s}, // a valid trail byte, but no lead byte
    };
    for (const auto &[bytes, text] : cases)
        EXPECT_EQ(decode(bytes), text) << bytes.toHex().toStdString();
    EXPECT_EQ(encode(u"aก\uFFFD\U00020000é\u0080"_s), "a????\xA8\xA6?"); // one "?" for each UTF-16 unit
    EXPECT_FALSE(isEncodable(u"ก"));
    EXPECT_EQ(decode(QByteArrayView("\xB0\xA1").first(1)), u"\uFFFD"_s) << "the byte after the text is not part of it";
    EXPECT_TRUE(codePageReady());
    EXPECT_TRUE(codePageReady("no-such-code-page").failure().description.contains(u"（no-such-code-page，"));
}
