#include "schema/pattern.h"
#include "support/qtPrinters.h"

using namespace Qt::StringLiterals;
using namespace schema;

TEST(Pattern, MatchesLikeEcmaScript) {
    const struct {
        QString expression, matching, other;
    } rows[] = {
        {u"^[0-9]{3}$"_s, u"123"_s, u"1234"_s},   {u"^[0-9]{3}$"_s, u"000"_s, u"12"_s},
        {u"^[A-C-]x\\.$"_s, u"-x."_s, u"Bxx"_s},  {u"^[^a]$"_s, u"书"_s, u"a"_s},
        {u"^a|b$"_s, u"ax"_s, u"xa"_s},           {u"b"_s, u"abc"_s, u"ac"_s},
        {u"^a.c$"_s, u"a\nc"_s, u"ac"_s},         {u"^\\u4E66$"_s, u"书"_s, u"u4E66"_s},
        {u"^\\u{4e66}\\d$"_s, u"书7"_s, u"书"_s}, {u"^[0-9]{2}-$"_s, u"12-"_s, u"1２-"_s},
        {u"^\\\\u$"_s, u"\\u"_s, u"u"_s},         {u"^(ab)\\1$"_s, u"abab"_s, u"ab"_s},
        {u"^\\d[\\d.]$"_s, u"1."_s, u"1,"_s},     {u"^ [a-z ]{2}$"_s, u"  a"_s, u" ab "_s},
    };
    for (const auto &[expression, matching, other] : rows) {
        const auto pattern = Pattern::compile(expression);
        ASSERT_TRUE(pattern.ok()) << qPrintable(expression);
        EXPECT_EQ(pattern.value().match(matching), Matching::Yes) << qPrintable(expression);
        EXPECT_EQ(pattern.value().match(other), Matching::No) << qPrintable(expression);
    }
}

// Expressions of the simple form against the library's own matching, on every text of up to four of these characters.
TEST(Pattern, MatchesSimpleExpressionsAsTheLibraryDoes) {
    const QString characters = u"ab书图-"_s;
    QStringList texts{QString()};
    for (qsizetype begin = 0, end = 1; texts.last().size() < 4; begin = end, end = texts.size())
        for (qsizetype at = begin; at < end; ++at)
            for (const QChar c : characters)
                texts.append(texts[at] + c);
    for (const char16_t *expression :
         {u"图|书", u"^[ab]{2}$|书图", u"b$|^-", u"[a书]{2}b", u"^a|b|图$", u"[图书]", u"a-", u"^书{3}", u"[-a]$",
          u"\\-b", u"a{3}$", u"a|", u"^$|图", u"[^a]b", u"ab?", u"a$b"}) {
        const auto pattern = Pattern::compile(QString::fromUtf16(expression));
        ASSERT_TRUE(pattern.ok());
        const QRegularExpression library(pattern.value().expression());
        for (const QString &text : texts)
            ASSERT_EQ(pattern.value().match(text) == Matching::Yes, library.match(text).hasMatch())
                << qPrintable(library.pattern() + u" in " + text);
    }
}

TEST(Pattern, NamesThePlaceOfAFault) {
    const auto refused = Pattern::compile(u"ab["_s);
    ASSERT_FALSE(refused.ok());
    EXPECT_TRUE(refused.failure().description.contains(u"第4个字符")) << qPrintable(refused.failure().description);
    EXPECT_FALSE(Pattern::compile({}).ok());
    EXPECT_FALSE(Pattern::compile(QString(5000, u'a')).ok());
}

TEST(Pattern, GivesUpAMatchThatTakesTooManySteps) {
    const auto pattern = Pattern::compile(u"^(a+)+$"_s);
    ASSERT_TRUE(pattern.ok());
    EXPECT_EQ(pattern.value().match(QString(QString(22, u'a') + u'b')), Matching::GivenUp);
}
