#include "batch/reportTexts.h"
#include "platform/paths.h"
#include <QLocale>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

constexpr size_t tagsShown = 3;
constexpr size_t joinedFrom = 3; // the least number of successive numbers that make a range

QString grouped(qint64 number) {
    return QLocale(QLocale::Chinese, QLocale::China).toString(number);
}

} // namespace

QString recordNumbers(const std::vector<int> &rows, qsizetype most) {
    QString text;
    qsizetype pieces = 0;
    for (size_t i = 0; i < rows.size(); ++pieces) {
        if (pieces == most)
            return text + u" …（共 %1 条）"_s.arg(grouped(qint64(rows.size())));
        size_t last = i;
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1)
            ++last;
        if (last - i + 1 < joinedFrom)
            last = i;
        if (i > 0)
            text += u", ";
        text += QString::number(rows[i] + 1);
        if (last > i)
            text += u'–' + QString::number(rows[last] + 1);
        i = last + 1;
    }
    return text;
}

QString tagsOf(const RuleEntry &entry) {
    std::vector<std::pair<Tag, int>> tags(entry.tags.begin(), entry.tags.end());
    std::ranges::stable_sort(tags, std::ranges::greater(), &std::pair<Tag, int>::second);
    QStringList texts;
    for (size_t i = 0; i < std::min(tags.size(), tagsShown); ++i)
        texts.append(tags[i].first.text());
    return texts.join(u", ") + (tags.size() > tagsShown ? u" 等"_s : QString());
}

QStringView captionOf(schema::Level level) {
    constexpr std::array<QStringView, schema::levelCount> captions = {u"有错误", u"只有警告", u"只有提示"};
    return captions[size_t(level)];
}

QString fileNameOf(const BatchReport &report) {
    const QString &path = report.facts.file;
    return path.sliced(platform::folderOf(path).size());
}

QString momentOf(const BatchReport &report) {
    return report.facts.ended.toString(u"yyyy-MM-dd HH:mm");
}

QString shareOf(int records, const BatchReport &report) {
    const double share = report.facts.proved > 0 ? 100.0 * records / report.facts.proved : 0;
    return u"%1（%2%）"_s.arg(grouped(records), QString::number(share, 'f', 1));
}

QString extentOf(const BatchReport &report) {
    const ProofFacts &facts = report.facts;
    const QString proved = grouped(facts.proved);
    const QString beyond = facts.inFile > facts.proved ? u"，文件里共 %1 条"_s.arg(grouped(facts.inFile)) : QString();
    if (facts.stopped)
        return u"中途停止，只校对了 %1 条"_s.arg(proved) + beyond;
    return beyond.isEmpty() ? u"%1 条"_s.arg(proved) : u"校对了读出的 %1 条"_s.arg(proved) + beyond;
}

QString basisOf(const BatchReport &report) {
    const ProofFacts &facts = report.facts;
    if (facts.schema.isEmpty())
        return u"没有按机读格式的模式检查"_s;
    return facts.schema + (facts.checksOff.isEmpty() ? QString() : u"，没有检查："_s + facts.checksOff.join(u'、'));
}

QString silencedWords(const BatchReport &report) {
    QStringList texts;
    for (const SilencedEntry &entry : report.silenced)
        texts.append(u"%1（%2 处）"_s.arg(entry.label, grouped(entry.remarks)));
    return texts.join(u"、");
}

} // namespace batch
