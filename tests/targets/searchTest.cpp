// Searches of real servers, and of one that misbehaves.
#include "catalogueServers.h"
#include "rogueServer.h"
#include "support/qtPrinters.h"
#include "targets/recordSummary.h"
#include "targets/targetTest.h"
#include <QTest>
#include <ctime>

using namespace targets;
using namespace std::chrono_literals;
using Stage = Progress::Stage;

namespace {

constexpr int longWait = 30'000; // milliseconds; the tests wait for a condition
constexpr Limits shortLimits{400ms, 600ms};

struct Asked {
    explicit Asked(const TargetList &targets, Limits limits = {}, Bounds bounds = {})
        : search(targets, limits, bounds) {
        QObject::connect(&search, &Search::found, [this](int, const Fetched &record) { found.push_back(record); });
        QObject::connect(&search, &Search::unreadable,
                         [this](int, qint64, const QString &why) { unreadable.append(why); });
        QObject::connect(&search, &Search::finished, [this] { ++finished; });
    }
    void untilFinished(const Query &query) {
        search.start(query);
        untilFinished();
    }
    void untilFinished() { // in an event loop, since qWaitFor() sleeps between the events
        QEventLoop loop;
        QObject::connect(&search, &Search::finished, &loop, &QEventLoop::quit);
        QTimer::singleShot(longWait, &loop, [&loop] { loop.exit(1); });
        EXPECT_EQ(finished > 0 ? 0 : loop.exec(), 0);
    }
    const Progress &progress(int index = 0) const { return search.progress(index); }

    Search search;
    std::vector<Fetched> found;
    QStringList unreadable;
    int finished = 0;
};

// The longest time that this thread has worked between two turns of the event loop, in milliseconds of its processor
// time, which other processes do not lengthen.
class LongestTurn {
public:
    LongestTurn() {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            const double now = used();
            longest = std::max(longest, now - m_last);
            m_last = now;
        });
        m_timer.start(0);
    }
    double longest = 0;

private:
    static double used() {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1000 + double(time.tv_nsec) / 1e6;
    }
    QTimer m_timer;
    double m_last = used();
};

Target with(Target target, auto change) {
    change(target);
    return target;
}

} // namespace

TEST(Search, EachTargetGivesTheSameRecords) {
    const std::pair<const char *, Target> ways[] = {
        {"UNIMARC in GB18030", openCatalogue()},
        {"USMARC in UTF-8", openCatalogue(Syntax::Usmarc)},
        {"XML", openCatalogue(Syntax::Xml)},
        {"SRU, CQL", openBySru(QueryLanguage::Cql)},
        {"SRU, PQF", openBySru(QueryLanguage::Pqf)},
        {"a query in GBK", gbkCatalogue()},
        {"with a login", privateCatalogue()},
        {"a declared charset", with(openCatalogue(), [](Target &t) { t.recordCharset = RecordCharset::Gbk; })},
    };
    std::vector<marc::FieldedRecord> first;
    for (const auto &[way, target] : ways) {
        Asked run({target});
        run.untilFinished({.title = u"中国"_s});
        EXPECT_EQ(run.progress().words(), u"已取 27 条，共 27 条"_s) << way;
        std::vector<marc::FieldedRecord> records;
        for (const Fetched &fetched : run.found) {
            EXPECT_EQ(fetched.decoded.damaged, 0) << way;
            records.push_back(fetched.decoded.record);
            records.back().leader.clear(); // each form has lengths of its own
        }
        ASSERT_EQ(records.size(), 27U) << way;
        EXPECT_TRUE(summaryOf(records.front()).title.contains(u"中国")) << way;
        if (first.empty())
            first = records;
        EXPECT_TRUE(records == first) << way;
        run.finished = 0;
        run.untilFinished({.isbn = u"978-7-02-000220-7"_s}); // the catalogue has the ten-digit form
        EXPECT_EQ(run.progress().hits, 3) << way;
    }
}

