#include "platform/numbers.h"
#include "platform/boundedExpression.h"
#include "platform/tableSource.h"
#include "support/qtPrinters.h"

using namespace platform;

TEST(BoundedExpression, IsRefusedOrMatchesInBoundedTime) {
    for (const auto &[expression, fault] : {std::pair(u""_s, u"正则表达式为空或太长"_s),
                                            {QString(4001, u'a'), u"正则表达式为空或太长"_s},
                                            {u"ab("_s, u"正则表达式有误，第4个字符："_s},
                                            {QString(4000, u'a'), u""_s}}) {
        const auto compiled = boundedExpression(expression);
        EXPECT_EQ(compiled.ok(), fault.isEmpty());
        EXPECT_TRUE(compiled.ok() || compiled.failure().description.startsWith(fault));
    }
    const std::tuple<QString, QString, bool> rows[] = {
        {uR"(^\u4E00\u{4e8c}$)"_s, u"一二"_s, true},
        {uR"(^\\u4E00$)"_s, uR"(\u4E00)"_s, true}, // a backslash and the letters after it
        {uR"(^\\\u4E00$)"_s, uR"(\一)"_s, true},
        {u"^A$"_s, u"a"_s, true},
        {u"(?:a+)+b|x"_s, u"aax"_s, true},
        {u"(?:a+)+b|x"_s, QString(u"a"_s.repeated(18) + u'x'), false}, // stopped after too many steps
    };
    for (const auto &[expression, text, matches] : rows)
        EXPECT_EQ(
            boundedExpression(expression, QRegularExpression::CaseInsensitiveOption).value().match(text).hasMatch(),
            matches)
            << expression.toStdString();
}

TEST(Numbers, AreReadByOneRule) {
    const std::optional<double> none;
    const std::tuple<QString, std::optional<double>, std::optional<qint32>, double> cases[] = {
        {u"00049"_s, 49.0, 49, 49},
        {u"  -7 "_s, -7.0, -7, -7},
        {u"+.5"_s, 0.5, 0, 0.5}, // halves are rounded to even
        {u"1.5"_s, 1.5, 2, 1.5},
        {u"-2.5"_s, -2.5, -2, -2.5},
        {u"5."_s, 5.0, 5, 5},
        {u"2147483647.5"_s, 2147483647.5, {}, 2147483647.5},
        {u"9999999999"_s, 9999999999.0, {}, 9999999999.0},
        {u"-2147483648"_s, -2147483648.0, std::numeric_limits<qint32>::min(), -2147483648.0},
        {u"-2147483649"_s, -2147483649.0, {}, -2147483649.0},
        {u"4294967297"_s, 4294967297.0, {}, 4294967297.0}, // 1, if it overflowed
        {u"1/"_s, none, {}, 1},
        {u"1:"_s, none, {}, 1},
        {u"1.2.3"_s, none, {}, 1.2},
        {u"1e5"_s, none, {}, 1},
        {u"12,5"_s, none, {}, 12},
    };
    for (const auto &[text, value, whole, leading] : cases) {
        EXPECT_EQ(isNumericText(text), value.has_value()) << text.toStdString();
        EXPECT_EQ(toDouble(text), value) << text.toStdString();
        EXPECT_EQ(toInt32(text), whole) << text.toStdString();
        EXPECT_EQ(leadingNumber(text), leading) << text.toStdString();
    }
    for (const QString &text : {u"- 5"_s, u"$1"_s, u"&H1"_s, u"１"_s, u"\t1"_s, u"."_s, u" "_s, u""_s}) {
        EXPECT_FALSE(isNumericText(text) || toDouble(text) || toInt32(text)) << text.toStdString();
        EXPECT_EQ(leadingNumber(text), 0) << text.toStdString();
    }
    EXPECT_EQ(toDouble(QString(400, u'9')), none);
    EXPECT_EQ(toInt16(u"32767.4"), 32767);
    EXPECT_EQ(toInt16(u"32768"), std::nullopt);
    EXPECT_EQ(toInt16(u"-32768"), -32768);
    EXPECT_EQ(toInt16(u"-32769"), std::nullopt);
    EXPECT_EQ(tabSeparated({u"a\tb"_s, u"c\nd\re"_s, u"f"_s}), u"a b\tc d e\tf");
    EXPECT_EQ(padZero(3, 7) + padZero(2, 99) + padZero(2, 100), u"00799");
}
