// The mapping of a record to its database row, and the counts of a run.
#include "import/recordRow.h"
#include "import/importRun.h"
#include "support/qtPrinters.h"
#include "support/recordText.h"

using namespace importing;

namespace {

// Replaces length and start of the record's only field.
QString withDirectory(QString record, const QString &lengthAndStart) {
    return record.replace(24 + 3, 9, lengthAndStart);
}

} // namespace

TEST(RecordRow, TextColumns) {
    const QString fifty = u"题"_s.repeated(50);
    const std::tuple<QString, QString RecordRow::*, QString> cases[] = {
        {u"200=1 $a"_s + fifty + u"名", &RecordRow::bookname, fifty}, // characters, not bytes
        {u"010=  $a"_s + u"'"_s.repeated(14), &RecordRow::isbn,
         u"'"_s.repeated(26)}, // cut before the apostrophes are doubled
        {u"200=1 $a$f$a甲$a乙|200=1 $a丙$f著者"_s, &RecordRow::bookname, u"甲"_s}, // the first value that is not empty
        {u"690=  $a$aTP3|690=  $v4$aI24$aK1"_s, &RecordRow::classcode, u"I24"_s},  // ends at the first $a
        {u"606= 0$a$a主题"_s, &RecordRow::ztc, QString()},
        {u"101=0 $a$achi|101=0 $beng$afre"_s, &RecordRow::lagclass, u"fre"_s},
        {u"200=1 $$a甲$"_s, &RecordRow::bookname, u"甲"_s},
        {u"200=1 a甲"_s, &RecordRow::bookname, QString()},
    };
    for (const auto &[fields, column, expected] : cases)
        EXPECT_EQ((*recordRow(recordOf(fields))).*column, expected) << fields.toStdString();
    EXPECT_EQ(recordRow(recordOf({}, u'v'))->docclass, u"善本书"_s);
    EXPECT_EQ(recordRow(recordOf({}, u'h'))->docclass, QString());
    EXPECT_EQ(recordRow(u"00026n"_s)->docclass, QString());
}

TEST(RecordRow, NumberColumnsKeepTheLastRunThatFits) {
    const std::tuple<QString, int, qint64> cases[] = {
        {u"010=  $a7-5004-0001-1$dCNY12.50|215=  $axii, 320页$d20cm"_s, 320, 12},
        {u"215=  $a100页|215=  $a图$a32767页|215=  $a32768页"_s, 32767, 0},
        {u"010=  $d922337203685477|010=  $d922337203685478"_s, 0, 922337203685477},
        {u"010=  $d٣元１２"_s, 0, 0}, // digits of other scripts do not count
    };
    for (const auto &[fields, pages, price] : cases) {
        const auto row = recordRow(recordOf(fields));
        EXPECT_EQ(row->pages, pages);
        EXPECT_EQ(row->price, price);
    }
}

TEST(RecordRow, MisleadingDirectories) {
    const QString record = recordOf(u"200=1 $a书名$f著者"_s);
    EXPECT_EQ(recordRow(record.left(24) + u"2" + record.mid(24)), std::nullopt);
    EXPECT_EQ(recordRow(withDirectory(record, u"x01500000"_s))->bookname, QString()); // read as length 0
    EXPECT_EQ(recordRow(withDirectory(record, u"15xx00000"_s))->bookname, u"书名"_s); // read as its leading number
    EXPECT_EQ(recordRow(withDirectory(record, u"999900000"_s))->author,
              u"著者\x1E"_s); // only the last character is removed
    EXPECT_EQ(recordRow(withDirectory(record, u"001590000"_s))->bookname, QString());
    QString noBase = withDirectory(record, u"001500037"_s);
    EXPECT_EQ(recordRow(noBase.replace(12, 5, u"bases"_s))->bookname, u"书名"_s); // cut from byte 0
    const auto noTerminator = recordRow(u"00026nam0 2200025   450 '"_s);
    EXPECT_EQ(noTerminator->docclass, u"文字资料印刷品"_s);
    EXPECT_EQ(noTerminator->marc, u"00026nam0 2200025   450 ''"_s);

    // A failed cut leaves the bytes of the previous entry, which are then read by the rule of the current tag.
    const QString two = recordOf(u"300=  $a前一个|200=1 $a后一个"_s);
    EXPECT_EQ(recordRow(QString(two).replace(36 + 3, 4, u"-001"_s))->bookname, u"前一个"_s);

    // Many entries for one long field: the amount read stays proportional to the record.
    QString many = recordOf({{u"200"_s, u"1 $f"_s + u"x"_s.repeated(9990)}, {u"210"_s, u"  $a北京"_s}});
    many.insert(24 + 12, many.mid(24, 12).repeated(60)).replace(12, 5, u"00769"_s);
    EXPECT_EQ(recordRow(many)->author, u"x"_s.repeated(30));
    EXPECT_EQ(recordRow(many)->pubplace, QString());
}

TEST(RecordRow, Statement) {
    const QString record = recordOf({{u"010"_s, u"  $a7-5004$d8.00"_s}, {u"200"_s, u"1 $aIt's$f老舍"_s}}, u'm');
    QString doubled = record;
    EXPECT_EQ(
        insertStatement(*recordRow(record)),
        u"insert  taolutable (bookname,author,edition,isbn,pubplace,publisher,pubdate,pages,classcode,books,booksauthor,measure,docclass,ztc,appendix,lagclass,price,marc) values ('It''s','老舍','','7-5004','','','',0,'','','','','多媒体','','','',8,'"_s +
            doubled.replace(u'\'', u"''"_s) + u"')");
}

TEST(ImportRun, CountsAndTexts) {
    const bool results[] = {false, true, false, false, true};
    const QStringList records = {u"a"_s, u"b"_s, {}, u"d"_s, u"e"_s}; // the empty record repeats the previous success
    ImportRun run(5);
    QStringList said;
    while (run.hasNext()) {
        const int at = run.nextRow();
        run.take(records[at], [&](const QString &) { return results[at]; });
        said.append(run.countText().section(u'：', 1) + u' ' + run.percentText());
    }
    EXPECT_EQ(said, (QStringList{u"0 20.00%"_s, u"1 40.00%"_s, u"2 60.00%"_s, u"0 80.00%"_s, u"3 100.00%"_s}));
    EXPECT_EQ(run.closingText(), u"本次成功处理的记录数：3"_s);
}

TEST(ImportRun, PercentageRoundsHalfUp) {
    EXPECT_EQ(percentage(1, 3), u"33.33%"_s);
    EXPECT_EQ(percentage(2, 3), u"66.67%"_s);
    EXPECT_EQ(percentage(1, 800), u"0.13%"_s);
    EXPECT_EQ(percentage(1, 2'000'000'000), u"0.00%"_s);
}
