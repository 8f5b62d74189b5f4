#include "targets/fieldComparison.h"
#include "targets/recordViews.h"
#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

bool beginsField(const marc::FieldRow &row) {
    return !row.identifier.startsWith(u'$');
}

bool isOwn(const QString &tag) {
    return tag == u"001" || tag == u"005";
}

// Returns the fields after the leader.
std::vector<FieldSpan> fieldsIn(const marc::FieldRows &rows) {
    std::vector<FieldSpan> fields;
    for (qsizetype at = 1; at < rows.size(); ++at) {
        if (beginsField(rows[at]) || fields.empty())
            fields.push_back({at, 1});
        else
            ++fields.back().count;
    }
    return fields;
}

QString textOf(const marc::FieldRows &rows, const FieldSpan &field) {
    QString text = rows[field.first].value;
    for (qsizetype at = field.first + 1; at < field.first + field.count; ++at)
        text += rows[at].identifier + rows[at].value;
    return text;
}

using Spans = std::vector<FieldSpan>;
struct Both {
    Spans current;
    Spans fetched;
};

std::map<QString, Both> byTag(const marc::FieldRows &current, const marc::FieldRows &fetched) {
    std::map<QString, Both> fields;
    for (const FieldSpan &field : fieldsIn(current))
        fields[current[field.first].identifier].current.push_back(field);
    for (const FieldSpan &field : fieldsIn(fetched))
        fields[fetched[field.first].identifier].fetched.push_back(field);
    return fields;
}

} // namespace

std::vector<ComparedField> compareFields(const marc::FieldRows &current, const marc::FieldRows &fetched) {
    std::vector<ComparedField> compared;
    for (auto &[tag, fields] : byTag(current, fetched)) {
        if (isOwn(tag))
            continue;
        Spans &others = fields.fetched;
        const size_t first = compared.size();
        const auto take = [&](ComparedField &field, Spans::iterator other) {
            field.fetched = *other;
            field.fetchedText = textOf(fetched, *other);
            others.erase(other);
        };
        for (const FieldSpan &span : fields.current) {
            compared.push_back({.tag = tag, .currentText = textOf(current, span), .current = span});
            ComparedField &field = compared.back();
            const auto same = std::ranges::find_if(
                others, [&](const FieldSpan &other) { return textOf(fetched, other) == field.currentText; });
            if (same != others.end())
                take(field, same);
        }
        for (size_t at = first; at < compared.size() && !others.empty(); ++at) {
            if (!compared[at].fetched)
                take(compared[at], others.begin());
        }
        while (!others.empty()) {
            compared.push_back({.tag = tag});
            take(compared.back(), others.begin());
        }
    }
    return compared;
}

marc::FieldRows withField(const marc::FieldRows &current, const marc::FieldRows &fetched, const ComparedField &field) {
    if (!field.fetched)
        return current;
    qsizetype at = 1;
    qsizetype replaced = 0;
    if (field.current) {
        at = field.current->first;
        replaced = field.current->count;
    } else {
        for (const FieldSpan &own : fieldsIn(current)) {
            if (current[own.first].identifier <= field.tag)
                at = own.first + own.count;
        }
    }
    at = std::min(at, current.size());
    return current.first(at) + fetched.sliced(field.fetched->first, field.fetched->count) +
           current.sliced(at + replaced);
}

marc::FieldRows withAllFields(const marc::FieldRows &current, const marc::FieldRows &fetched) {
    marc::FieldRows rows = current.first(std::min<qsizetype>(1, current.size()));
    const auto add = [&rows](const marc::FieldRows &from, bool own) {
        for (const FieldSpan &field : fieldsIn(from)) {
            if (isOwn(from[field.first].identifier) == own)
                rows += from.sliced(field.first, field.count);
        }
    };
    add(current, true);
    add(fetched, false);
    return rows;
}

std::optional<marc::FieldRows> rowsOf(const marc::FieldedRecord &record) {
    const auto raw = asRawRecord(record);
    if (!raw)
        return std::nullopt;
    return marc::showRecord(raw.value()).rows;
}

int ComparisonRows::different() const {
    return int(std::ranges::count_if(m_fields, [](const ComparedField &field) {
        return field.fetched && field.state() != ComparedField::State::Same;
    }));
}

QString ComparisonRows::text(int row, int column) const {
    constexpr auto states = std::to_array<QStringView>({u"相同", u"不同", u"只有当前记录有", u"只有取来的有"});
    const ComparedField &at = field(row);
    switch (column) {
    case TagColumn:
        return at.tag;
    case StateColumn:
        return states[size_t(at.state())].toString();
    case CurrentColumn:
        return at.currentText;
    case FetchedColumn:
        return at.fetchedText;
    default:
        return {};
    }
}

} // namespace targets