TEST(Search, AFaultIsReportedInWordsWithoutThePassword) {
    const QString secret = u"Geheim-7"_s;
    const std::tuple<Target, Query, QString> rows[] = {
        {with(gbkCatalogue(), [](Target &t) { t.queryCharset = QueryCharset::Utf8; }),
         {.title = u"红楼梦"_s},
         u"Query term includes characters that do not translate into the target character set（Bib-1 1072）"_s},
        {with(privateCatalogue(), [&](Target &t) { t.password = secret; }),
         {.title = u"红"_s},
         u"用户名或密码不对（Bib-1 1011）：tester"_s},
        {with(openCatalogue(), [](Target &t) { t.database = u"none"_s; }), {.title = u"红"_s}, u"没有这个数据库"_s},
        {with(openCatalogue(), [](Target &t) { t.attributes[1] = u"1=9999"_s; }),
         {.title = u"红"_s},
         u"不支持这个检索属性（Bib-1 114）：9999"_s},
        {with(openCatalogue(), [](Target &t) { t.port = 1; }), {.title = u"红"_s}, u"连不上 127.0.0.1:1/Default"_s},
        {with(openBySru(QueryLanguage::Cql), [](Target &t) { t.attributes[1] = u"dc.none"_s; }),
         {.title = u"红"_s},
         u"不支持这个检索项"_s},
        {gbkCatalogue(), {.title = u"𠮷"_s}, u"“𠮷”里有 GBK 没有的字"_s},
    };
    for (const auto &[target, query, words] : rows) {
        Asked run({target});
        run.untilFinished(query);
        EXPECT_EQ(run.progress().stage, Stage::Failed);
        EXPECT_TRUE(run.progress().fault.contains(words)) << run.progress().fault.toStdString();
        EXPECT_FALSE(run.progress().fault.contains(secret));
        EXPECT_EQ(run.finished, 1);
    }
}

TEST(Search, AServerThatRepeatsThePasswordDoesNotShowIt) {
    const Target target = with(openCatalogue(), [](Target &t) { t.password = u"Geheim-7"_s; });
    const Wire::Error error{.number = 3000, .set = u"Bib-1"_s, .words = u"bad Geheim-7"_s, .addition = u"(Geheim-7)"_s};
    EXPECT_EQ(faultOf(error, target).words, u"服务器答：bad ***（Bib-1 3000）：(***)"_s);
}

// Returns the value of a line of /proc/self/status, in KiB.
qint64 statusOf(const char *line) {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray all = status.readAll();
    return all.mid(all.indexOf(line) + qsizetype(qstrlen(line)), 20).trimmed().split(' ').constFirst().toLongLong();
}

// Resets the peak of the memory; returns the memory in use.
qint64 forgetPeak() {
    QFile peak(u"/proc/self/clear_refs"_s);
    if (peak.open(QIODevice::WriteOnly))
        peak.write("5");
    return statusOf("VmRSS:");
}

TEST(Search, AServerThatMisbehavesCostsNoMoreThanItsLimits) {
    constexpr qint64 mostMemory = 64 << 10; // KiB, also with a sanitizer
    const int real = portOf(u"open"_s);
    const std::tuple<Misconduct, int, bool, QString> rows[] = {
        {Misconduct::Silent, 0, false, u"0.4 秒内没有连上"_s},
        {Misconduct::Silent, 1, false, u"0.6 秒内没有答完"_s},
        {Misconduct::Silent, 2, false, u"0.6 秒内没有答完"_s}, // the records do not arrive
        {Misconduct::Silent, 0, true, u"0.6 秒内没有答完"_s},
        {Misconduct::ClosesAtOnce, 0, false, u"连接就断了"_s},
        {Misconduct::ClosesInTheMiddle, 1, false, u"读不懂"_s},
        {Misconduct::ClosesInTheMiddle, 0, true, u"读不懂"_s},
        {Misconduct::Garbage, 1, false, u"读不懂"_s},
        {Misconduct::Garbage, 0, true, u"读不懂"_s},
        {Misconduct::EndlessBer, 1, false, u"一次应答超过 2 MB"_s},
        {Misconduct::EndlessChunks, 0, true, u"一次应答超过 2 MB"_s},
        {Misconduct::EndlessText, 0, true, u"一次应答超过 2 MB"_s},
        {Misconduct::Trickle, 1, false, u"0.6 秒内没有答完"_s},
        {Misconduct::Trickle, 0, true, u"0.6 秒内没有答完"_s},
    };
    for (const auto &[misconduct, passed, bySru, words] : rows) {
        const RogueServer rogue(misconduct, passed, real);
        Target target = bySru ? openBySru(QueryLanguage::Pqf) : openCatalogue();
        target.port = rogue.port();
        LongestTurn turn;
        const qint64 before = forgetPeak();
        const bool isEndless = words.contains(u"超过");
        Asked run({target}, isEndless ? Limits() : shortLimits);
        run.untilFinished({.title = u"中国"_s}); // more than come with the answer to the search
        EXPECT_EQ(run.progress().stage, Stage::Failed) << int(misconduct) << bySru;
        EXPECT_TRUE(run.progress().fault.contains(words))
            << int(misconduct) << bySru << run.progress().fault.toStdString();
        EXPECT_LT(turn.longest, 50) << int(misconduct) << bySru;
        EXPECT_LT(statusOf("VmHWM:") - before, mostMemory) << int(misconduct) << bySru;
    }
}

