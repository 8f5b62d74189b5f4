#include "tasks/recordWork.h"
#include "tasks/stepTables.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr qsizetype mostGrowth = 1 << 20; // characters; no record that can be written is longer
constexpr size_t mostFields = 8'000;      // no record that can be written has more

int occurrenceOf(const marc::FieldedRecord &record, QStringView tag, int field) {
    const auto begin = record.fields.begin();
    return field < 0 ? 0 : 1 + int(std::count_if(begin, begin + field, [&](const auto &f) { return f.tag == tag; }));
}

QString tagsOf(const std::vector<marc::Field> &fields) {
    QStringList tags;
    for (const marc::Field &field : fields)
        tags.append(field.tag);
    return tags.join(u' ');
}

} // namespace

bool isSame(const Change &a, const Change &b) {
    return a.step == b.step && a.tag == b.tag && a.toTag == b.toTag && a.before == b.before && a.after == b.after;
}

bool RecordWork::admits(const Proposal &proposal) {
    if (failed())
        return false;
    if (m_wishes.list || m_wishes.without) {
        Change change{m_step,
                      proposal.tag.toString(),
                      occurrenceOf(m_record, proposal.tag, proposal.field),
                      proposal.toTag.toString(),
                      proposal.before.toString(),
                      proposal.after.toString(),
                      proposal.doubt.toString()};
        const auto isUnwanted = [&](const Change &unwanted) { return isSame(unwanted, change); };
        if (m_wishes.without && std::ranges::any_of(*m_wishes.without, isUnwanted))
            return false;
        if (m_wishes.list)
            m_changes.push_back(std::move(change));
    }
    m_grown += std::max<qsizetype>(proposal.after.size() - proposal.before.size(), 0);
    if (m_grown > mostGrowth || m_record.fields.size() > mostFields) {
        fail(u"记录太长"_s);
        return false;
    }
    if (!m_before)
        m_before = m_record;
    ++m_changesOfStep;
    return true;
}

bool RecordWork::setLeader(const QString &leader) {
    if (leader == m_record.leader ||
        !admits({.tag = leaderTag, .field = 0, .before = m_record.leader, .after = leader}))
        return false;
    m_record.leader = leader;
    return true;
}

bool RecordWork::setContent(size_t field, QString content, const QString &doubt) {
    marc::Field &changed = m_record.fields[field];
    if (content == changed.content || !admits({changed.tag, int(field), {}, changed.content, content, doubt}))
        return false;
    changed.content = std::move(content);
    return true;
}

bool RecordWork::insert(marc::Field field) {
    const size_t place = m_record.placeFor(field.tag);
    if (!admits({.tag = field.tag, .field = -1, .after = field.content}))
        return false;
    m_record.fields.insert(m_record.fields.begin() + std::ptrdiff_t(place), std::move(field));
    return true;
}

bool RecordWork::moveTo(const FieldIndexes &fields, const QString &tag) {
    FieldIndexes admitted;
    for (const size_t index : fields) {
        const marc::Field &moved = field(index);
        if (moved.tag != tag && admits({moved.tag, int(index), tag, moved.content, moved.content, {}}))
            admitted.append(index);
    }
    std::vector<marc::Field> moved;
    for (const size_t index : admitted)
        moved.push_back({tag, field(index).content});
    erase(admitted);
    for (marc::Field &one : moved)
        m_record.fields.insert(m_record.fields.begin() + std::ptrdiff_t(m_record.placeFor(tag)), std::move(one));
    return !moved.empty();
}

bool RecordWork::remove(const FieldIndexes &fields) {
    FieldIndexes admitted;
    for (const size_t index : fields) {
        if (admits({.tag = field(index).tag, .field = int(index), .before = field(index).content}))
            admitted.append(index);
    }
    erase(admitted);
    return !admitted.isEmpty();
}

void RecordWork::erase(const FieldIndexes &fields) {
    for (qsizetype i = fields.size(); i-- > 0;)
        m_record.fields.erase(m_record.fields.begin() + std::ptrdiff_t(fields[i]));
}

bool RecordWork::reorder(const FieldIndexes &places, const std::vector<marc::Field> &fields) {
    std::vector<marc::Field> after = m_record.fields;
    for (qsizetype i = 0; i < places.size(); ++i)
        after[places[i]] = fields[size_t(i)];
    if (!admits({.field = -1, .before = tagsOf(m_record.fields), .after = tagsOf(after)}))
        return false;
    m_record.fields = std::move(after);
    return true;
}

void RecordWork::fail(const QString &why) {
    if (m_why.isEmpty())
        m_why = why;
}

void RecordWork::restore() {
    if (m_before)
        m_record = *std::move(m_before);
    m_before.reset();
    m_changes.clear();
}

} // namespace tasks
