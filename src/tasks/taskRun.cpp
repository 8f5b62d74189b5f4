#include "tasks/taskRun.h"
#include "platform/codepage936.h"
#include "platform/paths.h"
#include "tasks/stepCheck.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr QStringView givenUp = u"正则表达式算得太久";
constexpr QStringView officePinyin = u"pinyin-words.txt";

// Adds the characters that GBK lacks, surrogates one by one.
void collectLacking(QStringView text, QSet<char16_t> &lacking) {
    if (platform::isEncodable(text))
        return;
    for (const QChar c : text) {
        if (!platform::isEncodable(QStringView(&c, 1)))
            lacking.insert(c.unicode());
    }
}

// Returns the first character of the text that GBK lacks and the record did not have before; empty if there is none.
QString newlyLacking(const QString &text, const marc::FieldedRecord &before) {
    QSet<char16_t> lacking, known;
    collectLacking(text, lacking);
    for (const marc::Field &field : before.fields)
        collectLacking(field.content, known);
    lacking -= known;
    const auto first = std::ranges::find_if(text, [&](QChar c) { return lacking.contains(c.unicode()); });
    if (first == text.end())
        return {};
    const qsizetype size = first->isHighSurrogate() ? 2 : 1;
    return text.mid(first - text.begin(), size);
}

qsizetype lengthOf(const QString &content, Fit fit) {
    return fit == Fit::GbkRecord ? platform::gbkLength(content) : content.toUtf8().size();
}

} // namespace

QString misfit(const marc::FieldedRecord &changed, const marc::FieldedRecord &before, Fit fit) {
    if (fit == Fit::Anything)
        return {};
    qsizetype total = marc::baseAddress(qsizetype(changed.fields.size())) + 1;
    for (const marc::Field &field : changed.fields) {
        const qsizetype length = lengthOf(field.content, fit) + 1;
        if (length > marc::longestField)
            return u"字段 %1 有 %2 字节，长过 %3 字节"_s.arg(field.tag).arg(length).arg(marc::longestField);
        total += length;
        if (fit != Fit::GbkRecord || platform::isEncodable(field.content))
            continue;
        if (const QString lacking = newlyLacking(field.content, before); !lacking.isEmpty())
            return u"字段 %1 的“%2”，GBK 里没有"_s.arg(field.tag, lacking);
    }
    return total > marc::longestRecord ? u"记录有 %1 字节，长过 %2 字节"_s.arg(total).arg(marc::longestRecord)
                                       : QString();
}

platform::Result<std::shared_ptr<PinyinReader>> pinyinFor(const Task &task, const QString &folder) {
    const auto reads = [](const Step &step) { return step.on && step.action == Action::Pinyin; };
    if (std::ranges::none_of(task.steps, reads))
        return std::shared_ptr<PinyinReader>();
    auto opened = PinyinReader::open(platform::pathWithSlash(folder) + officePinyin);
    if (!opened)
        return opened.failure();
    return std::make_shared<PinyinReader>(std::move(opened).value());
}

platform::Result<TaskRun> TaskRun::prepare(const Task &task, RunFacts facts, Fit fit,
                                           std::shared_ptr<PinyinReader> pinyin) {
    TaskRun run;
    run.m_facts = std::move(facts);
    run.m_fit = fit;
    run.m_counts.resize(task.steps.size());
    for (size_t i = 0; i < task.steps.size(); ++i) {
        const Step &step = task.steps[i];
        if (!step.on)
            continue;
        if (const auto fault = checkStep(step))
            return platform::Failure{u"第%1步：%2"_s.arg(i + 1).arg(fault->reason)};
        if (step.action == Action::Pinyin && !pinyin) {
            auto opened = PinyinReader::open();
            if (!opened)
                return opened.failure();
            pinyin = std::make_shared<PinyinReader>(std::move(opened).value());
        }
        run.m_steps.push_back(tasks::prepare(step, int(i)));
        run.m_steps.back().pinyin = pinyin;
        if (step.test == Test::Remark || step.test == Test::NoRemark)
            run.m_needsRemarks = true;
    }
    return run;
}

Outcome TaskRun::apply(marc::FieldedRecord &record, const QSet<QString> &remarks, const Wishes &wishes) {
    RecordWork work(record, m_facts, wishes);
    m_changes.clear();
    m_countsOfRecord.assign(m_counts.size(), {});
    for (const PreparedStep &step : m_steps) {
        work.beginStep(step.index);
        const Answer answer = step.test.askRecord(record, remarks);
        if (answer == Answer::GivenUp)
            work.fail(givenUp.toString());
        else if (answer == Answer::Yes)
            step.run(work, step);
        if (work.failed()) {
            work.restore();
            return {false, work.why(), step.index};
        }
        const qint64 changes = work.changesOfStep();
        m_countsOfRecord[size_t(step.index)] = {changes > 0, changes};
        work.resetStep();
    }
    return finish(work, m_countsOfRecord);
}

Outcome TaskRun::finish(RecordWork &work, const std::vector<StepCount> &counts) {
    if (!work.isChanged())
        return {};
    if (const QString why = misfit(work.record(), work.before(), m_fit); !why.isEmpty()) {
        work.restore();
        return {false, why, -1};
    }
    for (size_t i = 0; i < counts.size(); ++i) {
        m_counts[i].records += counts[i].records;
        m_counts[i].changes += counts[i].changes;
    }
    if (work.numberUsed())
        ++m_facts.number;
    const bool changed = work.record() != work.before();
    m_changes = work.takeChanges();
    return {.changed = changed};
}

} // namespace tasks
