#include "marc/fileSurvey.h"
#include "marc/directory.h"
#include "marc/recordCutter.h"
#include "marc/recordMaking.h"
#include <QDir>
#include <QStringConverter>
#include <random>
#include <sys/resource.h>

using namespace marc;

namespace {

// What the program's own reader makes of a file: records, and damaged directories among them.
std::pair<qint64, qint64> byReading(const QString &path) {
    std::pair<qint64, qint64> counted;
    auto reader = platform::LineReader::open(path);
    cutRecord(reader.value(), [&](const RawRecord &record) {
        ++counted.first;
        counted.second += viewDirectory(record).damaged;
        return true;
    });
    return counted;
}

FileFacts survey(const QString &path) {
    auto opened = FileSurvey::open(path);
    while (opened.value().step().value()) {
    }
    return opened.value().facts();
}

QByteArray wide(const QString &text, QStringConverter::Encoding encoding) {
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(text);
}

TEST(FileSurvey, TellsEncodingLineEndsAndWhatWillBeRead) {
    const QString one = recordOf(u"001=甲|200=10$a数据库原理$f严华著"_s);
    const QString five = one.repeated(5), lines = QString(one + u"\r\n").repeated(5);
    const QString rare = recordOf(u"200=10$a〇𠮷"_s);
    const QByteArray gb18030 = platform::encode(one) + "\x95\x32\xB7\x36\x1E\x1D"; // a character of four bytes
    const QByteArray damaged = platform::encode(one).insert(30, '1') + "\r\n" + platform::encode(one);
    const QByteArray xml = R"(<?xml version="1.0"?><collection xmlns="%"><record/></collection>)";
    const QString few = u"记录结束符 5 个，将读出 1 条"_s, gbk = u"编码：GBK"_s, need = u"（本程序需要 GBK）"_s;
    const std::tuple<QByteArray, QString, bool> rows[] = {
        {platform::encode(lines), gbk + u" 行结束符：CR LF 记录 5 条", false},
        {platform::encode(one), gbk + u" 行结束符：无 记录 1 条", false},
        {platform::encode(five), gbk + u" 行结束符：无 " + few, true},
        {platform::encode(QString(one + u'\n').repeated(5)), gbk + u" 行结束符：LF " + few, true},
        {platform::encode(QString(one + u'\r').repeated(2)) + platform::encode(one) + "\r\n",
         gbk + u" 行结束符：混用 记录 3 条", false},
        {gb18030, u"编码：GB18030（有四字节字符）"_s + need + u" 行结束符：无 记录结束符 2 个，将读出 1 条", true},
        {five.toUtf8(), u"编码：UTF-8"_s + need + u" 行结束符：无 " + few, true},
        {five.toUtf8().replace("\xE5\xBA", "\xE5"), u"编码：UTF-8"_s + need + u" 行结束符：无 " + few, true},
        {wide(lines, QStringConverter::Utf8),
         u"编码：UTF-8（有 BOM）"_s + need + u" 行结束符：CR LF 记录 5 条 目次区损坏 1 条", true},
        {wide(lines, QStringConverter::Utf16LE),
         u"编码：UTF-16 LE"_s + need + u" 行结束符：CR LF 记录 5 条 目次区损坏 5 条", true},
        {wide(lines, QStringConverter::Utf16BE).mid(2),
         u"编码：UTF-16 BE"_s + need + u" 行结束符：CR LF 记录 5 条 目次区损坏 5 条", true},
        {damaged, gbk + u" 行结束符：CR LF 记录 2 条 目次区损坏 1 条", true},
        {QByteArray(xml).replace("%", "http://www.loc.gov/MARC21/slim"),
         u"编码：MARCXML"_s + need + u" 行结束符：无 记录结束符 0 个，将读出 0 条", true},
        {QByteArray(xml).replace("%", "info:lc/xmlns/marcxchange-v1"),
         u"编码：MarcXchange"_s + need + u" 行结束符：无 记录结束符 0 个，将读出 0 条", true},
        {QByteArray("\x80\xFF\xFF\x80\x1D", 5), u"编码：不明"_s + need + u" 行结束符：无 记录 1 条", true},
        {"", gbk + u" 行结束符：无 记录结束符 0 个，将读出 0 条", false},
    };
    const TestFolder folder;
    for (const auto &[bytes, expected, disagree] : rows) {
        const FactLines told = describe(survey(folder.file(u"f"_s, bytes)));
        EXPECT_EQ(told.lines.join(u' '), expected);
        EXPECT_EQ(told.disagree, disagree) << expected.toStdString();
    }
    EXPECT_EQ(survey(folder.file(u"f"_s, rare.toUtf8())).encoding, FileEncoding::Utf8);
}

TEST(FileSurvey, CountsWhatTheReaderReadsWhateverTheDamage) {
    const TestFolder folder;
    QDir samples = QFileInfo(QStringLiteral(SAMPLE_FILE)).dir();
    const QFileInfoList files = samples.entryInfoList({u"*.iso"_s}, QDir::Files);
    ASSERT_GT(files.size(), 3);
    for (const QFileInfo &file : files) {
        const FileFacts facts = survey(file.filePath());
        EXPECT_EQ(std::pair(facts.readable, facts.damagedDirectories), byReading(file.filePath()))
            << file.fileName().toStdString();
    }
    // A head that is measured piece by piece, with characters across the pieces: a directory that is whole.
    const QByteArray longHead = 'x' + QByteArray("\xB0\xA1").repeated(300'011) + "\x1E\x1D";
    const QString path = folder.file(u"r"_s, longHead);
    EXPECT_EQ(std::pair(survey(path).readable, survey(path).damagedDirectories), byReading(path));
    std::mt19937 dice; // the same on every machine
    const auto below = [&](qsizetype limit) { return qsizetype(dice() % size_t(limit)); };
    const QList<QByteArray> pieces{"\x1D",
                                   "\x1E",
                                   "\r",
                                   "\n",
                                   "\r\n",
                                   "\xB0\xA1",
                                   "\xB0",
                                   "\x80",
                                   "200001200000",
                                   "x",
                                   QByteArray(24, '1'),
                                   QByteArray(23, '1'),
                                   "\xFF",
                                   "\x1F"};
    for (int round = 0; round < 600; ++round) {
        QByteArray bytes;
        for (qsizetype i = below(41); i > 0; --i)
            bytes += pieces[below(pieces.size())];
        ReadableCount count;
        GbkShape gbk[2];
        Utf8Shape utf8[2];
        for (qsizetype at = 0; at < bytes.size();) {
            const qsizetype size = std::min<qsizetype>(1 + below(9), bytes.size() - at);
            const QByteArrayView slice = QByteArrayView(bytes).sliced(at, size);
            count.take(slice);
            gbk[0].take(slice);
            utf8[0].take(slice);
            at += size;
        }
        ASSERT_EQ(std::pair(count.records, count.damagedDirectories), byReading(folder.file(u"r"_s, bytes)))
            << bytes.toPercentEncoding().toStdString();
        gbk[1].take(bytes);
        utf8[1].take(bytes);
        for (const auto part : {&GbkShape::pairs, &GbkShape::fourByteForms, &GbkShape::damaged})
            ASSERT_EQ(gbk[0].*part, gbk[1].*part) << bytes.toPercentEncoding().toStdString();
        for (const auto part : {&Utf8Shape::twoByteForms, &Utf8Shape::longForms, &Utf8Shape::damaged})
            ASSERT_EQ(utf8[0].*part, utf8[1].*part) << bytes.toPercentEncoding().toStdString();
    }
}

TEST(FileSurvey, AFileThatChangesOrGoesIsTold) {
    const TestFolder folder;
    using Change = std::function<bool(QFile &)>;
    for (const Change &change :
         {Change([](QFile &file) { return file.resize(file.size() + 9); }),
          Change([](QFile &file) { return file.resize(100); }), Change([](QFile &file) { return file.remove(); })}) {
        QFile file(folder.file(u"f.iso"_s, QByteArray(FileSurvey::stepSize + 100, 'x')));
        auto survey = FileSurvey::open(file.fileName());
        ASSERT_TRUE(survey.value().step().value());
        ASSERT_TRUE(change(file));
        const auto second = survey.value().step();
        ASSERT_FALSE(second);
        EXPECT_TRUE(second.failure().description.contains(u"f.iso}在读取中"))
            << second.failure().description.toStdString();
    }
    EXPECT_FALSE(FileSurvey::open(folder.path()));
    EXPECT_FALSE(FileSurvey::open(u"/dev/zero"_s));
}

TEST(FileSurvey, HoldsNoLongLine) {
    constexpr qint64 size = 96 << 20;
    const TestFolder folder;
    QFile large(folder.file(u"long.iso"_s, {}));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(size) && large.seek(size));
    ASSERT_TRUE(large.write("\x1d") == 1 && large.flush());
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_SELF, &before);
    EXPECT_EQ(survey(large.fileName()).readable, 1);
    getrusage(RUSAGE_SELF, &after);
    EXPECT_LT((after.ru_maxrss - before.ru_maxrss) << 10, size / 4);
}

} // namespace
