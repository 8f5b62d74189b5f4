#include "batch/duplicates.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

struct Table {
    QStringView name;
    QStringView called;
};

constexpr auto tables = std::to_array<Table>({
    {u"taoluTable", u"套录库"},
    {u"zsk", u"书库"},
});

// Rows wanted from a question: few enough for the window, enough for the server.
constexpr qint64 rowsWanted = 4096;
constexpr qint64 widest = 1 << 20; // keys of one question, where they are sparse

enum Column { Key, Isbn, Title, Author };

QString withoutLineEnds(QString text) {
    return text.simplified();
}

} // namespace

DuplicateSearch::DuplicateSearch(const database::SessionState &state, std::vector<SoughtRecord> sought)
    : m_state(state)
    , m_sought(std::move(sought))
    , m_hits(m_sought.size()) {
    for (std::size_t i = 0; i < m_sought.size(); ++i) {
        const BookIdentity &identity = m_sought[i].identity;
        for (const IsbnKey isbn : identity.isbns)
            m_byIsbn.insert(isbn, int(i));
        if (!identity.title.isEmpty())
            m_byTitle.insert(identity.title, int(i));
        m_anyByTitle = m_anyByTitle || identity.isbns.empty();
    }
}

bool DuplicateSearch::hasNext() const {
    return !m_sought.empty() && m_table < tables.size();
}

std::vector<Remark> DuplicateSearch::step() {
    if (!m_connection) {
        auto opened = database::Connection::open(m_state.links, m_state.connectionString);
        if (!opened) {
            m_table = tables.size();
            return {{.text = u"未能查重："_s + withoutLineEnds(opened.failure().description)}};
        }
        m_connection = std::move(opened).value();
    }
    const platform::Status status = m_range ? walk() : begin();
    if (status && m_range->next <= m_range->last)
        return {};
    return endTable(status);
}

QString DuplicateSearch::progressText() const {
    if (!hasNext())
        return {};
    const qint64 done = m_range ? (m_range->next - m_range->first) * 100 / (m_range->last - m_range->first + 1) : 0;
    return tables[m_table].called + u' ' + QString::number(std::min<qint64>(done, 100)) + u'%';
}

platform::Status DuplicateSearch::begin() {
    m_range = Range{0, 0, -1, rowsWanted};
    const auto ends =
        m_connection->query(u"select min(zskid) as firstid,max(zskid) as lastid from "_s + tables[m_table].name);
    if (!ends)
        return ends.failure();
    if (ends.value()->rowCount() > 0 && !ends.value()->isNull(0, 1)) {
        m_range->first = m_range->next = ends.value()->text(0, 0).toLongLong();
        m_range->last = ends.value()->text(0, 1).toLongLong();
    }
    return platform::success();
}

platform::Status DuplicateSearch::walk() {
    const qint64 end = std::min(m_range->next + m_range->width - 1, m_range->last);
    const auto rows =
        m_connection->query(u"select zskid,isbn,bookname,author from %1 where zskid between %2 and %3"_s.arg(
            tables[m_table].name, QString::number(m_range->next), QString::number(end)));
    if (!rows)
        return rows.failure();
    const int count = rows.value()->rowCount();
    for (int row = 0; row < count; ++row)
        match(*rows.value(), row);
    m_range->next = end + 1;
    if (count < rowsWanted / 2)
        m_range->width = std::min(m_range->width * 2, widest);
    else if (count > rowsWanted * 2)
        m_range->width = std::max<qint64>(m_range->width / 2, 1);
    return platform::success();
}

void DuplicateSearch::match(const database::ResultTable &rows, int row) {
    const QString isbn = rows.text(row, Isbn);
    if (const IsbnKey key = isbnKey(isbn)) {
        const auto [from, to] = std::as_const(m_byIsbn).equal_range(key);
        for (auto found = from; found != to; ++found)
            hit(*found, rows, row, true);
    }
    // What the import has cut of an ISBN is shared by many books; title and digits together are one.
    const QString cut = cutIsbn13(isbn);
    if (cut.isEmpty() && !m_anyByTitle)
        return;
    const auto [from, to] = std::as_const(m_byTitle).equal_range(comparedTitle(rows.text(row, Title)));
    for (auto found = from; found != to; ++found) {
        const BookIdentity &identity = m_sought[std::size_t(*found)].identity;
        const auto isCut = [&cut](IsbnKey key) { return beginsWith(key, cut); };
        if (std::ranges::any_of(identity.isbns, isCut))
            hit(*found, rows, row, true);
        else if (identity.isbns.empty() && identity.author == comparedAuthor(rows.text(row, Author)))
            hit(*found, rows, row, false);
    }
}

void DuplicateSearch::hit(int sought, const database::ResultTable &rows, int row, bool byIsbn) {
    Hit &hit = m_hits[std::size_t(sought)];
    if (hit.rows++ > 0)
        return;
    hit.byIsbn = byIsbn;
    hit.first = u"控制号 %1《%2》%3"_s.arg(rows.text(row, Key), rows.text(row, Title), rows.text(row, Author));
}

std::vector<Remark> DuplicateSearch::endTable(const platform::Status &status) {
    const QString called = tables[m_table].called.toString();
    std::vector<Remark> remarks;
    for (std::size_t i = 0; i < m_hits.size(); ++i) {
        const Hit &hit = m_hits[i];
        if (hit.rows == 0)
            continue;
        const SoughtRecord &sought = m_sought[i];
        QString text = called + (hit.byIsbn ? u"已有相同ISBN：" : u"已有同题名同作者：") + hit.first;
        if (hit.rows > 1)
            text += u"，共 %1 条"_s.arg(hit.rows);
        remarks.push_back({sought.record, sought.listTitle, Kind::InStore, sought.identity.tag,
                           sought.identity.fieldRow, withoutLineEnds(text)});
    }
    if (!status)
        remarks.push_back({.text = called + u"未能查完：" + withoutLineEnds(status.failure().description)});
    m_hits.assign(m_sought.size(), Hit{});
    m_range.reset();
    ++m_table;
    return remarks;
}

} // namespace batch
