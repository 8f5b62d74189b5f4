// Reads the titles of a file as pinyin and compares them with their known readings: a title, a tab, its syllables on
// each line. Prints the share of correct syllables and the titles that are read in another way. Usage: readTitles FILE
#include "tasks/pinyin.h"
#include "tools/sourceText.h"
#include <QFile>
#include <cstdio>

using namespace Qt::StringLiterals;

int main(int count, char **arguments) {
    const QString name = count == 2 ? QString::fromLocal8Bit(arguments[1]) : QString();
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return tools::complain(u"readTitles"_s, u"usage: readTitles FILE"_s);
    auto reader = tasks::PinyinReader::open();
    if (!reader)
        return tools::complain(u"readTitles"_s, reader.failure().description);
    int titles = 0, syllables = 0, right = 0, marked = 0, unmarked = 0;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        const QString title = line.section(u'\t', 0, 0);
        const QStringList known = line.section(u'\t', 1).split(u' ');
        const tasks::Pinyin pinyin = reader.value().read(title);
        const QStringList had = pinyin.text.split(u' ');
        ++titles;
        syllables += int(known.size());
        marked += !pinyin.doubt.isEmpty();
        int wrong = 0;
        for (qsizetype i = 0; i < known.size(); ++i)
            wrong += had.value(i) != known[i];
        right += int(known.size()) - wrong;
        unmarked += pinyin.doubt.isEmpty() ? wrong : 0;
        if (wrong > 0)
            std::puts((title + u": " + pinyin.text + u" | " + known.join(u' ') + u" | " + pinyin.doubt).toUtf8());
    }
    std::printf("%d titles, %d syllables, %.2f %% right, %d wrong ones not marked, %d titles marked\n", titles,
                syllables, 100.0 * right / syllables, unmarked, marked);
    return 0;
}
