#include "marc/encodingGuess.h"
#include "support/dice.h"
#include "support/qtPrinters.h"
#include <algorithm>
#include <array>

using namespace marc;

namespace {

// A shape's counts, in the order of its members.
using Counts = std::array<qint64, 6>;

Counts countsOf(const GbkShape &shape) {
    return {shape.pairs, shape.usual, shape.seldom, shape.foreign, shape.fourByteForms, shape.damaged};
}
Counts countsOf(const Utf8Shape &shape) {
    return {shape.twoByteForms, shape.longForms, shape.damaged, shape.betweenLetters, shape.nextToLetter, 0};
}

using Unit = std::pair<QByteArray, Counts>;

// Takes random sequences of the units in slices of random size.
template <class Shape>
void expectSums(const std::vector<Unit> &units) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        Dice dice(seed);
        QByteArray bytes;
        Counts expected{};
        for (int i = dice.below(60); i > 0; --i) {
            const auto &[text, counts] = dice.oneOf(units);
            bytes += text;
            std::ranges::transform(expected, counts, expected.begin(), std::plus());
        }
        Shape shape;
        for (QByteArrayView rest(bytes); !rest.isEmpty();) {
            const qsizetype size = std::min<qsizetype>(rest.size(), 1 + dice.below(30));
            shape.take(rest.first(size));
            rest = rest.sliced(size);
        }
        ASSERT_EQ(countsOf(shape), expected) << seed << ' ' << bytes.toPercentEncoding().toStdString();
    }
}

} // namespace

TEST(EncodingShapes, CountEachForm) {
    std::vector<Unit> gbk{{"x", {}}, {"record 2000 ", {}}, {"\x81\x30\x81\x30", {0, 0, 0, 0, 1, 0}}};
    for (const char *pair : {"\xA1\xA1", "\xA3\xFE", "\xB0\xA1", "\xD7\xFE"})
        gbk.push_back({pair, {1, 1}});
    for (const char *pair : {"\xD8\xA1", "\xF7\xFE"})
        gbk.push_back({pair, {1, 0, 1}});
    for (const char *pair : {"\xA1\xA0", "\xA7\x40", "\xA4\xA1", "\xAF\xA1", "\xF8\xA1", "\xFE\xFE"})
        gbk.push_back({pair, {1, 0, 0, 1}});
    for (const char *pair : {"\x81\x40", "\xA2\xA1", "\xA8\x80", "\xA0\xFE", "\xFE\x7E"})
        gbk.push_back({pair, {1}});
    for (const char *damaged : {"\x80", "\xFF", "\xB0 ", "\xB0\x7F", "\xB0\x31 ", "\xB0\x39\xB0 "})
        gbk.push_back({damaged, {0, 0, 0, 0, 0, 1}});
    gbk.push_back({"\x81\x30\xB0\xA1", {1, 1, 0, 0, 0, 1}});
    expectSums<GbkShape>(gbk);

    std::vector<Unit> utf8{{"x", {}}, {" record 2000", {}}, {" \u00E9 ", {1}}, {" \u07FF\u0080 ", {2}}};
    utf8.push_back({" ab\u00E9b", {1, 0, 0, 1}});
    for (const char *oneSide : {" zz\u00E9 ", " \u00E9Z", "\x1Fzx\u00E9\x1F", "\x1Fz\u00E9A"})
        utf8.push_back({oneSide, {1, 0, 0, 0, 1}});
    utf8.push_back({"\x1Fz\u00E9 ", {1}}); // after the code of a subfield
    for (const char *form : {"\u0800", "\u4E2D", "\uD7FF", "\uE000", "\U00010000", "\U0010FFFF"})
        utf8.push_back({form, {0, 1}});
    const QByteArrayList damaged[] = {{"\x80", "\xC3 ", "\xE4\xB8 "}, // by the number of faults
                                      {"\xC1\xBF", "\xF5\x80", "\xE4\xB8\xC3 "},
                                      {"\xE0\x9F\xBF", "\xED\xA0\x80"},
                                      {"\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80"}};
    for (qint64 count = 1; const QByteArrayList &forms : damaged) {
        for (const QByteArray &form : forms)
            utf8.push_back({form, {0, 0, count}});
        ++count;
    }
    expectSums<Utf8Shape>(utf8);
}

