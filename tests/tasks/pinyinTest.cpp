// The readings of titles: those of titles.txt, which are known, and those in the sample records.
#include "tasks/pinyin.h"
#include "support/testFolder.h"
#include "taskRows.h"

using namespace tasks;

namespace {

PinyinReader &reader() {
    static PinyinReader opened = PinyinReader::open().value();
    return opened;
}

// Counts syllables that are correct, and those that are correct or marked.
struct Share {
    int all = 0;
    int right = 0;
    int wrongUnmarked = 0;
    int marked = 0; // titles
    QStringList wrong;

    void add(const QString &title, const QString &known, ReadAs as) {
        const Pinyin pinyin = reader().read(title, as);
        const QStringList had = pinyin.text.split(u' '), wanted = known.split(u' ');
        all += int(wanted.size());
        marked += !pinyin.doubt.isEmpty();
        for (qsizetype i = 0; i < wanted.size(); ++i) {
            const bool isRight = had.value(i) == wanted[i];
            right += isRight;
            wrongUnmarked += !isRight && pinyin.doubt.isEmpty();
        }
        if (pinyin.text != known)
            wrong.append(title + u": " + pinyin.text + u" | " + known + u" | " + pinyin.doubt);
    }
    void print() const {
        std::printf("%d syllables, %.1f %% right, %d wrong ones not marked, %d titles marked\n", all, percent(),
                    wrongUnmarked, marked);
    }
    double percent() const { return 100.0 * right / all; }
};

} // namespace

TEST(Pinyin, ReadsTitlesWithKnownReadings) {
    Share share;
    for (const QString &line : linesOf(u"titles.txt"_s)) {
        const QStringList cells = line.split(u'\t');
        if (cells.size() > 1)
            share.add(cells[0], cells[1], cells.value(2) == u"姓名" ? ReadAs::Name : ReadAs::Title);
    }
    share.print();
    EXPECT_GE(share.all, 600);
    EXPECT_GE(share.percent(), 98) << qPrintable(share.wrong.join(u'\n'));
    EXPECT_LE(share.wrongUnmarked, share.all / 200) << qPrintable(share.wrong.join(u'\n'));
}

TEST(Pinyin, AgreesWithThatOfTheSamples) {
    const QRegularExpression pair(u"^(\\d{3}) .*\\$a([^$]+)\\$[9A]([a-zü ]+)"_s);
    Share share;
    const QDir folder(QStringLiteral(SAMPLE_TEXTS));
    for (const QString &name : folder.entryList({u"*.txt"_s})) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
            if (const auto match = pair.match(line); match.hasMatch())
                share.add(match.captured(2), match.captured(3).trimmed(),
                          match.captured(1).startsWith(u'7') ? ReadAs::Name : ReadAs::Title);
        }
    }
    share.print();
    EXPECT_GE(share.percent(), 98) << qPrintable(share.wrong.join(u'\n'));
}

TEST(Pinyin, TakesTheOfficesTableFirst) {
    const TestFolder folder;
    const auto with = [&](const QString &text) { return PinyinReader::open(folder.file(u"w.txt"_s, text.toUtf8())); };
    auto own = with(u"; ours\n传\tchuan\t主\n乐亭\tlao ting\n单\tdan\t姓\n\n"_s);
    ASSERT_TRUE(own.ok());
    EXPECT_EQ(own.value().read(u"小红传乐亭"_s).text, u"xiao hong chuan lao ting"_s);
    EXPECT_EQ(own.value().read(u"小红传"_s).doubt, QString());
    EXPECT_EQ(own.value().read(u"单某"_s, ReadAs::Name).text, u"dan mou"_s);
    EXPECT_EQ(reader().read(u"某某传𠮷"_s).doubt, u"传（zhuan、chuan） 𠮷（没有读音）"_s);
    EXPECT_TRUE(PinyinReader::open(folder.path(u"missing.txt"_s)).ok());
    const QString faults[][2] = {{u"abc\tab"_s, u"第1行：“abc”不是汉字"_s},
                                 {u"传记\tzhuan"_s, u"第1行：“传记”的拼音应有2个音节"_s},
                                 {u";\n传\tZhuan"_s, u"第2行：“Zhuan”不是拼音"_s},
                                 {u"传\tzhuan\t名"_s, u"第1行：第三栏“名”应为"_s}};
    for (const auto &[text, fault] : faults) {
        const auto refused = with(text);
        ASSERT_FALSE(refused.ok()) << qPrintable(text);
        EXPECT_TRUE(refused.failure().description.contains(fault)) << qPrintable(refused.failure().description);
    }
}
