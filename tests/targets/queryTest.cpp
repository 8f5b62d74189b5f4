#include "targets/query.h"
#include "platform/codepage936.h"
#include "support/qtPrinters.h"
#include "targets/isbnForms.h"

using namespace targets;

namespace {

Target asking(QueryLanguage language, QueryCharset charset = QueryCharset::Utf8) {
    Target target;
    target.queryCharset = charset;
    target.language = language;
    if (language == QueryLanguage::Cql) {
        target.protocol = Protocol::Sru;
        target.attributes = {u"bath.isbn"_s, u"dc.title all"_s, u"dc.creator"_s, {}, u"dc.date"_s, {}};
    }
    return target;
}

QByteArray composed(const Query &query, const Target &target) {
    const auto made = composeQuery(query, target);
    return made ? made.value() : "! " + made.failure().description.toUtf8();
}

} // namespace

TEST(Isbn, EachSpellingIsQueried) {
    const std::pair<QString, QStringList> rows[] = {
        {u"978-7-02-000220-7"_s, {u"9787020002207"_s, u"702000220X"_s, u"978-7-02-000220-7"_s, u"7-02-000220-X"_s}},
        {u"702000220x (精装)"_s, {u"9787020002207"_s, u"702000220X"_s, u"978-7-02-000220-7"_s, u"7-02-000220-X"_s}},
        {u"7 5306 6197 3"_s, {u"9787530661970"_s, u"7530661973"_s, u"978-7-5306-6197-0"_s, u"7-5306-6197-3"_s}},
        {u"9786990000008"_s, {u"9786990000008"_s, u"6990000007"_s}}, // in no range
        {u"0-306-40615-2"_s, {u"9780306406157"_s, u"0306406152"_s, u"978-0-306-40615-7"_s, u"0-306-40615-2"_s}},
        {u"ISBN 979-10-90636-07-1"_s, {u"9791090636071"_s, u"979-10-90636-07-1"_s}}, // has no ten-digit form
        {u"7-02-000220-1 (精装)"_s, {u"7020002201"_s, u"7-02-000220-1"_s}},          // a wrong check digit
        {u"9787020002201"_s, {u"9787020002201"_s}},
        {u" CN11-1234 "_s, {u"CN11-1234"_s}},
        {u"  "_s, {}},
    };
    for (const auto &[text, forms] : rows)
        EXPECT_EQ(isbnForms(text), forms) << text.toStdString();
}

TEST(Query, TermsAreQuotedForTheLanguageAndTheCharset) {
    const Target pqf = asking(QueryLanguage::Pqf), cql = asking(QueryLanguage::Cql);
    const Target gbk = asking(QueryLanguage::Pqf, QueryCharset::Gbk);
    const std::tuple<Query, Target, QByteArray> rows[] = {
        {{.title = u"红楼梦"_s}, pqf, "@attr 1=4 \"红楼梦\""},
        {{.title = u"红楼梦"_s}, gbk, "@attr 1=4 " + platform::encode(u"\"红楼梦\""_s)},
        {{.author = u"曹昞"_s}, gbk, "@attr 1=1003 \"\xB2\xDC\x95\x5C\x5C\""}, // its second byte is a backslash
        {{.title = u"a\"b\\c @and"_s}, pqf, "@attr 1=4 \"a\\\"b\\\\c @and\""},
        {{.title = u"\t红\u200B 楼\u3000\u3000梦\n"_s}, pqf, "@attr 1=4 \"红 楼 梦\""},
        {{.title = u"e\u0301"_s}, pqf, "@attr 1=4 \"é\""},
        {{.title = u"红楼"_s, .author = u"曹"_s, .year = u"1996"_s},
         pqf,
         "@and @and @attr 1=4 \"红楼\" @attr 1=1003 \"曹\" @attr 1=31 \"1996\""},
        {{.isbn = u"9786990000008"_s, .words = u"x"_s},
         pqf,
         "@and @or @attr 1=7 \"9786990000008\" @attr 1=7 \"6990000007\" @attr 1=1016 \"x\""},
        {{.isbn = u"9786990000008"_s, .title = u"梦*?\""_s},
         cql,
         "(bath.isbn = \"9786990000008\" or bath.isbn = \"6990000007\") and dc.title all \"梦\\*\\?\\\"\""},
        {{.publisher = u"人民"_s}, cql, "! 目标“”不能按出版者检索"},
        {{.title = u"𠮷"_s}, gbk, "! 目标“”的检索词用 GBK，“𠮷”里有 GBK 没有的字"},
        {{.title = u" \u200B"_s}, pqf, "! 请输入检索词！"},
    };
    for (const auto &[query, target, wanted] : rows)
        EXPECT_EQ(composed(query, target), wanted);
    Target several = pqf;
    several.attributes[size_t(Use::Title)] = u"1=4 4=1"_s;
    EXPECT_EQ(composed({.title = u"梦"_s}, several), "@attr 1=4 @attr 4=1 \"梦\"");
}
