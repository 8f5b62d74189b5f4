#include "marc/marcXmlRecord.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

// The records in a text of XML: the fields as "tag=content", or why a record cannot be used.
struct Read {
    QStringList records;
    QByteArrayList unchanged;
    qint64 passedOver = 0;

    explicit Read(const QByteArray &xml, QString *leader = nullptr) {
        MarcXmlRecord record([&] {
            FieldedRecord fields;
            record.toFields(fields);
            if (leader)
                *leader = fields.leader;
            QStringList said;
            for (const Field &field : fields.fields)
                said.append(visible(field.tag + u'=' + field.content));
            records.append(record.why().isEmpty() ? said.join(u' ') : u'!' + record.why());
            unchanged.append(record.asItStood().toByteArray());
        });
        platform::XmlParser parser(record);
        for (qsizetype at = 0; at < xml.size(); at += 1 << 18)
            parser.feed(QByteArrayView(xml).sliced(at).first(std::min<qsizetype>(1 << 18, xml.size() - at)));
        EXPECT_EQ(parser.feed({}), platform::XmlParser::State::Ended) << xml.left(300).toStdString();
        passedOver = record.passedOver();
    }
};

QByteArray field(const QByteArray &inside) {
    return R"(<datafield tag="200" ind1="1" ind2=" ">)" + inside + "</datafield>";
}

QByteArray subfield(const QByteArray &code, const QByteArray &inside) {
    return "<subfield code=\"" + code + "\">" + inside + "</subfield>";
}

} // namespace

TEST(MarcXmlRecord, ARecordThatWouldLoseTextIsRefused) {
    const QByteArray good = field(subfield("a", "甲"));
    const std::pair<QByteArray, QString> rows[] = {
        {good, u"200=1 <a甲"_s},
        {field(""), u"200=1 "_s},
        {R"(<controlfield tag="001"> x </controlfield>)", u"001= x "_s},
        {R"(<datafield tag="CAT">)" + subfield("甲", "乙") + "</datafield>", u"CAT=  <甲乙"_s},
        {field("\n " + subfield(" ", "before") + "\t" + subfield(" ", "&amp;") + "\n"), u"200=1 before< &"_s},
        {field(subfield("1", "\n " + field(subfield("a", "乙")) + " \n") + subfield("1", "")),
         u"200=1 <12001 <a乙<1"_s},
        {field(subfield("1", field(subfield(" ", "乙")) + R"(<controlfield tag="001">x</controlfield>)") + good),
         u"!<datafield> 不该在这里"_s},
        {field(subfield("1", R"(<controlfield tag="001">x</controlfield>)" + field(subfield(" ", "乙")))),
         u"200=1 <1001x2001 < 乙"_s},
        {field("<subfield></subfield>"), u"200=1 <"_s},
        {field("<subfield>甲</subfield>"), u"!字段 200 有没有代码的子字段"_s},
        {field(subfield("", "甲")), u"!字段 200 有没有代码的子字段"_s},
        {field(subfield("ab", "甲")), u"!子字段的代码“ab”不是一个字符"_s},
        {field(subfield("ab", "") + subfield("", "x")), u"!子字段的代码“ab”不是一个字符"_s}, // the first reason
        {field(R"(<subfeild code="a">甲</subfeild>)"), u"!<subfeild> 不该在这里"_s},
        {field("<leader></leader>"), u"!<leader> 不该在这里"_s},
        {subfield("a", "甲"), u"!<subfield> 不该在这里"_s},
        {R"(<datafeild tag="200">)" + subfield("a", "甲") + "</datafeild>", u"!<datafeild> 不该在这里"_s},
        {field("甲"), u"!字段以外有文字"_s},
        {field("").replace("\"1\"", "\"12\""), u"!指示符“12”不是一个字符"_s},
        {field("").replace("\" \"", "\"甲\""), u"200=1甲"_s},
        {field("").replace("200", "2000"), u"!字段标识符“2000”不对"_s},
        {R"(<controlfield tag="001">)" + QByteArray(MarcXmlRecord::longest, 'x') + "</controlfield>", u"!太长"_s},
    };
    for (const auto &[inside, expected] : rows) {
        const QByteArray record = "<record><leader>00000nam0 2200000   450 </leader>" + inside + "</record>";
        const Read read("<collection>text" + record + field("text") + record + "</collection>");
        ASSERT_EQ(read.records, QStringList(2, expected)) << inside.left(300).toStdString();
        EXPECT_TRUE(expected == u"!太长" || read.unchanged[0] == record) << read.unchanged[0].toStdString();
    }
}

TEST(MarcXmlRecord, OtherRecordsArePassedOver) {
    const QByteArray slim = "xmlns='http://www.loc.gov/MARC21/slim'";
    const QByteArray good = field(subfield("a", "甲"));
    const std::tuple<QByteArray, QStringList, int> rows[] = {
        {"<record><header><identifier>x</identifier></header></record>", {}, 1},
        {"<record><header/><metadata><record>" + good + "</record></metadata></record>", {u"200=1 <a甲"_s}, 0},
        {"<record><datafeild>x</datafeild></record>", {}, 1},
        {"<record " + slim + "><datafeild>x</datafeild></record>", {u"!<datafeild> 不该在这里"_s}, 0},
        {"<record xmlns='info:lc/xmlns/marcxchange-v2'>x</record>", {u"!字段以外有文字"_s}, 0},
        {"<record " + slim + "/>", {}, 1},
        {"<record><leader>x</leader></record>", {QString()}, 0},
        {"<record><header>x</header></record><record>" + good + "</record>", {u"200=1 <a甲"_s}, 1},
    };
    for (const auto &[xml, records, passedOver] : rows) {
        const Read read("<list>" + xml + "</list>");
        EXPECT_EQ(read.records, records) << xml.toStdString();
        EXPECT_EQ(read.passedOver, passedOver) << xml.toStdString();
    }
    for (const auto &[text, expected] : {std::pair<QByteArray, QString>{"", u"00000nam0 2200000   450 "_s},
                                         {"00000\tam\x7F 2200000   450x", u"00000 am  2200000   450x"_s},
                                         {"00000cam1 2200000   450x", u"00000cam1 2200000   450x"_s},
                                         {"\n 00000cam1 2200000   450x\n", u"00000cam1 2200000   450x"_s}}) {
        QString leader;
        const Read read("<record><leader>" + text + "</leader>" + good + "</record>", &leader);
        EXPECT_EQ(leader, expected);
    }
}
