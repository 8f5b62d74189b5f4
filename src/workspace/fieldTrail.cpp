#include "workspace/fieldTrail.h"
#include <algorithm>
#include <functional>

namespace workspace {

namespace {

using marc::FieldRows;
using Elements = std::vector<qsizetype>;

constexpr int equalTexts = 4;
constexpr int similarTexts = 2;                // at least half of the longer text is the same
constexpr qsizetype mostComparisons = 1 << 20; // of rows; a record that exceeds it was not made by hand

// Rates how likely two texts are the same text before and after an edit. An empty text is no evidence.
int likeness(const QString &one, const QString &other) {
    if (one.isEmpty() || other.isEmpty())
        return 0;
    if (one == other)
        return equalTexts;
    const auto [head, ignored] = std::ranges::mismatch(one, other);
    const qsizetype shorter = std::min(one.size(), other.size());
    const qsizetype front = head - one.begin();
    qsizetype back = 0;
    while (back < shorter - front && one[one.size() - 1 - back] == other[other.size() - 1 - back])
        ++back;
    return 2 * (front + back) >= std::max(one.size(), other.size()) ? similarTexts : 0;
}

// The alignments of two sequences that keep their order and have the largest sum of likenesses.
class Alignment {
public:
    using Likeness = std::function<int(size_t before, size_t after)>;
    Alignment(size_t before, size_t after, const Likeness &likeness)
        : m_before(before)
        , m_after(after)
        , m_like(before * after)
        , m_upTo((before + 1) * (after + 1))
        , m_from((before + 1) * (after + 1)) {
        for (size_t i = 0; i < before; ++i)
            for (size_t j = 0; j < after; ++j) {
                m_like[i * after + j] = likeness(i, j);
                m_upTo[place(i + 1, j + 1)] = std::max(
                    {m_upTo[place(i, j + 1)], m_upTo[place(i + 1, j)], m_upTo[place(i, j)] + m_like[i * after + j]});
            }
        for (size_t i = before; i-- > 0;)
            for (size_t j = after; j-- > 0;)
                m_from[place(i, j)] = std::max({m_from[place(i + 1, j)], m_from[place(i, j + 1)],
                                                m_from[place(i + 1, j + 1)] + m_like[i * after + j]});
    }

    int best() const { return m_upTo.back(); }

    // Returns the element that is the partner of `i` in all best alignments. If `i` has no partner in any of them, but
    // it and one other element are alone between two certain pairs, returns that element as a completely rewritten one.
    std::optional<size_t> partner(size_t i) const {
        if (const auto certain = certainPartner(i))
            return certain;
        size_t first = i, last = i; // range of elements around `i` without a certain partner
        std::optional<size_t> above, below;
        while (first > 0 && !(above = certainPartner(first - 1)))
            --first;
        while (last + 1 < m_before && !(below = certainPartner(last + 1)))
            ++last;
        const size_t begin = above ? *above + 1 : 0;
        const size_t end = below.value_or(m_after);
        return first == last && end == begin + 1 ? std::optional(begin) : std::nullopt;
    }

private:
    size_t place(size_t i, size_t j) const { return i * (m_after + 1) + j; }

    std::optional<size_t> certainPartner(size_t i) const {
        std::optional<size_t> partner;
        for (size_t j = 0; j <= m_after; ++j) {
            if (m_upTo[place(i, j)] + m_from[place(i + 1, j)] == best())
                return std::nullopt; // without a partner in one of the alignments
            if (j < m_after && m_upTo[place(i, j)] + m_like[i * m_after + j] + m_from[place(i + 1, j + 1)] == best()) {
                if (partner)
                    return std::nullopt;
                partner = j;
            }
        }
        return partner;
    }

