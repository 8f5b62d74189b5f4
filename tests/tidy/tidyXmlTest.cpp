#include "tidy/tidying.h"

using namespace tidy;
using files::Folder;

TEST(Tidy, XmlIsReadInBothKindsAndUpToItsBreak) {
    const Folder folder;
    const QByteArray record = R"(<m:record><m:leader>00000nam0 2200000   450 </m:leader>
      <m:controlfield tag="001">x</m:controlfield>
      <m:datafield tag="200" ind1="1" ind2="0"><m:subfield code="a">甲 &amp;
乙</m:subfield></m:datafield>
      <m:datafield tag="461" ind1=" " ind2="0"><m:subfield code="1"><m:datafield tag="200" ind1="1" ind2=" ">
        <m:subfield code="a">丙</m:subfield></m:datafield></m:subfield></m:datafield></m:record>)";
    const QByteArray head = R"(<?xml version="1.0" encoding="UTF-8"?>
<m:collection xmlns:m="info:lc/xmlns/marcxchange-v2">)";
    const QByteArray line = platform::encode(recordOf(u"001=x|200=10$a甲 & 乙|461= 0$12001 $a丙"_s)) + "\r\n";
    const Tidied whole = tidied(folder, head + record + record + "</m:collection>");
    EXPECT_EQ(whole.result.encoding, marc::FileEncoding::MarcXchange);
    EXPECT_EQ(whole.bytes, line + line);
    EXPECT_EQ(folder.names(), QStringList{u"t.iso"_s});
    const QString utf16 = QString::fromUtf8(head + record + "</m:collection>").replace(u"UTF-8"_s, u"UTF-16"_s);
    EXPECT_EQ(tidied(folder, converted(utf16, QStringConverter::Utf16LE)).bytes, line);
    const QString gbk = QString::fromUtf8(head + record + "</m:collection>").replace(u"UTF-8"_s, u"GB2312"_s);
    EXPECT_EQ(tidied(folder, platform::encode(gbk)).bytes, line);
    // Blocks of the file end inside of characters.
    const QString mixed = u"é甲\U00010330"_s.repeated(900);
    for (int shift = 0; shift < 9; ++shift) {
        const QByteArray many = QByteArray(record).replace("丙", mixed.toUtf8()).repeated(12);
        const Tidied cut =
            tidied(folder, head + QByteArray(shift, ' ') + many + "</m:collection>", TargetForm::Utf8Iso);
        EXPECT_EQ(QString::fromUtf8(cut.bytes).count(mixed), 12) << shift;
    }
    const QByteArray wrongTag = QByteArray(record).replace("\"001\"", "\"0001\"");
    EXPECT_EQ(tidied(folder, head + wrongTag + record + "</m:collection>").bytes, line);
    EXPECT_TRUE(folder.read(u"t.bad.xml"_s).contains("丙"));

    const Tidied hurt =
        tidied(folder, head + record + QByteArray(record).replace("丙", "\xE4\xB8") + "</m:collection>");
    EXPECT_EQ(hurt.bytes,
              line + QByteArray(line).replace("\xB1\xFB", "?").replace("00090", "00089").replace("4610014", "4610013"));
    EXPECT_EQ(hurt.result.damagedBytes.records, QList<qint64>{2});
    // The records before the error go to a file of their own, and the target file is unchanged.
    const std::pair<QByteArray, QString> breaks[] = {
        {"</m:collectoin>", u"第 8 行第 3 列：结束标记和开始标记不是一对"_s},
        {"<m:record>", u"第 8 行第 11 列：文件没有完"_s},
        {"\x01<m:record>", u"第 8 行第 1 列"_s}};
    for (const auto &[tail, place] : breaks) {
        folder.write(u"t.iso"_s, "kept");
        const Tidied made = tidied(folder, head + record + "\n" + tail);
        EXPECT_EQ(made.bytes, "kept");
        EXPECT_EQ(folder.read(u"t.part.iso"_s), line);
        EXPECT_TRUE(report(made.result, {}).contains(u"XML 有错，只取出了前面的记录："_s + place))
            << report(made.result, {}).toStdString();
    }
}

TEST(Tidy, XmlThatWouldLoseTextIsSetAside) {
    const auto record = [](const QByteArray &inside) -> QByteArray {
        return "<record><leader>00000nam0 2200000   450 </leader>" + inside + "</record>";
    };
    const auto field = [](const QByteArray &inside) -> QByteArray {
        return R"(<datafield tag="200" ind1="1" ind2=" ">)" + inside + "</datafield>";
    };
    const QByteArray good = record(field(R"(<subfield code="a">甲</subfield>)"));
    const std::pair<QByteArray, QString> rows[] = {
        {record(field("甲")), u"字段以外有文字"_s},
        {"<record><datafeild>甲</datafeild></record>", u"<datafeild> 不该在这里"_s},
        {record(R"(<controlfield tag="001">)" + QByteArray(9 << 20, 'x') + "</controlfield>"), u"太长"_s},
    };
    const Folder folder;
    const QByteArray head = R"(<collection xmlns="http://www.loc.gov/MARC21/slim">)";
    for (const auto &[bad, why] : rows) {
        const Tidied made = tidied(folder, head + good + bad + good + "</collection>");
        ASSERT_EQ(made.result.reasons.size(), 1) << why.toStdString();
        EXPECT_EQ(made.result.reasons[0].first, why);
        EXPECT_EQ(made.result.out, 2) << why.toStdString();
        EXPECT_TRUE(why == u"太长" || folder.read(u"t.bad.xml"_s).contains(bad)) << "unchanged";
        EXPECT_TRUE(folder.read(u"t.bad.xml"_s).endsWith("</record>\n</collection>\n"));
    }
    const Tidied some = tidied(folder, "<list>" + good + "<record/><record xmlns='holdings'/></list>");
    EXPECT_EQ(some.result.out, 1);
    EXPECT_TRUE(report(some.result, {}).contains(u"XML 里有 2 个 record 不是机读目录记录，略过了。"_s));
    for (const QByteArray &none :
         {QByteArray("<collection><record/></collection>"), QByteArray("<record><x></record>")}) {
        TidyRun run1(folder.write(u"source.iso"_s, none), folder.path(u"t.iso"_s), TargetForm::GbkIso);
        EXPECT_TRUE(run(run1).contains(u"里没有机读目录记录"_s));
    }
}

TEST(Tidy, LargeXmlCostsBoundedTimeAndMemory) {
    const Folder folder;
    const QByteArray record = R"(<record><controlfield tag="001">x</controlfield></record>)";
    const QByteArray comment = "<!--" + QByteArray(1 << 20, 'x') + "-->\n";
    EXPECT_EQ(tidied(folder, "<collection>" + record + comment.repeated(66) + record + "</collection>").result.out, 2);
    const QByteArray endless = QByteArray(40 << 20, 'x');
    for (const QByteArray &token : {QByteArray("<!--" + endless + "-->"), QByteArray("<?x " + endless + "?>"),
                                    QByteArray("<x y='" + endless + "'/>")}) {
        const Tidied made = tidied(folder, "<collection>" + record + token + record + "</collection>");
        EXPECT_EQ(made.result.out, 1);
        EXPECT_TRUE(made.result.broken->endsWith(u"：一处太长"_s)) << made.result.broken->toStdString();
    }
    // Text that the reader delivers in pieces is not limited outside of records.
    const Tidied cdata =
        tidied(folder, "<collection>" + record + "<![CDATA[" + endless + "]]>" + record + "</collection>");
    EXPECT_EQ(cdata.result.out, 2);
}
