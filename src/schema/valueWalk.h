// Visits the values of a record that a rule compares, within a budget of steps.
#pragma once

#include "marc/standardNumber.h"
#include "schema/recordView.h"
#include "schema/rule.h"
#include <QDate>
#include <algorithm>

namespace schema {

// A place in the current record.
struct FoundPlace {
    int field = -1; // index in the fields; -1: none
    char16_t code = noCode;
    int element = -1;
};

class ValueWalk {
public:
    explicit ValueWalk(const QDate &today);

    // Starts with another record, which must not change before end() is called. Fails if it has too many fields.
    bool begin(const RecordView &record);
    void end();

    // Starts with another rule.
    void renewBudget();
    // Subtracts the steps; returns false if the budget is exhausted.
    bool spend(qsizetype steps) {
        m_budget -= steps + 1;
        m_givenUp = m_givenUp || m_budget < 0;
        return !m_givenUp;
    }
    void giveUp() { m_givenUp = true; }
    bool givenUp() const { return m_givenUp; }

    // The field that the rule is checked for; -1: none.
    int current() const { return m_current; }
    void setCurrent(int field) { m_current = field; }
    const std::vector<Field> &fields() const { return m_record->fields(); }

    // Call visitor(value, place) for the values of a path or an operand, until it returns true. Return whether it did.
    template <class Visit>
    bool visit(const Path &path, const Visit &visitor);
    template <class Visit>
    bool visitAll(const Operand &operand, const Visit &visitor);

private:
    template <class Visit>
    bool visitField(const Path &path, int index, const Visit &visitor);
    int count(const Paths &paths);
    qsizetype countIsbns(const Paths &paths);

    QString m_today; // 20260131
    const RecordView *m_record = nullptr;
    std::vector<qint16> m_first; // by tag: index of the first field, or -1
    std::vector<qint16> m_next;  // by field: index of the next one with its tag, or -1
    int m_current = -1;
    qsizetype m_budget = 0; // steps left for the rule on this record
    bool m_givenUp = false;
};

// Returns the first four digits in a row that are not part of a longer number; an empty text if there are none.
QStringView yearIn(QStringView text);

template <class Visit>
bool ValueWalk::visitField(const Path &path, int index, const Visit &visitor) {
    const Field &field = m_record->fields()[size_t(index)];
    const auto visitValue = [&](QStringView value, char16_t code, int element) {
        if (path.start >= 0) {
            if (path.start >= value.size())
                return false;
            value = value.sliced(path.start, qMin(qsizetype(path.end), value.size() - 1) - path.start + 1);
        }
        return spend(0) && visitor(value, FoundPlace{index, code, element});
    };
    switch (path.part) {
    case Path::Part::Field:
        return visitValue(field.value, noCode, field.element);
    case Path::Part::Indicator: {
        const char16_t sign = field.indicators[size_t(path.indicator)];
        return visitValue(QStringView(&sign, 1), noCode, field.element);
    }
    default:
        break;
    }
    if (!spend(field.subfieldCount)) // those with other codes take time too
        return false;
    for (const Subfield &subfield : m_record->subfields(field)) {
        if ((path.part == Path::Part::AnySubfield || subfield.code == path.code) &&
            visitValue(subfield.value, subfield.code, subfield.element))
            return true;
    }
    return false;
}

template <class Visit>
bool ValueWalk::visit(const Path &path, const Visit &visitor) {
    if (path.ofCurrentField)
        return visitField(path, m_current, visitor);
    if (path.isOneTag()) {
        for (int i = m_first[size_t(path.firstTag)]; i >= 0 && !m_givenUp; i = m_next[size_t(i)]) {
            if (visitField(path, i, visitor))
                return true;
        }
        return false;
    }
    if (!spend(qsizetype(m_record->fields().size())))
        return false;
    for (int i = 0; i < int(m_record->fields().size()) && !m_givenUp; ++i) {
        if (path.matchesTag(m_record->fields()[size_t(i)].tag) && visitField(path, i, visitor))
            return true;
    }
    return false;
}

template <class Visit>
bool ValueWalk::visitAll(const Operand &operand, const Visit &visitor) {
    switch (operand.kind) {
    case Operand::Kind::Text:
        return visitor(operand.text, FoundPlace());
    case Operand::Kind::Today:
        return visitor(m_today, FoundPlace());
    case Operand::Kind::ThisYear:
        return visitor(QStringView(m_today).first(4), FoundPlace());
    case Operand::Kind::Count:
        return visitor(QString::number(count(operand.paths)), FoundPlace());
    case Operand::Kind::Isbns:
        return visitor(QString::number(countIsbns(operand.paths)), FoundPlace());
    default:
        break;
    }
    const auto visitComputed = [&](QStringView value, const FoundPlace &place) {
        switch (operand.kind) {
        case Operand::Kind::Length:
            return visitor(QString::number(value.size()), place);
        case Operand::Kind::Year: {
            const QStringView year = yearIn(value);
            return !year.isEmpty() && visitor(year, place);
        }
        case Operand::Kind::Isbn: {
            const marc::IsbnKey key = marc::isbnKey(value);
            return key != 0 && visitor(QString::number(key), place);
        }
        default:
            return visitor(value, place);
        }
    };
    return std::ranges::any_of(operand.paths, [&](const Path &path) { return visit(path, visitComputed); });
}

} // namespace schema