    size_t m_before, m_after;
    std::vector<int> m_like;
    std::vector<int> m_upTo, m_from; // best sums for the first i and j elements, and for those from i and j on
};

qsizetype endOfField(const FieldRows &rows, qsizetype field) {
    qsizetype end = field + 1;
    while (end < rows.size() && !marc::isFieldRow(rows[end]))
        ++end;
    return end;
}

Elements fieldsOf(const FieldRows &rows, const QString &tag) {
    Elements fields;
    for (qsizetype at = 0; at < rows.size(); ++at)
        if (rows[at].identifier == tag && (at == 0 || marc::isFieldRow(rows[at])))
            fields.push_back(at);
    return fields;
}

Elements subfieldsOf(const FieldRows &rows, qsizetype field, const QString &identifier) {
    Elements subfields;
    for (qsizetype at = field + 1, end = endOfField(rows, field); at < end; ++at)
        if (rows[at].identifier == identifier)
            subfields.push_back(at);
    return subfields;
}

// Compares the subfields, since most fields have the same indicators; a field without subfields is compared by its
// value.
int likenessOfFields(const FieldRows &before, qsizetype one, const FieldRows &after, qsizetype other) {
    const auto size = size_t(endOfField(before, one) - one - 1);
    const auto otherSize = size_t(endOfField(after, other) - other - 1);
    if (size == 0 && otherSize == 0)
        return likeness(before[one].value, after[other].value);
    const auto ofRows = [&](size_t i, size_t j) {
        const marc::FieldRow &row = before[one + 1 + qsizetype(i)];
        const marc::FieldRow &otherRow = after[other + 1 + qsizetype(j)];
        return row.identifier == otherRow.identifier ? likeness(row.value, otherRow.value) : 0;
    };
    return Alignment(size, otherSize, ofRows).best();
}

qsizetype rowsOf(const FieldRows &rows, const Elements &fields) {
    qsizetype count = 0;
    for (const qsizetype field : fields)
        count += endOfField(rows, field) - field;
    return count;
}

size_t placeIn(const Elements &elements, qsizetype element) {
    return size_t(std::ranges::find(elements, element) - elements.begin());
}

} // namespace

std::optional<Trail> followField(const FieldRows &before, const FieldRows &after, qsizetype element) {
    if (element < 0 || element >= before.size())
        return std::nullopt;
    qsizetype field = element;
    while (field > 0 && !marc::isFieldRow(before[field]))
        --field;
    const Elements fields = fieldsOf(before, before[field].identifier);
    const Elements others = fieldsOf(after, before[field].identifier);
    if (rowsOf(before, fields) * rowsOf(after, others) > mostComparisons)
        return std::nullopt;
    const Alignment ofFields(fields.size(), others.size(),
                             [&](size_t i, size_t j) { return likenessOfFields(before, fields[i], after, others[j]); });
    const auto found = ofFields.partner(placeIn(fields, field));
    if (!found)
        return std::nullopt;
    const qsizetype other = others[*found];
    if (element == field)
        return Trail{other};
    const Elements subfields = subfieldsOf(before, field, before[element].identifier);
    const Elements otherSubfields = subfieldsOf(after, other, before[element].identifier);
    const Alignment ofSubfields(subfields.size(), otherSubfields.size(), [&](size_t i, size_t j) {
        return likeness(before[subfields[i]].value, after[otherSubfields[j]].value);
    });
    const auto subfield = ofSubfields.partner(placeIn(subfields, element));
    return subfield ? Trail{otherSubfields[*subfield]} : Trail{other, true};
}

std::optional<Trail> followField(const std::vector<marc::RawRecord> &held, const FieldRows &now, qsizetype element) {
    Trail trail{element};
    for (size_t at = 0; at < held.size(); ++at) {
        const FieldRows after = at + 1 < held.size() ? marc::showRecord(held[at + 1]).rows : now;
        const auto next = followField(marc::showRecord(held[at]).rows, after, trail.element);
        if (!next)
            return std::nullopt;
        trail = {next->element, trail.subfieldLost || next->subfieldLost};
    }
    return trail;
}

} // namespace workspace
