// The decoders of record files and the parser of XML.
#include "platform/hanReadings.h"
#include "platform/marc8Decoder.h"
#include "platform/textDecoder.h"
#include "platform/xmlParser.h"
#include "support/qtPrinters.h"

using namespace platform;

namespace {

TEST(TextDecoder, DecodesEachEncodingAndCountsWhatIsDamaged) {
    struct Row {
        Charset charset;
        QByteArray bytes;
        QString text;
        int damaged = 0;
        bool cutOff = true; // a character cut off at the end is kept for the next call
    };
    const Row rows[] = {
        {Charset::Gbk, "\xCA\xFD\xBE\xDD", u"数据"_s, 0, false},
        {Charset::Gbk, "\xCA\xFD\xFD", u"数\uFFFD"_s, 1, false},
        {Charset::Gb18030, "\xCA\xFD\x95\x32\x82\x36", u"数\U00020000"_s},
        {Charset::Utf8, "\xE6\x95\xB0\xFF\xF0\xA0\x80\x80", u"数\uFFFD\U00020000"_s, 1},
        {Charset::Utf16Le, QByteArray("\x70\x65\x00\xDCx\0", 6), u"数\uFFFDx"_s, 1},
        {Charset::Utf16Be, "\x65\x70", u"数"_s},
        {Charset::Big5, "\xBC\xC6\xBC", u"數\uFFFD"_s, 1},
        {Charset::Latin1, "\x80\xE9", u"€é"_s},
        {Charset::Marc8, "\xE2\x65\x1E\xE1", u"é\x1E\uFFFD"_s, 1, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(int(row.charset));
        auto decoder = TextDecoder::open(row.charset);
        ASSERT_TRUE(decoder);
        EXPECT_EQ(decoder.value().decode(row.bytes), row.text);
        EXPECT_EQ(decoder.value().damaged(), row.damaged);
        EXPECT_EQ(decoder.value().isUtf8(), row.charset == Charset::Utf8);
        EXPECT_EQ(decoder.value().decode(row.bytes), row.text);
        EXPECT_EQ(decoder.value().damaged(), 2 * row.damaged) << "of all calls";
        if (!row.cutOff)
            continue;
        QString text; // byte by byte
        for (qsizetype at = 0; at < row.bytes.size(); ++at)
            text += decoder.value().decode(QByteArrayView(row.bytes).sliced(at, 1), at + 1 < row.bytes.size());
        EXPECT_EQ(text, row.text);
    }
    EXPECT_EQ(TextDecoder::open("GBK").value().decode("\xCA\xFD"), u"数"_s);
    EXPECT_TRUE(TextDecoder::open("no-such-charset").failure().description.contains(u"no-such-charset"));
}

TEST(HanReadings, AreSyllablesWithoutTones) {
    auto readings = HanReadings::open();
    ASSERT_TRUE(readings);
    for (int call = 0; call < 2; ++call) // of the table, then of what is known
        for (const auto &[character, reading] : {std::pair(U'中', u"zhong"_s),
                                                 {U'女', u"nü"_s},
                                                 {U'啊', u"a"_s},
                                                 {U'𠀀', u"he"_s},
                                                 {U'Z', u"z"_s},
                                                 {U'Ω', u""_s},
                                                 {U'1', u""_s}})
            EXPECT_EQ(readings.value().of(character), reading) << call << uint(character);
}

TEST(Marc8Decoder, EachSubfieldStartsWithTheDefaultSets) {
    ASSERT_TRUE(Marc8Decoder::isAvailable());
    const std::tuple<QByteArray, QString, int> rows[] = {
        {"plain\x1F\x7F", u"plain\x1F\x7F"_s, 0},
        {"\x1B(NABC", u"абц"_s, 0}, // basic Cyrillic until the next subfield
        {"\x1B(NABC\x1F"
         "aABC\x1D\xE1",
         u"абц\x1F"
         "aABC\x1D\uFFFD"_s,
         1},
        {"\x1B$1\x21\x30\x21", u"一"_s, 0},
        {QByteArray("\xE2\x65").repeated(3000), u"é"_s.repeated(3000), 0},
        {"\xE2", u"\uFFFD"_s, 1}, // a combining mark without its letter
        {"a\xE2\x1E\x62\xE1", u"a\uFFFD\x1E\u0062\uFFFD"_s, 2},
    };
    for (const auto &[bytes, text, damaged] : rows) {
        Marc8Decoder decoder;
        EXPECT_EQ(decoder.decode(bytes), text) << bytes.toPercentEncoding().toStdString();
        EXPECT_EQ(decoder.damaged(), damaged) << bytes.toPercentEncoding().toStdString();
    }
}

// Writes down the calls of the parser, and pauses at an element called "pause".
struct Calls final : XmlHandler {
    XmlParser parser{*this};
    QByteArray said;
    void startElement(const XmlElement &element) override {
        element.appendStartTag(said);
        said += '{' + element.space().toByteArray() + '}' + element.attribute("a").toByteArray();
        if (element.name() == "pause")
            parser.pause();
    }
    void endElement(QByteArrayView name) override { said += "</" + name.toByteArray() + '>'; }
    void text(QByteArrayView text) override { said += text; }
};

TEST(XmlParser, PassesElementsWithoutPrefixesInPiecesOfAnySize) {
    const QByteArray xml = "<?xml version='1.0'?><!-- c --><p:r xmlns:p='urn:x' a='1&quot;&lt;' p:b='2'>t&amp;"
                           "<?i x?><c a=''/><![CDATA[<]]></p:r>";
    const QByteArray expected = "<r a=\"1&quot;&lt;\">{urn:x}1\"<t&<c a=\"\">{}</c><</r>";
    for (const int piece : {1, 2, 7, 1000}) {
        Calls calls;
        for (qsizetype at = 0; at < xml.size(); at += piece)
            EXPECT_EQ(calls.parser.feed(QByteArrayView(xml).sliced(at, std::min<qsizetype>(piece, xml.size() - at))),
                      XmlParser::State::WantsMore);
        EXPECT_EQ(calls.parser.feed({}), XmlParser::State::Ended);
        EXPECT_EQ(calls.said, expected);
    }
    Calls calls;
    EXPECT_EQ(calls.parser.feed("<r><pause/>x</r>"), XmlParser::State::Paused);
    EXPECT_FALSE(calls.said.contains('x'));
    EXPECT_EQ(calls.parser.resume(), XmlParser::State::WantsMore);
    EXPECT_EQ(calls.parser.feed({}), XmlParser::State::Ended);
    EXPECT_TRUE(calls.said.endsWith("x</r>"));
    QByteArray escaped = "=";
    appendEscaped(escaped, "a<b>&\"c\"");
    appendEscaped(escaped, "");
    EXPECT_EQ(escaped, "=a&lt;b&gt;&amp;&quot;c&quot;");
}

TEST(XmlParser, SaysWhereAndWhyItFails) {
    const std::pair<QByteArray, QString> rows[] = {
        {"<a>\n<b></a>", u"第 2 行第 6 列：结束标记和开始标记不是一对"_s},
        {"<a b='1' b='2'/>", u"第 1 行第 10 列：属性重复"_s},
        {"<a/><b/>", u"第 1 行第 5 列：最外层的元素之后还有内容"_s},
        {"<a>&x;</a>", u"第 1 行第 4 列：用了没有定义的实体"_s},
        {"<a>&#0;</a>", u"第 1 行第 4 列：字符引用不对"_s},
        {"<p:a/>", u"第 1 行第 1 列：前缀没有声明"_s},
        {"<a xmlns:xml='x'/>", u"第 1 行第 1 列：XML 有错（38）"_s},
        {" <?xml version='1.0'?><a/>", u"第 1 行第 2 列：XML 声明不在开头"_s},
        {"<a>\x01</a>", u"第 1 行第 4 列：有 XML 不许有的字符，或标记不对"_s},
        {"<a>", u"第 1 行第 4 列：文件没有完"_s},
        {"<!DOCTYPE a SYSTEM 'x' [<!ENTITY % p SYSTEM 'y'>%p;]><a/>", QString()},
    };
    for (const auto &[xml, fault] : rows) {
        Calls calls;
        auto state = calls.parser.feed(xml);
        if (state == XmlParser::State::WantsMore)
            state = calls.parser.feed({});
        EXPECT_EQ(calls.parser.fault(), fault) << xml.toStdString();
        EXPECT_EQ(state == XmlParser::State::Failed, !fault.isEmpty()) << xml.toStdString();
    }
    // Comments and instructions, each shorter than the limit; then one comment that is longer.
    const QByteArray blanks(XmlParser::longestToken / 8, ' ');
    for (const auto &[begin, end, isOne] : {std::tuple(QByteArray("<!--"), QByteArray("-->"), false),
                                            {QByteArray("<?i "), QByteArray("?>"), false},
                                            {QByteArray("<!--"), QByteArray(), true}}) {
        Calls calls;
        XmlParser::State state = calls.parser.feed("<a>");
        for (int part = 0; part < 10 && state != XmlParser::State::Failed; ++part)
            state = calls.parser.feed(QByteArray((part > 0 && isOne ? QByteArray() : begin) + blanks + end));
        EXPECT_EQ(state == XmlParser::State::Failed, isOne);
        EXPECT_EQ(calls.parser.fault().endsWith(u"一处太长"), isOne);
    }
}

} // namespace