// The server sends USMARC in UTF-8 with the answer to a search, and UNIMARC in GB18030 if records are requested.
TEST(Search, RecordsOfAnotherSyntaxAreFetchedAgain) {
    const RogueServer rogue(Misconduct::OtherSyntax, 0, portOf(u"open"_s));
    Asked run({with(openCatalogue(), [&](Target &t) {
        t.port = rogue.port();
        t.recordCharset = RecordCharset::Gbk;
    })});
    for (int round = 1; round <= 2; ++round) {
        run.finished = 0;
        run.untilFinished({.title = u"红楼梦"_s});
        ASSERT_EQ(run.found.size(), size_t(round)) << run.progress().words().toStdString();
        EXPECT_EQ(summaryOf(run.found.back().decoded.record).title, u"红楼梦"_s);
    }
}

TEST(Search, ADeadServerBlocksNothingAndStopEndsItAtOnce) {
    const RogueServer dead(Misconduct::Silent, 0, portOf(u"open"_s));
    Asked run({with(openCatalogue(), [&](Target &t) { t.port = dead.port(); }), openCatalogue()});
    run.search.start({.title = u"红楼梦"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return run.progress(1).stage == Stage::Done; }, longWait));
    EXPECT_EQ(run.progress(0).stage, Stage::Connecting);
    EXPECT_TRUE(run.search.isActive());
    run.search.stop();
    EXPECT_EQ(run.finished, 1);
    EXPECT_EQ(run.progress(0).words(), u"已停止"_s);
    EXPECT_EQ(run.progress(1).words(), u"已取 1 条，共 1 条"_s);
    run.untilFinished({.title = u"石头记"_s}); // and it can be used again
}

TEST(Search, ManyHitsAreFetchedInPortionsUpToTheBounds) {
    Asked run({madeUpRecords()}, {}, {.records = 50});
    run.untilFinished({.words = u"1500"_s});
    EXPECT_EQ(run.progress().words(), u"已取 50 条，共 1500 条"_s);
    ASSERT_TRUE(run.progress().mayGoOn);
    run.finished = 0;
    run.search.fetchMore(0);
    run.untilFinished();
    EXPECT_EQ(run.progress().delivered, 100);
    EXPECT_EQ(run.found.size(), 100U);
    EXPECT_EQ(run.found.back().at, 99);
    Asked bounded({madeUpRecords()}, {}, {.records = 1000, .bytes = 20'000});
    bounded.untilFinished({.words = u"1500"_s});
    EXPECT_TRUE(bounded.progress().fault.contains(u"不再取"_s));
    EXPECT_LT(bounded.progress().bytes, 60'000);
}

TEST(Search, ATestReportsTheServerAndItsAnswer) {
    const std::tuple<Target, bool, QString> rows[] = {
        {openCatalogue(), true, u"服务器：Zebra Information Server/GFS/YAZ"_s},
        {openCatalogue(), true, u"检索 ISBN 7-02-000220-X：3 条；第一条是“红楼梦”"_s},
        {with(openCatalogue(), [](Target &t) { t.recordCharset = RecordCharset::Utf8; }), true, u"请改记录的编码"_s},
        {with(openBySru(QueryLanguage::Pqf), [](Target &t) { t.schema = u"dc"_s; }), true, u"第一条读不懂"_s},
        {with(openCatalogue(), [](Target &t) { t.port = 1; }), false, u"连不上"_s},
    };
    for (const auto &[target, answers, words] : rows) {
        TargetTest test(target, u"7-02-000220-X"_s);
        QEventLoop loop;
        std::optional<bool> answered;
        QObject::connect(&test, &TargetTest::finished, &loop, [&](bool did, const QString &told) {
            answered = did;
            EXPECT_TRUE(told.contains(words)) << told.toStdString();
            loop.quit();
        });
        QTimer::singleShot(longWait, &loop, &QEventLoop::quit);
        test.start();
        loop.exec();
        EXPECT_EQ(answered, answers) << words.toStdString();
    }
}
