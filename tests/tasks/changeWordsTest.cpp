#include "tasks/changeWords.h"
#include "support/dice.h"
#include "support/qtPrinters.h"

using namespace Qt::StringLiterals;
using namespace tasks;

namespace {

QString marked(const QString &text, const std::vector<Part> &parts) {
    QString result = text;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        result.insert(part->from + part->size, u']').insert(part->from, u'[');
    return result;
}

QString without(const QString &text, const std::vector<Part> &parts) {
    QString result = text;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        result.remove(part->from, part->size);
    return result;
}

} // namespace

TEST(ChangeWords, DifferencesAreShort) {
    const struct {
        QString before, after;
    } rows[] = {
        {u"#0$a红[：]楼[ ]梦"_s, u"#0$a红[:]楼梦"_s},
        {u"28.00[元]"_s, u"[CNY]28.00"_s},
        {u""_s, u"[新]"_s},
        {u"一样"_s, u"一样"_s},
        {u"字[𠀀]甲[𠀀]"_s, u"字[𠀁]甲[𠀁]"_s},
        {u"[𠀀]字"_s, u"[𡀀]字"_s},
        {u"字[𠀀]甲𠀁"_s, u"字[乙]甲𠀁"_s},
    };
    for (auto [before, after] : rows) {
        const QString wantedBefore = before, wantedAfter = after;
        before.remove(u'[').remove(u']');
        after.remove(u'[').remove(u']');
        const Difference found = difference(before, after);
        EXPECT_EQ(marked(before, found.gone), wantedBefore);
        EXPECT_EQ(marked(after, found.made), wantedAfter);
    }
}

TEST(ChangeWords, AsMuchAsPossibleRemains) {
    const std::tuple<QString, QString, int> rows[] = {
        {u"abcbdab"_s, u"bdcaba"_s, 4}, {u"xaybzc"_s, u"abcw"_s, 3}, {u"aaaab"_s, u"baaaa"_s, 4}};
    for (const auto &[before, after, common] : rows) {
        const Difference found = difference(before, after);
        EXPECT_EQ(without(before, found.gone).size(), common) << before.toStdString();
        EXPECT_EQ(without(after, found.made).size(), common) << before.toStdString();
    }
}

TEST(ChangeWords, TheRestOfBothTextsIsTheSame) {
    Dice dice(5);
    for (int round = 0; round < 500; ++round) {
        const int longest = round % 50 == 0 ? 600 : 12;
        const QString before = dice.text<QString>(u"abc书"_s, longest), after = dice.text<QString>(u"abc书"_s, longest);
        const Difference found = difference(before, after);
        EXPECT_EQ(without(before, found.gone), without(after, found.made));
    }
}

TEST(ChangeWords, ContentsAreShownAsInTheGrid) {
    EXPECT_EQ(shownContent(u"200", u" 1\x1f"
                                   u"a b\x1f"
                                   u"f"_s),
              u"#1$a b$f"_s);
    EXPECT_EQ(shownContent(u"200", u" \x1f"
                                   u"a b"_s),
              u"#$a b"_s)
        << "one indicator";
    EXPECT_EQ(shownContent(u"001", u" 1"_s), u" 1"_s);
    EXPECT_EQ(shownField({.tag = u"300"_s, .toTag = u"330"_s}), u"300→330"_s);
}
