// Each damaged sample on the program's own road: read into the list, with a question about each damaged directory.
#include "shippedFiles.h"
#include "workspace/preReadEngine.h"

TEST(DamageFiles, GoThroughTheProgram) {
    // The estimate of lines, the questions, the titles.
    const std::tuple<QString, int, int, QString> rows[] = {
        {u"five"_s, 5, 0, u"红楼梦 三国演义 水浒传 西游记 儒林外史"_s},
        {u"empty"_s, 0, 0, u""_s},
        {u"directory"_s, 3, 1, u"红楼梦  水浒传"_s},
        {u"offsets"_s, 3, 0, u" 三国演义 水浒传"_s},
        {u"numbers"_s, 4, 0, u"红楼梦 红楼梦 红楼梦 西游记"_s}, // no base address: the title before it stays
        {u"noterminator"_s, 3, 0, u"红楼梦 红楼梦 水浒传"_s},
        {u"unfinished"_s, 3, 0, u"红楼梦 三国演义"_s},
        {u"wrapped"_s, 36, 0, u"红楼梦 三国演义 水浒传"_s},
        {u"emptylines"_s, 9, 0, u"红楼梦 三国演义 水浒传"_s},
        {u"oneline"_s, 1, 0, u"红楼梦"_s},
        {u"severalonaline"_s, 3, 0, u"红楼梦 水浒传 西游记"_s},
        {u"linefeeds"_s, 1, 0, u"红楼梦"_s},
        {u"leadbyte"_s, 4, 0, u"红楼梦 三国演义 水浒传"_s},
        {u"nul"_s, 3, 0, u"00楼梦 00楼梦 水浒传"_s}, // "0" for a NUL
        {u"utf8"_s, 3, 0, u"绾㈡ゼ姊? 涓夊浗婕斾箟 姘存祾浼?"_s},
        {u"utf16"_s, 12, 0, u"   "_s},
        {u"longfield"_s, 4, 1, u"红楼梦 附注很长的书  三国演义"_s},
        {u"longrecord"_s, 3, 0, u"红楼梦 附注很长的书 三国演义"_s},
    };
    for (const auto &[file, lines, asked, expected] : rows) {
        const QString path = builtPath(u"samples/"_s + file + u".iso");
        EXPECT_EQ(marc::lineCount(path).value(), lines) << qPrintable(file);
        auto reader = platform::LineReader::open(path);
        ASSERT_TRUE(reader) << qPrintable(path);
        marc::PreReadStore store;
        int questions = 0;
        QStringList titles;
        workspace::readRecords(reader.value(), {}, store,
                               {.yield = [] {},
                                .abandoned = [] { return false; },
                                .stopRequested = [] { return false; },
                                .damaged = [&](const marc::RawRecord &) { ++questions; },
                                .listed = [&](int n) { titles.append(store.title(n - 1).replace(QChar(0), u'0')); }});
        EXPECT_EQ(questions, asked) << qPrintable(file);
        EXPECT_EQ(titles.join(u' '), expected) << qPrintable(file);
    }
}