TEST(EncodingShapes, LookChineseByTheirShares) {
    using Shares = std::tuple<qint64, qint64, qint64, qint64, qint64>; // pairs, usual, seldom, foreign, damaged
    const std::pair<Shares, bool> rows[] = {
        {{0, 0, 0, 0, 0}, true},    {{0, 0, 0, 0, 1}, false},    {{20, 20, 0, 0, 1}, true},
        {{19, 19, 0, 0, 1}, false}, {{20, 9, 0, 11, 0}, true},   {{20, 8, 0, 11, 0}, false},
        {{100, 20, 0, 2, 0}, true}, {{100, 19, 0, 2, 0}, false}, {{100, 20, 0, 3, 0}, false},
        {{4, 0, 4, 0, 0}, true},    {{5, 0, 5, 0, 0}, false},    {{4, 0, 3, 0, 0}, false},
    };
    for (const auto &[shares, chinese] : rows) {
        GbkShape shape;
        std::tie(shape.pairs, shape.usual, shape.seldom, shape.foreign, shape.damaged) = shares;
        EXPECT_EQ(shape.looksChinese(), chinese) << shape.pairs << ' ' << shape.usual << ' ' << shape.seldom;
    }
}

// Each row has one form more or less than another that is guessed otherwise.
TEST(EncodingGuess, ChangesAtItsThresholds) {
    using enum FileEncoding;
    const auto times = [](const char *form, int count) { return QByteArray(form).repeated(count); };
    const QByteArray big = times("\xB9\xFA ", 2000), wide = QByteArray("2\0", 2).repeated(5);
    const std::tuple<QByteArray, FileEncoding, bool> rows[] = {
        {times("\xB0\xA1 ", 7), Gbk, true},
        {times("\xB0\xA1 ", 8), Gbk, false},
        {times("\u00F1 ", 3), Gbk, true}, // also three pairs
        {times("\u00F1 ", 4), Utf8, true},
        {times("\u00F1 ", 15), Utf8, true},
        {times("\u00F1 ", 16), Utf8, false},
        {times("a\u00F1 ", 3), Utf8, true}, // next to letters
        {times("\u00F1 ", 1) + "a\u00F1 ", Unknown, false},
        {times("a\u00F1a ", 4), Utf8, false},
        {times("\u4E2D ", 1), Utf8, false},
        {times("\u4E2D ", 9) + times("\xFF ", 2), Utf8, false},
        {times("\u4E2D ", 8) + times("\xFF ", 2), Unknown, false},
        {times("\xB0\xA1 ", 1000) + '\x1B', Gbk, false},
        {times("\xB0\xA1 ", 999) + '\x1B', Unknown, false},
        {times("\u4E2D ", 1500) + big, Unknown, false}, // both in one file
        {big + times("\u4E2D ", 1), Gbk, false},
        {"\x81\x30\x81\x30", Gb18030, false},
        {"\x81\x30\x81\x30 \xFF", Unknown, false},
        {"\x81\x30\x81\x30 \xAF\xA1 ", Unknown, false},
        {wide, Utf16Le, false},
        {wide.sliced(1) + '\0', Gbk, false}, // a zero too many
        {'\0' + wide.chopped(1), Utf16Be, false},
        {"<html>", Gbk, false},
        {"\xEF\xBB\xBF\n<x:record>", MarcXml, false},
        {QByteArray("<\0r\0e\0c\0o\0r\0d\0", 14), MarcXml, false},
        {"<MarcXchange>", MarcXchange, false},
    };
    for (int number = 0; const auto &[bytes, encoding, doubtful] : rows) {
        EncodingGuess guess;
        guess.take(bytes);
        if (encoding == MarcXml || encoding == Utf16Le)
            guess.take("\xB0\xA1"); // the beginning is certain
        ++number;
        EXPECT_EQ(guess.guess(), encoding) << number;
        EXPECT_EQ(guess.isDoubtful(), doubtful) << number;
        EXPECT_EQ(guess.isUtf16(), encoding == Utf16Le || encoding == Utf16Be);
    }
}
