#include "tasks/listRecord.h"
#include "marc/fieldRows.h"
#include "marc/recordWriter.h"
#include "platform/codepage936.h"
#include "tasks/stepTables.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr QStringView newField = u"001"; // the writer makes a new one for each record

// The part of the leader that is neither length nor address.
std::pair<QStringView, QStringView> keptOf(const QString &leader) {
    const QStringView all(leader);
    return {all.sliced(marc::recordLengthWidth, marc::baseAddressAt - marc::recordLengthWidth),
            all.sliced(marc::baseAddressAt + marc::baseAddressLength)};
}

using Fields = std::vector<const marc::Field *>;

std::pair<QStringView, QStringView> textsOf(const marc::Field *field) {
    return {field->tag, field->content};
}

Fields sorted(const marc::FieldedRecord &record) {
    Fields fields;
    for (const marc::Field &field : record.fields)
        fields.push_back(&field);
    std::ranges::sort(fields, {}, textsOf);
    return fields;
}

// Returns the fields of `some` that `others` lacks, each as often as it is missing. Both are sorted.
Fields lacking(const Fields &some, const Fields &others) {
    Fields missing;
    std::ranges::set_difference(some, others, std::back_inserter(missing), {}, textsOf, textsOf);
    return missing;
}

} // namespace

ListOutcome ListRecord::change(const marc::RawRecord &record, const At &at, const QSet<QString> &remarks,
                               const Wishes &wishes) {
    if (m_before.take(record) != marc::Cut::Exact)
        return {.record = {}, .why = u"目次区与字段对不上"_s, .altered = {}};
    m_wanted = m_before;
    m_run.setNextNumber(at.number);
    const Outcome outcome = m_run.apply(m_wanted, remarks, wishes);
    if (!outcome.changed) {
        const QString step = outcome.step < 0 ? QString() : u"第%1步："_s.arg(outcome.step + 1);
        return {.record = {}, .why = outcome.why.isEmpty() ? QString() : step + outcome.why, .altered = {}};
    }
    return build(at.now);
}

ListOutcome ListRecord::build(const QDateTime &now) {
    const auto refused = [](const QString &why) { return ListOutcome{.record = {}, .why = why, .altered = {}}; };
    if (const QString why = m_writer.make(m_wanted); !why.isEmpty())
        return refused(why);
    const marc::ShownRecord shown = marc::showRecord(m_writer.text());
    if (shown.damaged || shown.cutOff)
        return refused(u"目次区与字段对不上"_s);
    ListOutcome outcome{.record = marc::madeMyMarc(shown.rows, shown.leader, now), .why = {}, .altered = {}};
    if (m_built.take(outcome.record) != marc::Cut::Exact || platform::gbkLength(outcome.record) > marc::longestRecord)
        return refused(u"记录太长，写不成"_s);
    if (keptOf(m_built.leader) != keptOf(m_wanted.leader) && m_wanted.leader != m_before.leader)
        return refused(u"头标区改成的样子写不出来"_s);
    const Fields before = sorted(m_before), wanted = sorted(m_wanted), built = sorted(m_built);
    Fields added = lacking(built, wanted);
    for (const marc::Field *field : lacking(wanted, built)) {
        const auto isSame = [&](const marc::Field *other) { return *other == *field; };
        if (std::ranges::none_of(before, isSame))
            return refused(field->tag == newField
                               ? u"001 字段每次改记录都重新生成，改不了"_s
                               : u"字段 %1 改成的样子写不出来（空子字段，或 105、106、110、115）"_s.arg(field->tag));
        if (field->tag == newField)
            continue;
        const auto instead = std::ranges::find(added, field->tag, [](const marc::Field *one) { return one->tag; });
        outcome.altered.push_back({.step = -1, .tag = field->tag, .toTag = {}, .before = field->content});
        if (instead == added.end())
            continue;
        outcome.altered.back().after = (*instead)->content;
        added.erase(instead);
    }
    return outcome;
}

} // namespace tasks
