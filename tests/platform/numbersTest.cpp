#include "platform/numbers.h"
#include "support/qtPrinters.h"
#include <gtest/gtest.h>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

TEST(Numbers, AreReadByOneRule) {
    struct Case {
        QString text;
        std::optional<double> value;
        std::optional<qint32> whole;
        double leading;
    };
    const std::optional<double> none;
    const Case cases[] = {
        {u"00049"_s, 49.0, 49, 49},
        {u"  -7 "_s, -7.0, -7, -7},
        {u"+.5"_s, 0.5, 0, 0.5}, // a half goes to the even number
        {u"1.5"_s, 1.5, 2, 1.5},
        {u"-2.5"_s, -2.5, -2, -2.5},
        {u"5."_s, 5.0, 5, 5},
        {u"2147483647.5"_s, 2147483647.5, {}, 2147483647.5},
        {u"9999999999"_s, 9999999999.0, {}, 9999999999.0},
        {u"1.2.3"_s, none, {}, 1.2},
        {u"1e5"_s, none, {}, 1},
        {u"12,5"_s, none, {}, 12},
        {u"- 5"_s, none, {}, 0},
        {u"$1"_s, none, {}, 0},
        {u"&H1"_s, none, {}, 0},
        {u"１"_s, none, {}, 0},
        {u"\t1"_s, none, {}, 0},
        {u"."_s, none, {}, 0},
        {u" "_s, none, {}, 0},
        {u""_s, none, {}, 0},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(isNumericText(c.text), c.value.has_value()) << c.text.toStdString();
        EXPECT_EQ(toDouble(c.text), c.value) << c.text.toStdString();
        EXPECT_EQ(toInt32(c.text), c.whole) << c.text.toStdString();
        EXPECT_EQ(leadingNumber(c.text), c.leading) << c.text.toStdString();
    }
    EXPECT_EQ(toDouble(QString(400, u'9')), none);
    EXPECT_EQ(toInt16(u"32767.4"), 32767);
    EXPECT_EQ(toInt16(u"32768"), std::nullopt);
    EXPECT_EQ(toInt16(u"-32768"), -32768);
}

TEST(Numbers, ArePaddedOrLeftOut) {
    EXPECT_EQ(padZero(5, 42), u"00042");
    EXPECT_EQ(padZero(4, 9999), u"9999");
    EXPECT_EQ(padZero(4, 10000), u"");
    EXPECT_EQ(trimBlanks(u"  a \t "), u"a \t");
    EXPECT_EQ(trimBlanks(u"   "), u"");
}

} // namespace
