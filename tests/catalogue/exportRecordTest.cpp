// The exported records, byte by byte and as another reader of exchange files reads them.
#include "catalogue/exportRecord.h"
#include "platform/codepage936.h"
#include "support/qtPrinters.h"

using namespace catalogue;

namespace {

// Returns "200 1 $a书名$f著者" for each field after the control number, read through the directory.
QStringList fieldsOf(const QByteArray &record) {
    const qsizetype base = record.mid(12, 5).toInt();
    const QByteArray directory = record.mid(24, base - 25);
    QStringList fields;
    for (qsizetype at = 12; at + 12 <= directory.size(); at += 12) {
        const QByteArray entry = directory.mid(at, 12);
        QByteArray field = record.mid(base + entry.mid(7, 5).toInt(), entry.mid(3, 4).toInt());
        EXPECT_EQ(field.back(), 0x1E);
        field.chop(1);
        fields.append(QString::fromLatin1(entry.first(3)) + u' ' + platform::decode(field.replace('\x1F', '$')));
    }
    return fields;
}

TEST(ExportRecord, ComposesEveryByte) {
    EXPECT_EQ(exportRecord({.zskid = u"123"_s, .bookname = u"Ŷ红楼梦"_s}), // "?" for what the code page lacks
              QByteArray("00073nam  2200049   450 001001100000200001200011\x1E"
                         "00123hteva\x1E"
                         "1 \x1F"
                         "a?") +
                  platform::encode(u"红楼梦") + "\x1E\x1D");
    EXPECT_TRUE(exportRecord({}).endsWith("\x1E"
                                          "00000hteva\x1E\x1D"));
    // The lengths count eleven bytes for any control number; a field of ten thousand bytes widens its directory entry.
    const QByteArray record =
        exportRecord({.zskid = u"9223372036854775807"_s, .bookname = QString(5000, u'书'), .classcode = u"I"_s});
    EXPECT_EQ(record.first(5).toInt(), record.size() - 14);
    EXPECT_TRUE(record.contains("0010011000002001000500011690000610016\x1E"
                                "9223372036854775807hteva\x1E"));
}

TEST(ExportRecord, HasTheseShapesAndNoOthers) {
    const QString p = u"p"_s, a = u"a"_s, m = u"m"_s;
    const std::pair<CatalogueRow, QStringList> rows[] = {
        {{}, {}},
        {{.isbn = u"7-5"_s, .lagclass = u"chi"_s, .classcode = u" TP3"_s},
         {u"010   $a7-5"_s, u"101   $achi"_s, u"690   $a TP3"_s}},
        {{.bookname = u"书"_s, .author = u"人"_s}, {u"200 1 $a书$f人"_s}},
        {{.author = u"人"_s}, {}},
        {{.publisher = u"社"_s, .pubdate = u"2005"_s}, {u"210   $c社$d2005"_s}},
        {{.pubdate = u"2005"_s}, {u"210   $d2005"_s}},
        {{.publisher = u"社"_s}, {}},
        {{.pages = p, .appendix = a, .measure = m}, {u"215   $ap$ea$dm"_s}},
        {{.appendix = a, .measure = m}, {u"215   $ea$dm"_s}},
        {{.pages = p, .measure = m}, {u"215   $ap$dm"_s}},
        {{.pages = p, .appendix = a}, {u"215   $ap$ea"_s}},
        {{.appendix = a}, {u"215   $ea"_s}},
        {{.pages = p}, {u"215   $ap"_s}},
        {{.measure = m}, {}},
        {{.pubplace = u"北京"_s, .books = u"丛书"_s, .booksauthor = u"编"_s, .edition = u"2版"_s, .ztc = u"词"_s}, {}},
    };
    for (const auto &[row, fields] : rows)
        EXPECT_EQ(fieldsOf(exportRecord(row)), fields);
}

} // namespace
