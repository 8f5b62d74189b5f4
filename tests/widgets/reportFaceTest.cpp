#include "widgets/reportFace.h"
#include "support/dice.h"
#include "support/qtPrinters.h"
#include <QPrinter>

using namespace widgets;

TEST(ReportFace, WrapsLinesAndLeavesOutInvisibleCharacters) {
    const QPrinter printer(QPrinter::HighResolution);
    const ReportFace face(reportFont(10, QFont::Bold), &printer);
    EXPECT_TRUE(reportFont(10).pointSizeF() == 10 && reportFont(10, QFont::Bold).weight() == QFont::Bold);
    EXPECT_EQ(face.wrapped(u"甲\r\n乙\x1F"
                           u"丙\n丁"_s,
                           10000),
              (QStringList{u"甲"_s, u"乙 丙"_s, u"丁"_s}));
    EXPECT_EQ(face.wrapped(u"x"_s.repeated(2000), 1e6), QStringList{u"x"_s.repeated(2000)});
    EXPECT_EQ(face.wrapped(u"x"_s.repeated(2001), 1e6), QStringList{u"x"_s.repeated(2000) + u'…'});
    EXPECT_GT(face.wrapped(u"书"_s.repeated(100), 2000).size(), 2);
}

TEST(ReportFace, TheFastTestAgreesWithTheLayout) {
    const QPrinter printer(QPrinter::HighResolution);
    ReportFace face(reportFont(10), &printer);
    const QString characters = u"书，AVTofi1 \t\n\u2028\u0301\u200b\u0627\u0644。（㊀"_s;
    Dice dice(1);
    int quick = 0;
    for (int i = 0; i < 5000; ++i) {
        const QString text = dice.text<QString>(characters, 30);
        const double width = 100 + dice.below(4000);
        if (face.surelyOneLine(text, width)) {
            ++quick;
            ASSERT_EQ(face.wrapped(text, width).size(), 1) << text.toStdString() << ' ' << width;
        }
    }
    EXPECT_GT(quick, 300) << "more than the empty ones";
}
