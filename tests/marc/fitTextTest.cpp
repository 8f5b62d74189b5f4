#include "marc/fitText.h"
#include "marc/recordForm.h"
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

TEST(RecordForm, HoldsCharactersAndHasItsLeader) {
    using enum TargetForm;
    const std::tuple<char32_t, bool, bool> rows[] = {
        // in GBK, in XML; ISO 2709 in UTF-8 holds all
        {U'甲', true, true},       {U'𠮷', false, true},      {U'\u0001', true, false}, {U'\u001F', true, true},
        {U'\uFFFE', false, false}, {U'\uFFFF', false, false}, {U' ', true, true},
    };
    for (const auto &[character, gbk, xml] : rows) {
        EXPECT_EQ(canHold(GbkIso, character), gbk) << uint(character);
        EXPECT_EQ(canHold(MarcXml, character), xml) << uint(character);
        EXPECT_TRUE(canHold(Utf8Iso, character));
    }
    const QString leader = u"01234nam0a1100456   4500"_s;
    EXPECT_EQ(leaderFor(GbkIso, leader), u"01234nam0 2200456   450 "_s);
    EXPECT_EQ(leaderFor(Utf8Iso, leader), u"01234nam0a2200456   450 "_s);
    EXPECT_EQ(leaderFor(GbkIso, u"01234nam0 1100456   4500"_s), u"01234nam0 2200456   450 "_s);
}
