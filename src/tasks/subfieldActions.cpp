// Actions on the subfields of fields.
#include "tasks/preparedStep.h"
#include <algorithm>

namespace tasks {

namespace {

struct Part {
    QString code;
    QString text;
};

// A field taken apart.
struct Parts {
    QString head; // before the first subfield
    std::vector<Part> parts;

    explicit Parts(const marc::Field &field)
        : head(field.beforeSubfields().toString()) {
        for (const marc::Subfield part : field.subfields())
            parts.push_back({part.code.toString(), part.text.toString()});
    }
    QString content() const {
        QString text = head;
        for (const Part &part : parts)
            text += QChar(marc::subfieldDelimiter) + part.code + part.text;
        return text;
    }
    bool has(QChar code) const {
        return std::ranges::any_of(parts, [&](const Part &part) { return part.code == code; });
    }
    void drop(QChar code) {
        std::erase_if(parts, [&](const Part &part) { return part.code == code; });
    }
    bool isOnlyIndicators() const { return parts.empty() && head.size() <= marc::indicatorCount; }
};

// Joins the parts. A field without subfields is removed; its index is then added to `emptied`.
void put(RecordWork &work, size_t index, const Parts &parts, FieldIndexes &emptied) {
    if (parts.isOnlyIndicators())
        emptied.append(index);
    else
        work.setContent(index, parts.content());
}

void addText(RecordWork &work, const PreparedStep &step, size_t index, int place, const QString &text) {
    marc::Field changed = work.field(index);
    changed.insertSubfield(place, QString(step.code), text);
    if (work.setContent(index, changed.content) && step.text.needsNumber())
        work.useNumber();
}

// Returns the index after the last subfield with that code; the number of subfields if there is none.
int placeAfter(const marc::Field &field, QChar code) {
    int place = 0, count = 0;
    for (const marc::Subfield part : field.subfields()) {
        ++count;
        if (part.code == code)
            place = count;
    }
    return place ? place : count;
}

// Returns the texts of subfields that a step copies or moves, from all its fields.
QStringList sourceTexts(const RecordWork &work, const PreparedStep &step, const FieldIndexes &chosen) {
    QStringList texts;
    for (const size_t index : chosen) {
        for (const marc::Subfield part : work.field(index).subfields()) {
            if (part.code == step.code)
                texts.append(part.text.toString());
        }
    }
    return texts;
}

// Adds the texts to the first field with the target tag, or makes one. Returns whether it was done.
bool addToTarget(RecordWork &work, const PreparedStep &step, const QStringList &texts) {
    const auto &fields = work.record().fields;
    const auto found = std::ranges::find(fields, step.toTag, &marc::Field::tag);
    Parts parts(found == fields.end() ? marc::Field{step.toTag, QString(marc::indicatorCount, u' ')} : *found);
    if (step.when == When::Absent && parts.has(step.toCode))
        return false;
    if (step.when == When::Replace)
        parts.drop(step.toCode);
    for (const QString &text : texts)
        parts.parts.push_back({QString(step.toCode), text});
    if (found == fields.end())
        return work.insert({step.toTag, parts.content()});
    return work.setContent(size_t(found - fields.begin()), parts.content());
}

// Copies or moves within each field; a copy follows its source.
void transferWithin(RecordWork &work, const PreparedStep &step, bool keepSource) {
    for (const size_t index : chosenFields(work, step)) {
        Parts parts(work.field(index));
        if (work.field(index).isControl() || step.code == step.toCode || !parts.has(step.code) ||
            (step.when == When::Absent && parts.has(step.toCode)))
            continue;
        if (step.when == When::Replace)
            parts.drop(step.toCode);
        std::vector<Part> after;
        for (const Part &part : parts.parts) {
            if (part.code != step.code || keepSource)
                after.push_back(part);
            if (part.code == step.code)
                after.push_back({QString(step.toCode), part.text});
        }
        parts.parts = std::move(after);
        work.setContent(index, parts.content());
    }
}

void dropSource(RecordWork &work, const PreparedStep &step) {
    FieldIndexes emptied;
    for (const size_t index : chosenFields(work, step)) {
        Parts parts(work.field(index));
        if (!parts.has(step.code) || (work.field(index).tag == step.toTag && step.code == step.toCode))
            continue;
        parts.drop(step.code);
        put(work, index, parts, emptied);
    }
    work.remove(emptied);
}

bool isBlank(QStringView text, bool isCoded) {
    return isCoded ? text.isEmpty() : text.trimmed().isEmpty();
}

} // namespace

void addSubfield(RecordWork &work, const PreparedStep &step) {
    for (const size_t index : chosenFields(work, step)) {
        const marc::Field &field = work.field(index);
        if (field.isControl() || (step.when == When::Absent && field.subfield(step.code)))
            continue;
        if (const auto text = step.text.expand(work.record(), &field, work.facts()))
            addText(work, step, index, placeAfter(field, step.after), *text);
    }
}

void setSubfield(RecordWork &work, const PreparedStep &step) {
    for (const size_t index : chosenFields(work, step)) {
        const marc::Field &field = work.field(index);
        const bool isPresent = field.subfield(step.code).has_value();
        if (field.isControl() || (!isPresent && step.when != When::Add))
            continue;
        const auto text = step.text.expand(work.record(), &field, work.facts());
        if (!text)
            continue;
        if (!isPresent) {
            addText(work, step, index, placeAfter(field, {}), *text);
            continue;
        }
        const auto changed = withTexts(field, step.code, [&](QStringView) { return text; });
        if (changed && work.setContent(index, *changed) && step.text.needsNumber())
            work.useNumber();
    }
}

void deleteSubfield(RecordWork &work, const PreparedStep &step) {
    FieldIndexes emptied;
    for (const size_t index : chosenFields(work, step)) {
        Parts parts(work.field(index));
        const size_t before = parts.parts.size();
        std::erase_if(parts.parts,
                      [&](const Part &part) { return !part.code.isEmpty() && step.codes.contains(part.code); });
        if (parts.parts.size() != before)
            put(work, index, parts, emptied);
    }
    work.remove(emptied);
}

void copySubfield(RecordWork &work, const PreparedStep &step) {
    if (step.toTag.isEmpty())
        return transferWithin(work, step, true);
    const QStringList texts = sourceTexts(work, step, chosenFields(work, step));
    if (!texts.isEmpty())
        addToTarget(work, step, texts);
}

void moveSubfield(RecordWork &work, const PreparedStep &step) {
    if (step.toTag.isEmpty())
        return transferWithin(work, step, false);
    const QStringList texts = sourceTexts(work, step, chosenFields(work, step));
    if (!texts.isEmpty() && addToTarget(work, step, texts))
        dropSource(work, step);
}

void sortSubfields(RecordWork &work, const PreparedStep &step) {
    const auto rank = [&](const Part &part) {
        const qsizetype at = part.code.isEmpty() ? -1 : step.order.indexOf(part.code);
        return at < 0 ? step.order.size() : at;
    };
    for (const size_t index : chosenFields(work, step)) {
        if (hasEmbedded(work.field(index)) || work.field(index).isControl())
            continue;
        Parts parts(work.field(index));
        if (std::ranges::is_sorted(parts.parts, {}, rank))
            continue;
        std::ranges::stable_sort(parts.parts, {}, rank);
        work.setContent(index, parts.content());
    }
}

void dropEmpty(RecordWork &work, const PreparedStep &step) {
    FieldIndexes emptied;
    for (const size_t index : chosenFields(work, step)) {
        const marc::Field &field = work.field(index);
        const bool isCoded = field.tag.startsWith(u'1');
        const auto all = field.subfields();
        const auto isEmpty = [&](const marc::Subfield &part) { return isBlank(part.text, isCoded); };
        if (field.isControl() ? !field.content.trimmed().isEmpty()
                              : !std::any_of(all.begin(), all.end(), isEmpty) && all.begin() != all.end())
            continue;
        Parts parts(field);
        std::erase_if(parts.parts, [&](const Part &part) { return isBlank(part.text, isCoded); });
        if (field.isControl())
            emptied.append(index);
        else
            put(work, index, parts, emptied);
    }
    work.remove(emptied);
}

void dropDoubled(RecordWork &work, const PreparedStep &step) {
    const FieldIndexes chosen = chosenFields(work, step);
    if (step.what == u"field") {
        FieldIndexes doubled;
        for (qsizetype i = 1; i < chosen.size(); ++i) {
            const auto isSame = [&](size_t earlier) { return work.field(earlier) == work.field(chosen[i]); };
            if (std::any_of(chosen.begin(), chosen.begin() + i, isSame))
                doubled.append(chosen[i]);
        }
        work.remove(doubled);
        return;
    }
    for (const size_t index : chosen) {
        if (hasEmbedded(work.field(index)) || work.field(index).isControl())
            continue;
        Parts parts(work.field(index));
        std::vector<Part> kept;
        for (const Part &part : parts.parts) {
            const auto isSame = [&](const Part &other) { return other.code == part.code && other.text == part.text; };
            if (!std::ranges::any_of(kept, isSame))
                kept.push_back(part);
        }
        if (kept.size() == parts.parts.size())
            continue;
        parts.parts = std::move(kept);
        work.setContent(index, parts.content());
    }
}

} // namespace tasks
