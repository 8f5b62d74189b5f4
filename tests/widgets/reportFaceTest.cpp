#include "widgets/reportFace.h"
#include "support/dice.h"
#include "support/qtPrinters.h"
#include <QPrinter>

using namespace widgets;

TEST(ReportFace, WhatIsQuicklySeenToFitDoesFit) {
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
    EXPECT_GT(quick, 100);
}
