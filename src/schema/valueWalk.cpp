#include "schema/valueWalk.h"
#include <QSet>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr qsizetype budget = 2'000'000; // characters looked at by one rule in one record
constexpr size_t mostFields = 30'000;

} // namespace

ValueWalk::ValueWalk(const QDate &today)
    : m_today(today.toString(u"yyyyMMdd"))
    , m_first(tagCount, -1) {}

bool ValueWalk::begin(const RecordView &record) {
    m_record = &record;
    if (record.fields().size() > mostFields)
        return false;
    const std::vector<Field> &fields = m_record->fields();
    m_next.assign(fields.size(), -1);
    for (size_t i = fields.size(); i-- > 0;) {
        if (fields[i].tag == unknownTag)
            continue;
        qint16 &first = m_first[size_t(fields[i].tag)];
        m_next[i] = first;
        first = qint16(i);
    }
    return true;
}

void ValueWalk::end() {
    for (const Field &field : m_record->fields()) {
        if (field.tag != unknownTag)
            m_first[size_t(field.tag)] = -1;
    }
}

void ValueWalk::renewBudget() {
    m_budget = budget;
    m_givenUp = false;
}

int ValueWalk::count(const Paths &paths) {
    int counted = 0;
    for (const Path &path : paths) {
        visit(path, [&counted](QStringView, const FoundPlace &) {
            ++counted;
            return false;
        });
    }
    return counted;
}

// Returns the number of different ISBNs, of which one may be spelled in several ways.
qsizetype ValueWalk::countIsbns(const Paths &paths) {
    QSet<marc::IsbnKey> keys;
    for (const Path &path : paths) {
        visit(path, [&keys](QStringView value, const FoundPlace &) {
            if (const marc::IsbnKey key = marc::isbnKey(value))
                keys.insert(key);
            return false;
        });
    }
    return keys.size();
}

// Returns the first four digits in a row that are not part of a longer number.
QStringView yearIn(QStringView text) {
    qsizetype digits = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] >= u'0' && text[i] <= u'9') {
            ++digits;
            continue;
        }
        if (digits == 4)
            return text.sliced(i - 4, 4);
        digits = 0;
    }
    return {};
}

} // namespace schema
