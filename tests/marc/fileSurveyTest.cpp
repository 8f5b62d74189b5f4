#include "marc/fileSurvey.h"
#include "marc/directory.h"
#include "marc/recordCutter.h"
#include "marc/recordMaking.h"
#include "support/machine.h"
#include <random>
#include <unicode/ucnv.h>

using namespace marc;

namespace {

// The numbers of records, of damaged directories, and of directories that do not match their fields.
using Counts = std::array<qint64, 3>;

// Counts what the program's own reader reads from a file.
Counts byReading(const QString &path) {
    Counts counted{};
    auto cutter = marc::RecordCutter::open(path);
    while (cutter.value().next()) {
        ++counted[0];
        const bool damaged = viewDirectory(cutter.value().record()).damaged;
        counted[1] += damaged;
        counted[2] += !damaged && !directoryFits(cutter.value().bytes());
    }
    return counted;
}

template <class Facts>
Counts countsOf(const Facts &facts, qint64 records) {
    return {records, facts.damagedDirectories, facts.misfits};
}

QString text(const FactLines &told) {
    QStringList lines;
    for (const FactLine &line : told.lines)
        lines.append(line.text);
    return lines.join(u' ');
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

TEST(FileSurvey, ReportsEncodingLineEndsAndReadableRecords) {
    const QString one = recordOf(u"001=甲|200=10$a数据库原理$f严华著"_s);
    const QString five = one.repeated(5), lines = QString(one + u"\r\n").repeated(5);
    const QString rare = recordOf(u"200=10$a〇𠮷"_s);
    const QByteArray gb18030 = platform::encode(one) + "\x95\x32\xB7\x36\x1E\x1D"; // a four-byte character
    const QByteArray damaged = platform::encode(one).insert(30, '1') + "\r\n" + platform::encode(one);
    const QByteArray shifted = platform::encode(lines).replace("00003\x1E", "00004\x1E");
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
        {wide(QString(one + u'\n').repeated(5), QStringConverter::Utf16LE),
         u"编码：UTF-16 LE"_s + need + u" 行结束符：LF " + few + u" 目次区损坏 1 条", true},
        {wide(QString(one + u'\r').repeated(2) + one + u"\r\n", QStringConverter::Utf16LE),
         u"编码：UTF-16 LE"_s + need + u" 行结束符：混用 记录 3 条 目次区损坏 3 条", true},
        // A line end between two blocks.
        {QByteArray((1 << 18) - 1, 'x') + "\r\n",
         gbk + u" 行结束符：CR LF 记录结束符 0 个，将读出 0 条 文件末尾没有记录结束符，最后一条读不出", true},
        {damaged, gbk + u" 行结束符：CR LF 记录 2 条 目次区损坏 1 条", true},
        {shifted, gbk + u" 行结束符：CR LF 记录 5 条 目次区与字段对不上 5 条，请整理", true},
        {platform::encode(QString(lines + one)).chopped(1),
         gbk + u" 行结束符：CR LF 记录 5 条 文件末尾没有记录结束符，最后一条读不出", true},
        {platform::encode(lines).replace("\x1D", "\x1D\x1D") + "\x1A", gbk + u" 行结束符：CR LF 记录 5 条", false},
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
        EXPECT_EQ(text(told), expected);
        EXPECT_EQ(told.disagree, disagree) << expected.toStdString();
        for (const FactLine &line : told.lines)
            EXPECT_TRUE(line.isWarning || !line.text.contains(QRegularExpression(u"^目次区|没有记录结束符"_s)));
    }
    EXPECT_FALSE(describe({}).lines[2].isWarning) << "an empty file";
    EXPECT_EQ(survey(folder.file(u"f"_s, rare.toUtf8())).encoding, FileEncoding::Utf8);
}

// Returns records with `count` pieces, taken in turn, up to 30 per record. Each piece has one non-ASCII character.
QByteArray recordsWith(int count, const QList<QByteArray> &pieces, QByteArrayView leaderCode = " ") {
    QByteArray file;
    for (int i = 0; i < count;) {
        QByteArray field = "1 \037a";
        for (const int end = std::min(count, i + 30); i < end; ++i)
            field += pieces[i % pieces.size()];
        field += "\x1E";
        const QByteArray size = QByteArray::number(field.size()).rightJustified(4, '0');
        file += "00000nam0" + leaderCode.toByteArray() + "2200037   450 200" + size + "00000\x1E" + field + "\x1D\r\n";
    }
    return file;
}

QByteArray byIcu(const QString &text, const char *converter) {
    QByteArray bytes(4 * text.size(), '\0');
    UErrorCode status = U_ZERO_ERROR;
    UConverter *open = ucnv_open(converter, &status);
    const auto *units = reinterpret_cast<const UChar *>(text.utf16());
    bytes.truncate(ucnv_fromUChars(open, bytes.data(), int(bytes.size()), units, int(text.size()), &status));
    ucnv_close(open);
    EXPECT_TRUE(U_SUCCESS(status)) << converter;
    return bytes;
}

QList<QByteArray> eachByIcu(const QString &words, const char *converter) {
    QList<QByteArray> pieces;
    for (const QString &word : words.split(u'|'))
        pieces.append(byIcu(word, converter));
    return pieces;
}

TEST(FileSurvey, NoEncodingIsTakenForAnotherWithoutAWarning) {
    using enum FileEncoding;
    const QString simplified = u"数|据|库|原|理|与|应|用|程|序|设|计|（|中|国|）|历|史|蜻|蜓"_s;
    const QString traditional = u"國|書|學|資|料|庫|的|歷|史|與|應|用|設|計|圖|館|經|濟|發|展"_s;
    const QString french =
        u"Geneviè|ve, élè|ve à |l'é|cole, Piaf, É|dith; café| et thé|, Besanç|on, Lö|we; Stuttgart "_s.replace(u'à',
                                                                                                               u'a');
    const QString russian = u"В|о|й|н|а| и м|и|р|. Т|о|л|с|т|о|й| Л|е|в"_s;
    // In MARC-8, a combining character precedes its base letter.
    const QList<QByteArray> marc8{"Genevi\341e", "ve, \342el",     "\341eve, \342ecole", " Piaf, \342Edith",
                                  "; caf\342e",  ", Besan\360con", " \261od\262z"};
    const std::tuple<const char *, FileEncoding, QList<QByteArray>, int> rows[] = {
        {"Chinese in UTF-8", Utf8, eachByIcu(simplified, "UTF-8"), 1},
        {"Latin in UTF-8", Utf8, eachByIcu(french, "UTF-8"), 1},
        {"Russian in UTF-8", Utf8, eachByIcu(u"В|о|й|н|а| и м|и|р"_s, "UTF-8"), 30},
        {"simplified in GBK", Gbk, eachByIcu(simplified, "GBK"), 1},
        {"traditional in GBK", Gbk, eachByIcu(traditional, "GBK"), 30},
        {"GB18030", Gb18030, eachByIcu(u"𠮷|数|𠮷|据"_s, "gb18030"), 1},
        {"Big5", Unknown, eachByIcu(traditional, "Big5"), 30},
        {"Latin-1", Unknown, eachByIcu(french, "ISO-8859-1"), 1},
        {"MARC-8", Unknown, marc8, 1},
        {"Chinese in MARC-8", Unknown, {"\x1B$1!9X!5A\x1B(B"}, 1},
        {"code page 866", Unknown, eachByIcu(russian, "ibm-866"), 3},
        {"code page 1251", Unknown, eachByIcu(russian, "windows-1251"), 30},
        {"KOI8-R", Unknown, eachByIcu(russian, "KOI8-R"), 30},
        {"ASCII", Gbk, {"x"}, 1},
    };
    const TestFolder folder;
    for (const auto &[what, encoding, pieces, sureFrom] : rows) {
        for (const int count : {1, 2, 3, 4, 30, 3000}) {
            const FileFacts facts = survey(folder.file(u"f"_s, recordsWith(count, pieces)));
            const FileEncoding found = facts.encoding;
            EXPECT_TRUE(found == encoding || count < sureFrom) << what << ' ' << count;
            EXPECT_TRUE(found == encoding || found == Unknown || facts.doubtful) << what << ' ' << count;
            EXPECT_FALSE(facts.doubtful && count > 15) << what << ' ' << count;
            const FactLine line = describe(facts).lines[0];
            EXPECT_EQ(line.isWarning, found != Gbk || facts.doubtful) << what << ' ' << count;
        }
    }
    // A letter in UTF-8 or a Chinese word in GBK: without an adjacent letter, the declared encoding decides.
    const QList<QByteArray> alone{"\xC3\xB1"};
    EXPECT_EQ(survey(folder.file(u"f"_s, recordsWith(1, alone))).encoding, Gbk);
    EXPECT_EQ(survey(folder.file(u"f"_s, recordsWith(1, alone, "a"))).encoding, Utf8);
    const QString declared = recordOf(QString(u"100=  $a20260101d2026    em y0chiy50      ea|200=1 $añ"_s));
    EXPECT_EQ(survey(folder.file(u"f"_s, declared.toUtf8())).encoding, Utf8);
    EXPECT_EQ(survey(folder.file(u"f"_s, recordsWith(1, alone, "a") + recordsWith(1, alone))).encoding, Gbk);
}

TEST(FileSurvey, CountsWhatTheReaderReadsForAnyDamage) {
    const TestFolder folder;
    QDir samples = QFileInfo(QStringLiteral(SAMPLE_FILE)).dir();
    const QFileInfoList files = samples.entryInfoList({u"*.iso"_s}, QDir::Files) +
                                QDir(samples.filePath(u"damaged"_s)).entryInfoList({u"*.iso"_s}, QDir::Files);
    ASSERT_GT(files.size(), 3);
    for (const QFileInfo &file : files) {
        const FileFacts facts = survey(file.filePath());
        EXPECT_EQ(countsOf(facts, facts.readable), byReading(file.filePath())) << file.fileName().toStdString();
    }
    // Data before the field terminator, examined in pieces that end within characters: the directory is undamaged.
    const QByteArray longHead = 'x' + QByteArray("\xB0\xA1").repeated(300'011) + "\x1E\x1D";
    const QString path = folder.file(u"r"_s, longHead);
    EXPECT_EQ(countsOf(survey(path), survey(path).readable), byReading(path));
    std::mt19937 dice; // the same on every platform
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
        for (qsizetype at = 0; at < bytes.size();) {
            const qsizetype size = std::min<qsizetype>(1 + below(9), bytes.size() - at);
            const QByteArrayView slice = QByteArrayView(bytes).sliced(at, size);
            count.take(slice);
            at += size;
        }
        ASSERT_EQ(countsOf(count, count.records), byReading(folder.file(u"r"_s, bytes)))
            << bytes.toPercentEncoding().toStdString();
    }
}

TEST(FileSurvey, AFileThatChangesOrDisappearsIsReported) {
    const TestFolder folder;
    using Change = std::function<bool(QFile &)>;
    QList<Change> changes{[](QFile &file) { return file.resize(file.size() + 9); },
                          [](QFile &file) { return file.resize(100); }};
    if (removesOpenFiles())
        changes.append([](QFile &file) { return file.remove(); });
    for (const Change &change : std::as_const(changes)) {
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

TEST(FileSurvey, DoesNotBufferALongLine) {
    constexpr qint64 size = 96 << 20;
    const TestFolder folder;
    QFile large(folder.file(u"long.iso"_s, {}));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(size) && large.seek(size));
    ASSERT_TRUE(large.write("\x1d") == 1 && large.flush());
    const qint64 before = peakMemory();
    EXPECT_EQ(survey(large.fileName()).readable, 1);
    EXPECT_LT(peakMemory() - before, size / 4);
}

} // namespace
