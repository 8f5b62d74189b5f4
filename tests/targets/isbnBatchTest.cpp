#include "targets/isbnBatch.h"
#include "catalogueServers.h"
#include "support/sampleIsbns.h"
#include "support/testFolder.h"
#include "targets/recordSummary.h"

using namespace targets;
using namespace std::chrono_literals;
using State = Outcome::State;

namespace {

constexpr Politeness atOnce{0ms, 1};

// Two that no catalogue has, and those of the sample records.
QStringList batchIsbns() {
    return QStringList{u"9787999999994"_s, u"7-900000-00-2"_s} + sampleIsbns(QStringLiteral(SAMPLE_FILE));
}

// Runs the batch until it ends, or until it has that many further outcomes.
void run(IsbnBatch &batch, int most = std::numeric_limits<int>::max()) {
    QEventLoop loop;
    QObject::connect(&batch, &IsbnBatch::finished, &loop, [&loop] { loop.exit(0); });
    QObject::connect(&batch, &IsbnBatch::progressed, &loop, [&loop, &most] {
        if (--most == 0)
            loop.exit(0);
    });
    QTimer::singleShot(30s, &loop, [&loop] { loop.exit(1); });
    batch.start();
    EXPECT_EQ(loop.exec(), 0);
    batch.stop();
}

QStringList outcomes(const IsbnBatch &batch) {
    QStringList list;
    for (int row = 0; row < int(batch.isbns().size()); ++row) {
        const Outcome &outcome = batch.outcome(row);
        list.append(QString::number(int(outcome.state)) + outcome.target + summaryOf(outcome.record).isbn);
    }
    return list;
}

} // namespace

TEST(IsbnList, IsbnsAreFoundInColumnsAndLines) {
    const std::tuple<QString, QStringList, int, QStringList> rows[] = {
        {u"7-02-000220-X\r\n 9787020002207 \n\n"_s, {u"7-02-000220-X"_s}, 1, {}},
        {u"\"红楼梦\",\"978-7-02-000220-7\",59.70,2008\n三国,7532574172,1998"_s,
         {u"978-7-02-000220-7"_s, u"7532574172"_s},
         0,
         {}},
        {u"ISBN 7-101-11214-5（精装）；7 5306 6197 3"_s, {u"7-101-11214-5（精装）"_s, u"7 5306 6197 3"_s}, 0, {}},
        {u"9787020002207 7530661973"_s, {u"9787020002207"_s, u"7530661973"_s}, 0, {}},
        {u"电话 010-6512-3456-78"_s, {}, 0, {u"010-6512-3456-78"_s}},
    };
    for (const auto &[text, isbns, repeated, ignored] : rows) {
        const IsbnList list = isbnsIn(text);
        EXPECT_EQ(list.isbns, isbns);
        EXPECT_EQ(list.repeated, repeated) << text.toStdString();
        EXPECT_EQ(list.ignored, ignored);
    }
}

TEST(IsbnBatch, IsbnsThatOneTargetLacksAreLookedUpInTheNext) {
    const TestFolder folder;
    const QStringList isbns = batchIsbns();
    IsbnBatch batch({madeUpRecords(), openCatalogue()}, atOnce); // the first one answers with other books
    ASSERT_TRUE(batch.begin(isbns, folder.path(u"j"_s)));
    run(batch);
    EXPECT_EQ(batch.words(), u"找到 %1，未找到 2"_s.arg(isbns.size() - 2));
    EXPECT_EQ(batch.notFound(), isbns.first(2));
    for (int row = 2; row < int(isbns.size()); ++row) {
        EXPECT_EQ(batch.outcome(row).target, u"open"_s);
        EXPECT_EQ(marc::isbnKey(summaryOf(batch.outcome(row).record).isbn), marc::isbnKey(isbns[row]));
    }
    const auto &red = batch.outcome(int(isbns.indexOf(u"7-02-000220-X"_s))).record;
    EXPECT_GE(essentialFields(red), 13) << "of three records, the most complete one";
    EXPECT_EQ(batch.records().size(), size_t(isbns.size() - 2));
}

