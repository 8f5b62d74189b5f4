#include "tasks/listReport.h"

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr int mostListed = 1000; // records
constexpr QStringView lineEnd = u"\r\n";

QString numbersOf(const std::vector<int> &rows) {
    constexpr size_t most = 10;
    QStringList numbers;
    for (size_t i = 0; i < std::min(rows.size(), most); ++i)
        numbers.append(QString::number(rows[i] + 1));
    return numbers.join(u'、') + (rows.size() > most ? u"……"_s : QString());
}

// The records that the preview refused and those that the run refused, in the order of the list.
QStringList refusedLines(const ChangePreview &preview, const ListHistory &history) {
    QStringList lines;
    const auto add = [&](int row, const QString &why) {
        if (lines.size() < mostListed)
            lines.append(u"　第%1条　%2　%3"_s.arg(row + 1).arg(preview.list().title(row), why));
    };
    for (const auto &[row, why] : preview.refused())
        add(row, why);
    for (const auto &[row, why] : history.refused())
        add(row, why);
    return lines;
}

} // namespace

QString runReport(const ChangePreview &preview, const ListHistory &history, const QString &task,
                  const QStringList &steps, bool stopped) {
    const auto counts = preview.counts();
    const qsizetype refused = counts[preview.refusedAt()].records + qsizetype(history.refused().size());
    QStringList lines{
        u"任务“%1”%2：改了 %3 条记录"_s.arg(task, stopped ? u"停下了"_s : u"执行完毕"_s).arg(history.changed()) +
        (refused > 0 ? u"，%1 条没有改成"_s.arg(refused) : QString())};
    if (history.changed() > 0)
        lines.append(u"“撤销整批”可以把它们恢复成执行以前的样子，直到离开这个文件。"_s);
    lines.append({QString(), stopped ? u"各步（整个预览的数目）："_s : u"各步："_s});
    for (qsizetype i = 0; i < steps.size(); ++i)
        lines.append(
            u"　%1 处，%2 条　%3"_s.arg(counts[size_t(i)].changes).arg(counts[size_t(i)].records).arg(steps[i]));
    if (refused > 0) {
        lines.append({QString(), u"没有改成的，都保持原样："_s});
        lines += refusedLines(preview, history);
        if (refused > mostListed)
            lines.append(u"　……"_s);
    }
    return lines.join(lineEnd);
}

QString undoReport(const QString &task, int undone, const std::vector<int> &kept, bool stopped) {
    QString text =
        u"任务“%1”%2：恢复了 %3 条记录"_s.arg(task, stopped ? u"撤销到一半停下了"_s : u"已经撤销"_s).arg(undone);
    if (!kept.empty())
        text += u"；后来又改过的 %1 条没有动（第 %2 条）"_s.arg(kept.size()).arg(numbersOf(kept));
    return text + (stopped ? u"。再按“撤销整批”接着撤销。"_s : u"。"_s);
}

QString undoQuestion(const std::vector<int> &changedSince) {
    return u"其中 %1 条记录执行以后又改过（第 %2 条）。\r\n这几条也恢复成执行以前的样子吗？\r\n"
           u"（“是”：后来的修改也没有了；“否”：这几条留着不动，其余的恢复）"_s.arg(changedSince.size())
               .arg(numbersOf(changedSince));
}

} // namespace tasks
