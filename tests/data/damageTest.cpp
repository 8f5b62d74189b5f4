// Passes each damaged sample through the program: list, grid, card, proof, and the mapping to a database row.
#include "card/showKapian.h"
#include "import/recordRow.h"
#include "marc/recordCutter.h"
#include "proof/structuralProof.h"
#include "shippedFiles.h"
#include "workspace/preReadEngine.h"

namespace {

// Returns the results for one record: its title in the list; the number of rows in the grid; the beginning of the card,
// or of the box shown instead; the number of missing and repeated fields; title and pages of the database row.
QString cameOf(const QString &title, const marc::RawRecord &record) {
    static const QRegularExpression quoted(u"“[^”]*”"_s);
    const marc::ShownRecord shown = marc::showRecord(record);
    const card::Card card = card::showKapian(record);
    QString box = card.fault.isEmpty() ? card.boxes.value(0) : card.fault;
    const auto row = importing::recordRow(record);
    return QStringList{title, shown.damaged ? u"坏"_s : QString::number(shown.rows.size()),
                       card.text ? card.text->trimmed().left(6)
                                 : box.remove(quoted).remove(u"【showKapian】"_s).left(7),
                       QString::number(proof::proofFields(shown.rows).size()),
                       row ? row->bookname.left(6) + u'/' + QString::number(row->pages) : u"坏"_s}
        .join(u'|');
}

} // namespace

TEST(DamageFiles, GoThroughTheProgram) {
    const QString one = u"红楼梦|92|红楼梦／(清|0|红楼梦/3"_s;
    const QString two = u"三国演义|72|三国演义／(|0|三国演义/2"_s;
    const QString three = u"水浒传|75|水浒传／(明|0|水浒传/2"_s;
    const QString four = u"西游记|63|西游记／(明|0|西游记/2"_s;
    const QString five = u"儒林外史|66|儒林外史／(|0|儒林外史/543"_s;
    const QString damaged = u"|坏|地址目次区数据|5|坏"_s;
    // Each with its file, the estimated number of lines and the number of questions about damaged directories; then the
    // records.
    const QList<QStringList> rows = {
        {u"five.iso 5 0"_s, one, two, three, four, five},
        {u"empty.iso 0 0"_s},
        {u"directory.iso 3 1"_s, one, damaged, three},
        {u"offsets.iso 3 0"_s, u"|88|字段200没有|0|/3"_s, u"三国演义|106|三国演义／(|0|三国演义/2"_s, three},
        // Without a valid base address, the list keeps the previous title and the rest is cut from the first byte.
        {u"numbers.iso 4 0"_s, u"红楼梦|91|字段210没有|0|红楼梦/3"_s, u"红楼梦|73|7-02-0|0|7-02-0/2"_s,
         u"红楼梦|46|基地址不是数字|0|/0"_s, four},
        {u"noterminator.iso 3 0"_s, one, u"红楼梦|1|没有找到地址目|4|/0"_s, three},
        {u"unfinished.iso 3 0"_s, one, two},
        {u"wrapped.iso 36 0"_s, one, two, three},
        {u"emptylines.iso 9 0"_s, one, two, three},
        {u"oneline.iso 1 0"_s, one},
        {u"severalonaline.iso 3 0"_s, one, three, four},
        {u"linefeeds.iso 1 0"_s, one},
        {u"leadbyte.iso 4 0"_s, one, two, three},
        {u"nulbytes.iso 3 0"_s, QString(one).replace(u"红"_s, QString(2, QChar(0))).replace(u"／(清"_s, u"／("_s),
         QString(2, QChar(0)) + u"楼梦|坏|基地址不是数字|5|坏", three},
        {u"utf8.iso 3 0"_s, u"绾㈡ゼ姊?|65|绾㈡ゼ姊?／|0|绾㈡ゼ姊?/0"_s,
         u"涓夊浗婕斾箟|51|涓夊浗婕斾箟|0|涓夊浗婕斾箟/0"_s, u"姘存祾浼?|53|姘存祾浼?／|0|姘存祾浼?/0"_s},
        {u"utf16.iso 12 0"_s, u"|坏|基地址不是数字|5|坏"_s, u"|坏|基地址不是数字|5|坏"_s, u"|1|基地址不是数字|4|/0"_s,
         u"|坏|基地址不是数字|5|坏"_s},
        {u"longfield.iso 4 1"_s, one, u"附注很长的书|6|附注很长的书|3|附注很长的书/0"_s, damaged, two},
        {u"longrecord.iso 3 0"_s, one, u"附注很长的书|26|附注很长的书|4|附注很长的书/0"_s, two},
    };
    for (const QStringList &row : rows) {
        const QString file = row[0].section(u' ', 0, 0);
        const QString path = builtPath((file == u"five.iso" ? u"samples/"_s : u"samples/damaged/"_s) + file);
        auto cutter = marc::RecordCutter::open(path);
        ASSERT_TRUE(cutter) << qPrintable(path);
        marc::PreReadStore store;
        int questions = 0;
        QStringList records;
        workspace::readRecords(
            cutter.value(), {}, store,
            {.yield = [] {},
             .abandoned = [] { return false; },
             .stopRequested = [] { return false; },
             .damaged = [&](const marc::RawRecord &) { ++questions; },
             .listed = [&](int n) { records.append(cameOf(store.title(n - 1), store.record(n - 1))); }});
        records.prepend(u"%1 %2 %3"_s.arg(file).arg(marc::lineCount(path).value()).arg(questions));
        EXPECT_EQ(records, row);
    }
}
