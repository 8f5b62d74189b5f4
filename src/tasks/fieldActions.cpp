// Actions on whole fields.
#include "tasks/preparedStep.h"
#include "tasks/stepTables.h"
#include <algorithm>

namespace tasks {

namespace {

FieldIndexes withTag(const marc::FieldedRecord &record, QStringView tag) {
    FieldIndexes found;
    for (size_t i = 0; i < record.fields.size(); ++i) {
        if (record.fields[i].tag == tag)
            found.append(i);
    }
    return found;
}

// Returns the value with the characters put at their positions; the same value if it is too short.
QString overlaid(QString value, const PreparedStep &step) {
    if (value.size() > step.positions.last)
        value.replace(step.positions.first, step.positions.count(), step.characters);
    return value;
}

} // namespace

void addField(RecordWork &work, const PreparedStep &step) {
    const FieldIndexes present = withTag(work.record(), step.tag);
    if (step.when == When::Absent && !present.isEmpty())
        return;
    const auto content = step.text.expand(work.record(), nullptr, work.facts());
    if (!content)
        return;
    bool made = false;
    if (step.when == When::Replace && !present.isEmpty()) {
        made = work.setContent(present[0], *content);
        made = work.remove(FieldIndexes(present.begin() + 1, present.end())) || made;
    } else {
        made = work.insert({step.tag, *content});
    }
    if (made && step.text.needsNumber())
        work.useNumber();
}

void deleteField(RecordWork &work, const PreparedStep &step) {
    work.remove(chosenFields(work, step));
}

void copyField(RecordWork &work, const PreparedStep &step) {
    std::vector<marc::Field> copies;
    for (const size_t index : chosenFields(work, step))
        copies.push_back({step.toTag, work.field(index).content});
    for (marc::Field &copy : copies)
        work.insert(std::move(copy));
}

void moveField(RecordWork &work, const PreparedStep &step) {
    work.moveTo(chosenFields(work, step), step.toTag);
}

void setIndicators(RecordWork &work, const PreparedStep &step) {
    for (const size_t index : chosenFields(work, step)) {
        const marc::Field &field = work.field(index);
        if (field.isControl() || field.beforeSubfields().size() != marc::indicatorCount)
            continue;
        QString content = field.content;
        for (qsizetype i = 0; i < marc::indicatorCount; ++i)
            content[i] = step.indicators[i] == u'.' ? content[i] : step.indicators[i];
        work.setContent(index, content);
    }
}

void setPosition(RecordWork &work, const PreparedStep &step) {
    if (step.tag == leaderTag) {
        work.setLeader(overlaid(work.record().leader, step));
        return;
    }
    for (const size_t index : chosenFields(work, step)) {
        const auto changed = withTexts(work.field(index), step.code, [&](QStringView text) {
            return std::optional(overlaid(text.toString(), step));
        });
        if (changed)
            work.setContent(index, *changed);
    }
}

void sortFields(RecordWork &work, const PreparedStep &step) {
    FieldIndexes places;
    std::vector<marc::Field> fields;
    const marc::FieldedRecord &record = work.record();
    bool sorted = true;
    for (size_t i = 0; i < record.fields.size(); ++i) {
        if (!step.anyTag && !step.tags.contains(record.fields[i].tag))
            continue;
        sorted = sorted && (places.isEmpty() || record.fields[places.last()].tag <= record.fields[i].tag);
        places.append(i);
    }
    if (sorted)
        return;
    for (const size_t place : places)
        fields.push_back(record.fields[place]);
    std::ranges::stable_sort(fields, {}, &marc::Field::tag);
    work.reorder(places, fields);
}

} // namespace tasks
