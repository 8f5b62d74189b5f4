#include "batch/batchProof.h"
#include "platform/numbers.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

struct ReportLine {
    QString tag; // empty where the line names none
    QString text;
};

constexpr QStringView errorMark = u"Error:";
constexpr QStringView fieldWord = u"字段";
constexpr qsizetype tagLength = 3;

ReportLine readLine(QStringView line) {
    ReportLine read;
    if (const qsizetype end = line.indexOf(u'】'); line.startsWith(u'【') && end > 0) {
        read.tag = line.sliced(1, std::min(tagLength, end - 1)).toString();
        line = line.sliced(end + 1);
    }
    if (line.startsWith(errorMark))
        line = line.sliced(errorMark.size());
    if (read.tag.isEmpty() && line.mid(tagLength).startsWith(fieldWord))
        read.tag = line.first(tagLength).toString();
    read.text = line.toString();
    return read;
}

std::vector<ReportLine> readReport(const QString &report) {
    std::vector<ReportLine> lines;
    for (QStringView line : QStringView(report).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.startsWith(u' ') && !lines.empty())
            lines.back().text += u' ' + line.trimmed();
        else if (!line.trimmed().isEmpty())
            lines.push_back(readLine(line));
    }
    return lines;
}

// The element of a field by its place among those of its tag, from 0; -1 where there are not so many.
qsizetype fieldAt(const marc::FieldRows &rows, QStringView tag, int place) {
    for (qsizetype at = 0; at < rows.size(); ++at)
        if (rows[at].identifier == tag && place-- == 0)
            return at;
    return -1;
}

// The proof of the ISBN knows the form of ten alone and finds fault with every one of thirteen. It looks at the last
// filled $a of the first field.
bool provesIsbn13(const marc::FieldRows &rows) {
    const qsizetype field = fieldAt(rows, u"010", 0);
    bool thirteen = false;
    for (qsizetype at = field + 1; field >= 0 && at < rows.size() && !marc::isFieldRow(rows[at]); ++at)
        if (const QString value = platform::trimBlanks(rows[at].value);
            rows[at].identifier == u"$a" && !value.isEmpty())
            thirteen = isIsbn13(value);
    return thirteen;
}

} // namespace

BatchProof::BatchProof(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof)
    : m_records(std::move(records))
    , m_proof(std::move(proof)) {}

std::vector<Remark> BatchProof::step() {
    m_remarks.clear();
    const int row = m_next++;
    const marc::RawRecord record = m_records->record(row);
    if (record.isEmpty())
        return {};
    ++m_proved;
    const marc::ShownRecord shown = marc::showRecord(record);
    if (shown.damaged) { // all else that could be said follows from that
        remark(Kind::Directory, {}, 0, u"目次区损坏，字段读不出来"_s);
        return std::exchange(m_remarks, {});
    }
    if (shown.cutOff)
        remark(Kind::Directory, {}, 0, u"目次区的字段互相重叠，未能全部列出"_s);
    takeReports(shown.rows);
    checkNumbers(shown.rows);
    compare(identityOf(shown.rows));
    return std::exchange(m_remarks, {});
}

int BatchProof::total() const {
    int rows = m_records->rowCount();
    while (rows > 0 && m_records->record(rows - 1).isEmpty()) // a list starts with some
        --rows;
    return rows;
}

void BatchProof::remark(Kind kind, const QString &tag, int fieldRow, const QString &text) {
    const int row = m_next - 1;
    m_remarks.push_back({row, m_records->title(row), kind, tag, fieldRow, text});
}

void BatchProof::takeReports(const marc::FieldRows &rows) {
    const ProofReports reports = m_proof(rows);
    if (!reports.complaint.isEmpty() && reports.complaint != m_complaint) {
        m_complaint = reports.complaint;
        m_remarks.push_back({-1, {}, Kind::Unchecked, {}, 0, m_complaint});
    }
    takeLines(reports.structural, rows,
              [&rows](QStringView tag) { return fieldAt(rows, tag, 0) < 0 ? Kind::Required : Kind::Repeated; });
    takeLines(reports.byTemplate, rows, [](QStringView) { return Kind::Template; });
    if (!provesIsbn13(rows))
        takeLines(reports.isbn, rows, [](QStringView) { return Kind::Isbn; });
}

void BatchProof::takeLines(const QString &report, const marc::FieldRows &rows,
                           const std::function<Kind(QStringView)> &kindOf) {
    for (const ReportLine &line : readReport(report)) {
        const Kind kind = kindOf(line.tag);
        remark(kind, line.tag, gridRow(fieldAt(rows, line.tag, kind == Kind::Repeated ? 1 : 0)), line.text);
    }
}

void BatchProof::checkNumbers(const marc::FieldRows &rows) {
    for (const qsizetype element : subfieldsOf(rows, u"010", u"$a"))
        if (const auto fault = isbn13Fault(rows[element].value))
            remark(Kind::Isbn, u"010"_s, gridRow(element), *fault);
    for (const qsizetype element : subfieldsOf(rows, u"011", u"$a"))
        if (const auto fault = issnFault(rows[element].value))
            remark(Kind::Issn, u"011"_s, gridRow(element), *fault);
}

void BatchProof::compare(BookIdentity identity) {
    const int row = m_next - 1;
    int toldOf = -1;
    for (const IsbnKey isbn : identity.isbns) {
        const auto first = m_firstOf.constFind(isbn);
        if (first == m_firstOf.constEnd()) {
            m_firstOf.insert(isbn, row);
        } else if (*first != toldOf) {
            toldOf = *first;
            remark(Kind::InBatch, identity.tag, identity.fieldRow,
                   u"与第 %1 条的ISBN相同：《%2》"_s.arg(QString::number(toldOf + 1), m_records->title(toldOf)));
        }
    }
    if (!identity.isEmpty())
        m_sought.push_back({row, m_records->title(row), std::move(identity)});
}

} // namespace batch