TEST(IsbnBatch, ItContinuesAfterAStopAndAfterACrash) {
    const TestFolder folder;
    const QString journal = folder.path(u"j"_s);
    const QStringList isbns = batchIsbns().first(40);
    IsbnBatch whole({openCatalogue()}, atOnce);
    ASSERT_TRUE(whole.begin(isbns, folder.path(u"whole"_s)));
    run(whole);
    {
        IsbnBatch first({openCatalogue()}, atOnce);
        ASSERT_TRUE(first.begin(isbns, journal));
        run(first, 10);
        EXPECT_EQ(first.notAsked().size(), isbns.size() - 10);
        EXPECT_TRUE(first.words().endsWith(u"，未查成 %1"_s.arg(isbns.size() - 10)));
    }
    constexpr auto ofOthers = QFile::ReadGroup | QFile::ReadOther;
    EXPECT_FALSE(QFile::permissions(journal) & ofOthers);
    const QByteArray bytes = folder.read(u"j"_s);
    folder.file(u"j"_s, bytes.chopped(20)); // the crash came while a line was written
    IsbnBatch second({openCatalogue()}, atOnce);
    ASSERT_TRUE(second.resume(journal));
    EXPECT_EQ(second.notAsked().size(), isbns.size() - 9);
    run(second);
    EXPECT_EQ(outcomes(second), outcomes(whole));
    IsbnBatch third({}, atOnce);
    ASSERT_TRUE(third.resume(journal));
    EXPECT_EQ(outcomes(third), outcomes(whole)) << "the journal has all of it";
    run(third); // nothing is left to do
}

TEST(IsbnBatch, ADamagedJournalIsRefusedByItsLine) {
    const TestFolder folder;
    const QByteArray heading = R"({"format":"isbn-batch","version":1,"isbns":["a","b"]})";
    const std::pair<QByteArray, QString> rows[] = {
        {"", u"是空的，不能接着查"_s},
        {"{}\n", u"第 1 行受了损"_s},
        {heading + "\n{\"row\":2}\n", u"第 2 行受了损"_s},
        {heading + "\n{\"row\":1}\n{\"row\"\n", u"第 3 行受了损"_s},
        {heading + "\n{\"row\":0,\"target\":\"t\",\"leader\":\"short\",\"fields\":[]}\n", u"第 2 行受了损"_s},
        {heading + "\n{\"row\":1}\n", {}},
    };
    for (const auto &[bytes, reason] : rows) {
        BatchJournal journal;
        const auto read = journal.resume(folder.file(u"j"_s, bytes));
        EXPECT_EQ(read.ok(), reason.isEmpty());
        EXPECT_TRUE(read || read.failure().description.contains(reason)) << bytes.toStdString();
        EXPECT_EQ(folder.read(u"j"_s), bytes);
    }
}

TEST(IsbnBatch, ATargetThatFailsIsDroppedAndItsIsbnsAreNotMissing) {
    const TestFolder folder;
    Target dead = openCatalogue();
    dead.name = u"dead"_s;
    dead.port = 1;
    const QStringList isbns = batchIsbns().first(8);
    IsbnBatch batch({dead, openCatalogue()}, atOnce);
    QStringList dropped;
    QObject::connect(&batch, &IsbnBatch::targetDropped, [&](const QString &name) { dropped.append(name); });
    ASSERT_TRUE(batch.begin(isbns, folder.path(u"j"_s)));
    run(batch);
    EXPECT_EQ(dropped, QStringList{u"dead"_s});
    EXPECT_EQ(batch.words(), u"找到 6，未找到 0，未查成 2"_s);
    EXPECT_TRUE(batch.outcome(0).why.startsWith(u"dead：连不上"));
    IsbnBatch again({openCatalogue()}, atOnce); // ISBNs that failed are looked up again
    ASSERT_TRUE(again.resume(folder.path(u"j"_s)));
    run(again);
    EXPECT_EQ(again.words(), u"找到 6，未找到 2"_s);
}

TEST(IsbnBatch, ItPausesBetweenTheRequestsOfAConnection) {
    const TestFolder folder;
    IsbnBatch polite({openCatalogue()}, {.pause = 1h, .atOnce = 2});
    ASSERT_TRUE(polite.begin(batchIsbns().first(4), folder.path(u"j"_s)));
    polite.start();
    IsbnBatch other({openCatalogue()}, atOnce);
    ASSERT_TRUE(other.begin(batchIsbns(), folder.path(u"k"_s)));
    run(other);
    EXPECT_EQ(polite.notAsked().size(), 2);
}
