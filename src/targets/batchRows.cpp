#include "targets/batchRows.h"
#include "targets/recordSummary.h"

using namespace Qt::StringLiterals;
using State = targets::Outcome::State;

namespace targets {

QString BatchRows::text(int row, int column) const {
    const Outcome &outcome = m_batch->outcome(row);
    const bool found = outcome.state == State::Found;
    switch (column) {
    case IsbnColumn:
        return m_batch->isbns()[row];
    case StateColumn:
        return found                             ? u"找到"_s
               : outcome.state == State::Missing ? u"未找到"_s
               : outcome.state == State::Failed  ? u"未查成"_s
                                                 : QString();
    case TargetColumn:
        return outcome.target;
    case TitleColumn:
        return found ? summaryOf(outcome.record).title : outcome.why;
    default:
        return {};
    }
}

int leftIn(const IsbnBatch &batch) {
    return batch.count(State::Pending) + batch.count(State::Failed);
}

QString batchWords(const IsbnBatch &batch) {
    const int all = int(batch.isbns().size()), left = leftIn(batch);
    if (all == 0)
        return {};
    if (left == 0)
        return batch.words();
    const QString done = u"已查 %1，共 %2；"_s.arg(all - left).arg(all) + batch.words();
    return batch.isActive() ? done : QString(u"停下了，"_s + done + u"。按“C 接着查”");
}

QString whyNoBatch(const QStringList &isbns, const TargetList &chosen) {
    if (!isAvailable())
        return notBuilt().words;
    if (isbns.isEmpty())
        return u"没有看到 ISBN：请粘贴在左边的框里，或者按“R 读文件…”。"_s;
    if (chosen.empty())
        return u"请先在目标列表里勾选要查的目标（空格键）；照列表的顺序问。"_s;
    return {};
}

} // namespace targets
