#include "marc/fitText.h"
#include "support/qtPrinters.h"

using namespace marc;

TEST(FitText, GbkKeepsWhatCanBeKept) {
    const std::pair<QStringView, QStringView> rows[] = {
        {u"u\u0308ber, ǚ: u\u0308\u030C", u"über, ǚ: ǚ"}, // composed
        {u"\u2126\u00A0x", u"\u03A9 x"},
        {u"\u0098Die \u009CWelt\u200E 甲\uFE00\U000E0101", u"Die Welt 甲"}, // invisible characters
        {u"n\u0303 ñ", u"n? ?"},
        {u"\uFA0C兀", u"\uFA0C兀"}, // code page 936 distinguishes these two
    };
    for (const auto &[text, expected] : rows) {
        QString fitted = text.toString();
        const qsizetype lost = fitText(TargetForm::GbkIso, fitted).size();
        EXPECT_EQ(fitted, expected.toString());
        EXPECT_EQ(lost, expected.count(u'?'));
        for (const TargetForm form : {TargetForm::Utf8Iso, TargetForm::MarcXml}) {
            QString kept = text.toString();
            EXPECT_TRUE(fitText(form, kept).isEmpty() && kept == text) << kept.toStdString();
        }
    }
}
