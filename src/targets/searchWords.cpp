#include "targets/searchWords.h"
#include "targets/wire.h"

using namespace Qt::StringLiterals;
using Stage = targets::Progress::Stage;

namespace targets {

namespace {

struct Totals {
    qint64 records = 0;
    qint64 unreadable = 0;
    int active = 0;
    int failed = 0;
    int more = 0; // targets that have more records than were fetched
};

Totals totalsOf(const Search &search) {
    Totals totals;
    for (int i = 0; i < search.count(); ++i) {
        const Progress &progress = search.progress(i);
        totals.records += progress.delivered - progress.unreadable;
        totals.unreadable += progress.unreadable;
        totals.active += progress.stage == Stage::Connecting || progress.stage == Stage::Fetching;
        totals.failed += progress.stage == Stage::Failed;
        totals.more += progress.mayGoOn;
    }
    return totals;
}

QString someOf(const QStringList &lines) {
    QString text;
    for (const QString &line : lines.first(std::min<qsizetype>(lines.size(), mostLines)))
        text += u"\r\n" + line;
    return lines.size() > mostLines ? QString(text + u"\r\n……共 %1 条"_s.arg(lines.size())) : text;
}

} // namespace

QString whyNoSearch(const Query &query, const TargetList &chosen) {
    if (!isAvailable())
        return notBuilt().words;
    if (query.isEmpty())
        return u"请先填写要检索的内容：ISBN、题名、责任者……填一项就可以。"_s;
    if (chosen.empty())
        return u"请先在目标列表里勾选要检索的目标（空格键）。没有合适的，按“G 目标…”添加。"_s;
    return {};
}

QString openingWords(const QString &complaint) {
    if (!isAvailable())
        return notBuilt().words;
    return complaint.isEmpty() ? u"填好要检索的内容，勾选目标，按“S 检索”"_s : complaint;
}

QString captionOf(const Target &target) {
    return target.tested ? target.name : QString(target.name + u"（"_s + untested + u"）");
}

QString searchWords(const Search &search) {
    const Totals totals = totalsOf(search);
    QString words = u"已取 %1 条"_s.arg(totals.records);
    if (totals.unreadable > 0)
        words += u"，另有 %1 条读不懂"_s.arg(totals.unreadable);
    if (totals.active > 0)
        words += u"；还有 %1 个目标没有答完"_s.arg(totals.active);
    if (totals.failed > 0)
        words += u"；%1 个目标没有查成"_s.arg(totals.failed);
    if (totals.more > 0 && totals.active == 0)
        words += u"；%1 个目标还有，按“M 接着取”"_s.arg(totals.more);
    return words;
}

QString adviceAfter(const Search &search) {
    const Totals totals = totalsOf(search);
    if (totals.failed == search.count())
        return u"目标都没有查成，原因写在目标列表里。"_s;
    if (totals.unreadable > 0 && totals.records == 0)
        return u"查到的都读不懂：请在“G 目标…”里换一种记录格式。"_s;
    if (totals.records == 0)
        return u"没有找到：少填几项，题名少写几个字，或者换一项再查。汉字查不到、ISBN 查得到的，在“G 目标…”里换检索词的编码。"_s;
    return {};
}

QString takenWords(const TakenFile &taken) {
    QString words = u"已写入 %1 条记录：\r\n"_s.arg(taken.written) + taken.path;
    if (!taken.lacking.isEmpty())
        words += u"\r\n\r\nGBK 里没有的字写成了“?”："_s + someOf(taken.lacking);
    if (!taken.refused.isEmpty())
        words += u"\r\n\r\n没有写入的："_s + someOf(taken.refused);
    return words;
}

} // namespace targets
