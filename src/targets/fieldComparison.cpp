#include "targets/fieldComparison.h"
#include "marc/fitText.h"
#include "marc/isoWriter.h"
#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

using Indexes = std::vector<size_t>;

Indexes fieldsWith(const marc::FieldedRecord &record, const QString &tag) {
    Indexes found;
    for (size_t i = 0; i < record.fields.size(); ++i) {
        if (record.fields[i].tag == tag)
            found.push_back(i);
    }
    return found;
}

std::set<QString> tagsOf(const marc::FieldedRecord &one, const marc::FieldedRecord &other) {
    std::set<QString> tags;
    for (const marc::FieldedRecord *record : {&one, &other}) {
        for (const marc::Field &field : record->fields)
            tags.insert(field.tag);
    }
    return tags;
}

bool isOwnNumber(const marc::Field &field) {
    return field.tag == u"001" || field.tag == u"005";
}

} // namespace

std::vector<ComparedField> compareFields(const marc::FieldedRecord &current, const marc::FieldedRecord &fetched) {
    std::vector<ComparedField> rows;
    for (const QString &tag : tagsOf(current, fetched)) {
        Indexes others = fieldsWith(fetched, tag);
        const size_t first = rows.size();
        for (const size_t i : fieldsWith(current, tag)) {
            const auto same = std::ranges::find_if(
                others, [&](size_t other) { return fetched.fields[other].content == current.fields[i].content; });
            ComparedField row{.tag = tag, .current = i};
            if (same != others.end()) {
                row.fetched = *same;
                row.isSame = true;
                others.erase(same);
            }
            rows.push_back(row);
        }
        auto next = others.begin();
        for (size_t i = first; i < rows.size() && next != others.end(); ++i) {
            if (!rows[i].fetched)
                rows[i].fetched = *next++;
        }
        for (; next != others.end(); ++next)
            rows.push_back({.tag = tag, .fetched = *next});
    }
    return rows;
}

QString shownField(const marc::Field &field) {
    return field.tag + u' ' + QString(field.content).replace(QChar(marc::subfieldDelimiter), u'$');
}

marc::FieldedRecord withField(const marc::FieldedRecord &current, const marc::FieldedRecord &fetched,
                              const ComparedField &row) {
    marc::FieldedRecord changed = current;
    if (!row.fetched)
        return changed;
    const marc::Field &field = fetched.fields[*row.fetched];
    if (row.current)
        changed.fields[*row.current] = field;
    else
        changed.fields.insert(changed.fields.begin() + std::ptrdiff_t(changed.placeFor(field.tag)), field);
    return changed;
}

marc::FieldedRecord withAllFields(const marc::FieldedRecord &current, const marc::FieldedRecord &fetched) {
    marc::FieldedRecord changed{current.leader, {}};
    std::ranges::copy_if(current.fields, std::back_inserter(changed.fields), isOwnNumber);
    std::ranges::remove_copy_if(fetched.fields, std::back_inserter(changed.fields), isOwnNumber);
    return changed;
}

std::optional<marc::FieldRows> rowsOf(marc::FieldedRecord record) {
    record.leader = marc::leaderFor(marc::TargetForm::GbkIso, record.leader);
    for (marc::Field &field : record.fields)
        marc::fitText(marc::TargetForm::GbkIso, field.content);
    marc::IsoWriter writer;
    if (!writer.make(record).isEmpty())
        return std::nullopt;
    return marc::showRecord(writer.text()).rows;
}

} // namespace targets
