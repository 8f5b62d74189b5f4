#include "targets/recordDecoder.h"
#include "marc/isoWriter.h"
#include "platform/codepage936.h"
#include "support/qtPrinters.h"
#include "targets/recordSummary.h"

using namespace targets;

namespace {

marc::FieldedRecord recordWith(const QString &title) {
    return {u"00000nam a2200000   450 "_s,
            {{u"001"_s, u"1"_s}, {u"010"_s, u"  \u001Fa7-02-000220-X"_s}, {u"200"_s, u"1 \u001Fa"_s + title}}};
}

QByteArray iso(const QString &title, marc::IsoEncoding encoding) {
    marc::IsoWriter writer;
    EXPECT_EQ(writer.make(recordWith(title), encoding), QString());
    return writer.bytes().toByteArray();
}

QByteArray xml(const QByteArray &title, const QByteArray &start = {}) {
    return start +
           "<m:record xmlns:m='http://www.loc.gov/MARC21/slim'><m:leader>00000nam a2200000   450 </m:leader>"
           "<m:datafield tag='200' ind1='1' ind2=' '><m:subfield code='a'>" +
           title + "</m:subfield></m:datafield></m:record>";
}

// Returns the title, or "! " and the reason.
QString titleIn(const QByteArray &answer, RecordCharset charset = RecordCharset::Automatic) {
    RecordDecoder decoder(charset);
    const auto decoded = decoder.decode(answer);
    if (!decoded)
        return u"! " + decoded.failure().description;
    return summaryOf(decoded.value().record).title + (decoded.value().damaged > 0 ? u" (damaged)" : u"");
}

} // namespace

TEST(Decoder, AnAnswerIsReadInItsCharset) {
    using marc::IsoEncoding;
    const QString title = u"中国通史简编"_s;
    const QByteArray gbk = iso(title, IsoEncoding::Gbk), utf8 = iso(title, IsoEncoding::Utf8);
    const QByteArray wide = QByteArray(gbk).replace(platform::encode(u"通史"), "\x95\x32\xB7\x36"); // as long in bytes
    const std::tuple<QByteArray, RecordCharset, QString> rows[] = {
        {gbk, RecordCharset::Automatic, title},
        {gbk, RecordCharset::Gbk, title},
        {gbk + "\r\n", RecordCharset::Gbk, title},
        {utf8, RecordCharset::Automatic, title},
        {utf8, RecordCharset::Utf8, title},
        {wide, RecordCharset::Gbk, u"中国𠈒简编"_s},
        {iso(u"plain"_s, IsoEncoding::Gbk), RecordCharset::Automatic, u"plain"_s},
        {iso(u"\u0098Der\u009C Zauberberg\u0088x\u0089"_s, IsoEncoding::Utf8), RecordCharset::Utf8,
         u"Der Zauberbergx"_s},
        {iso(u"a\r\nb"_s, IsoEncoding::Utf8), RecordCharset::Utf8, u"a b"_s},
        {gbk, RecordCharset::Utf8, u"�"_s},
        {xml("红楼梦"), RecordCharset::Automatic, u"红楼梦"_s},
        {xml("红楼梦", "\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-8'?>\n"), RecordCharset::Gbk, u"红楼梦"_s},
        {xml(platform::encode(u"红楼梦"_s)), RecordCharset::Automatic, u"红楼梦"_s},
    };
    for (const auto &[answer, charset, wanted] : rows) {
        const QString read = titleIn(answer, charset);
        EXPECT_TRUE(wanted == u"�"_s ? read.contains(wanted) && read.endsWith(u" (damaged)") : read == wanted)
            << read.toStdString();
    }
}

TEST(Decoder, AnAnswerThatIsNotARecordIsRefusedWithAReason) {
    const std::pair<QByteArray, QString> rows[] = {
        {"", u"! 不是机读目录记录"_s},
        {QByteArray(100, '\x1E'), u"! 不是机读目录记录"_s},
        {"Record not available", u"! 不是机读目录记录"_s},
        {QByteArray((1 << 20) + 1, 'x'), u"! 记录有 1048577 字节，超过 1 MB"_s},
        {iso(u"甲"_s, marc::IsoEncoding::Utf8).first(60), u"! 不是机读目录记录"_s},
        {"<html>Not found", u"! XML 有错"_s},
        {"<dc><title>x</title></dc>", u"! XML 里没有机读目录记录"_s},
        {xml("x").replace("tag='200'", "tag='2000'"), u"! "_s},
        {"<record xmlns='http://www.loc.gov/MARC21/slim'><leader>00000nam a2200000   450 </leader></record>",
         u"! 记录里没有字段"_s},
        {xml("&f;", "<!DOCTYPE r [<!ENTITY f SYSTEM 'file:///etc/passwd'>]>"), u"! XML 里有 DOCTYPE"_s},
    };
    for (const auto &[answer, reason] : rows) {
        const QString read = titleIn(answer);
        EXPECT_TRUE(read.startsWith(reason))
            << answer.first(std::min<qsizetype>(80, answer.size())).toStdString() << ": " << read.toStdString();
    }
}

TEST(Summary, BothFamiliesAreUnderstood) {
    const marc::FieldedRecord marc21{{},
                                     {{u"020"_s, u"  \u001Fa0306406152 (pbk.)\u001Fz9787020002207"_s},
                                      {u"100"_s, u"1 \u001FaMann, Thomas"_s},
                                      {u"245"_s, u"14\u001FaDer Zauberberg /"_s},
                                      {u"264"_s, u" 1\u001FaBerlin :\u001FbFischer,\u001Fc1924"_s}}};
    const Summary summary = summaryOf(marc21);
    EXPECT_EQ(summary.title + u'|' + summary.author + u'|' + summary.publisher + u'|' + summary.year,
              u"Der Zauberberg|Mann, Thomas|Fischer|1924"_s);
    EXPECT_EQ(familyOf(marc21), Family::Marc21);
    EXPECT_EQ(isbnsOf(marc21), (std::vector<marc::IsbnKey>{9780306406157, 9787020002207}));
    EXPECT_EQ(essentialFields(marc21), 4);
    EXPECT_EQ(essentialFields(recordWith(u"甲"_s)), 2);
    EXPECT_EQ(summaryOf(recordWith(u"甲"_s)).isbn, u"7-02-000220-X"_s);
}

TEST(Summary, OfRecordsWithTheIsbnTheMostCompleteIsBetter) {
    const marc::FieldedRecord plain = recordWith(u"甲"_s);
    marc::FieldedRecord full = plain, other = plain;
    full.fields.push_back({u"330"_s, u"  \u001Fa提要"_s});
    other.fields[1].content.replace(u"7-02"_s, u"7-03"_s);
    other.fields.push_back(full.fields.back());
    int best = -1;
    const marc::IsbnKey isbn = marc::isbnKey(u"9787020002207");
    EXPECT_TRUE(isBetter(plain, isbn, best));
    EXPECT_FALSE(isBetter(plain, isbn, best)) << "of equal ones the first";
    EXPECT_FALSE(isBetter(other, isbn, best)) << "another book";
    EXPECT_TRUE(isBetter(full, isbn, best));
    EXPECT_EQ(best, 3);
}
