#include "targets/foundRecords.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

// Returns the first four digits in a row, as "1996" of "1996.12" or "c2008"; the whole text if there are none.
QString yearIn(const QString &text) {
    constexpr qsizetype digits = 4;
    qsizetype count = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        count = text[at].isDigit() ? count + 1 : 0;
        if (count == digits)
            return text.sliced(at + 1 - digits, digits);
    }
    return text;
}

// Catalogues differ in blanks and in the signs between parts of a title.
QString titleKey(const Summary &summary) {
    QString key;
    for (const QChar character : QString(summary.title + u'/' + summary.author)) {
        if (character.isLetterOrNumber())
            key += character.toCaseFolded();
    }
    return key.isEmpty() ? key : QString(key + u'/' + yearIn(summary.year));
}

} // namespace

void FoundRecords::add(const QString &target, qsizetype bytes, marc::FieldedRecord record) {
    Row row{.record = std::move(record), .target = target, .bytes = bytes};
    row.summary = summaryOf(row.record);
    if (m_proof)
        row.faults = m_proof(row.record);
    const std::vector<marc::IsbnKey> isbns = isbnsOf(row.record);
    const QString title = isbns.empty() ? titleKey(row.summary) : QString();
    const int index = rowCount();
    for (const marc::IsbnKey isbn : isbns) {
        const auto earlier = m_byIsbn.constFind(isbn);
        if (earlier == m_byIsbn.constEnd())
            m_byIsbn.insert(isbn, index);
        else if (row.sameAs < 0)
            row.sameAs = *earlier;
    }
    if (!title.isEmpty()) {
        row.sameAs = m_byTitle.value(title, -1);
        if (row.sameAs < 0)
            m_byTitle.insert(title, index);
    }
    m_rows.push_back(std::move(row));
}

void FoundRecords::markHeld(int row, const QString &words) {
    m_rows[size_t(row)].held.append(words);
}

void FoundRecords::forgetHeld() {
    for (Row &row : m_rows)
        row.held.clear();
}

void FoundRecords::tickAll(bool ticked) {
    for (Row &row : m_rows)
        row.ticked = ticked;
}

int FoundRecords::ticked() const {
    return int(std::ranges::count(m_rows, true, &Row::ticked));
}

std::vector<marc::FieldedRecord> FoundRecords::wanted(int current) const {
    std::vector<marc::FieldedRecord> wanted;
    for (const Row &row : m_rows) {
        if (row.ticked)
            wanted.push_back(row.record);
    }
    if (wanted.empty() && current >= 0 && current < rowCount())
        wanted.push_back(record(current));
    return wanted;
}

std::vector<marc::FieldedRecord> FoundRecords::records() const {
    std::vector<marc::FieldedRecord> all;
    all.reserve(m_rows.size());
    for (const Row &row : m_rows)
        all.push_back(row.record);
    return all;
}

QString FoundRecords::known(const Row &row) const {
    QStringList words = row.held;
    if (row.sameAs >= 0)
        words.append(u"同第 %1 条"_s.arg(row.sameAs + 1));
    return words.join(u"；"_s);
}

QString FoundRecords::text(int row, int column) const {
    const Row &at = m_rows[size_t(row)];
    switch (column) {
    case TickColumn:
        return at.ticked ? u"✓"_s : QString();
    case TitleColumn:
        return at.summary.title;
    case AuthorColumn:
        return at.summary.author;
    case PublisherColumn:
        return at.summary.publisher;
    case YearColumn:
        return yearIn(at.summary.year);
    case IsbnColumn:
        return at.summary.isbn;
    case TargetColumn:
        return at.target;
    case SizeColumn:
        return QString::number(at.bytes);
    case ErrorColumn:
        return at.faults ? QString::number(at.faults->errors) : QString();
    case WarningColumn:
        return at.faults ? QString::number(at.faults->warnings) : QString();
    case KnownColumn:
        return known(at);
    default:
        return {};
    }
}

} // namespace targets
