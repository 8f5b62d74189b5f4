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

// Rows per query: few enough to keep the window responsive, enough to keep the number of queries low.
constexpr int rowsWanted = 4096;
constexpr size_t remarksPerStep = 500;
constexpr int hitsDropped = 5000;

enum Column { Key, Isbn, Title, Author };

platform::Failure unreadableKey() {
    return {u"控制号不是 64 位的整数"_s};
}

std::optional<qint64> keyOf(const database::ResultTable &rows, int row, int column) {
    bool isNumber = false;
    const qint64 key = rows.text(row, column).toLongLong(&isNumber);
    return isNumber ? std::optional(key) : std::nullopt;
}

QString withoutLineEnds(QString text) {
    return text.simplified();
}

Remark notSearched(const QString &what, const platform::Failure &why) {
    return Remark(-1, Kind::Unchecked, {}, 0, what + withoutLineEnds(why.description));
}

} // namespace

DuplicateSearch::DuplicateSearch(const database::SessionState &state, SoughtBooks books)
    : m_state(state)
    , m_books(std::move(books)) {}

bool DuplicateSearch::hasNext() const {
    return m_books.count() > 0 && m_table < tables.size();
}

std::vector<Remark> DuplicateSearch::step() {
    if (!m_connection) {
        auto opened = database::Connection::open(m_state.links, m_state.connectionString);
        if (!opened) {
            m_table = tables.size();
            return {notSearched(u"未能查重："_s, opened.failure())};
        }
        m_connection = std::move(opened).value();
    }
    if (m_tableEnded)
        return tell();
    const platform::Status status = m_walk ? walk() : begin();
    if (status && m_walk->more)
        return {};
    m_tableEnded = status;
    return tell();
}

void DuplicateSearch::end() {
    m_connection = {};
}

bool DuplicateSearch::dropSome() {
    for (int dropped = 0; dropped < hitsDropped && !m_hits.empty(); ++dropped)
        m_hits.erase(m_hits.begin());
    return !m_hits.empty();
}

// The percentage is that of the range of keys, computed as double because the range may exceed any integer.
QString DuplicateSearch::progressText() const {
    if (!hasNext())
        return {};
    double share = 0;
    if (m_walk && m_walk->seen)
        share = (double(*m_walk->seen) - double(m_walk->first)) / (double(m_walk->last) - double(m_walk->first) + 1);
    return tables[m_table].called + u' ' + QString::number(std::clamp(int(share * 100), 0, 100)) + u'%';
}

platform::Status DuplicateSearch::begin() {
    m_walk.emplace(Walk{});
    const auto ends =
        m_connection->query(u"select min(zskid) as firstid,max(zskid) as lastid from "_s + tables[m_table].name);
    if (!ends)
        return ends.failure();
    m_walk->more = ends.value()->rowCount() > 0 && !ends.value()->isNull(0, 1);
    if (!m_walk->more)
        return platform::success();
    const auto first = keyOf(*ends.value(), 0, 0), last = keyOf(*ends.value(), 0, 1);
    if (!first || !last)
        return unreadableKey();
    m_walk->first = *first;
    m_walk->last = *last;
    return platform::success();
}

platform::Status DuplicateSearch::walk() {
    const QString after =
        m_walk->seen ? QString(u'>' + QString::number(*m_walk->seen)) : QString(u">=" + QString::number(m_walk->first));
    const auto rows =
        m_connection->query(u"select top %1 zskid,isbn,bookname,author from %2 where zskid%3 order by zskid"_s.arg(
            QString::number(rowsWanted), tables[m_table].name, after));
    if (!rows)
        return rows.failure();
    const int count = rows.value()->rowCount();
    m_walk->more = count >= rowsWanted;
    for (int row = 0; row < count; ++row)
        match(*rows.value(), row);
    if (count == 0)
        return platform::success();
    const auto last = keyOf(*rows.value(), count - 1, Key);
    if (!last || (m_walk->seen && *last <= *m_walk->seen)) // otherwise the walk would not end
        return unreadableKey();
    m_walk->seen = last;
    m_walk->more = m_walk->more && *last < m_walk->last;
    return platform::success();
}

void DuplicateSearch::match(const database::ResultTable &rows, int row) {
    const QString isbn = rows.text(row, Isbn);
    if (const marc::IsbnKey key = marc::isbnKey(isbn)) {
        for (const int book : m_books.withIsbn(key))
            hit(book, rows, row, true);
    }
    // An ISBN that the import truncated is shared by many books; only together with the title it identifies one.
    const QString cut = marc::cutIsbn13(isbn);
    if (cut.isEmpty() && !m_books.anyWithoutIsbn())
        return;
    for (const int book : m_books.withTitle(comparedTitle(rows.text(row, Title)))) {
        if (m_books.hasCutIsbn(book, cut))
            hit(book, rows, row, true);
        else if (m_books[book].isbn == SoughtBooks::none && m_books.isBy(book, comparedAuthor(rows.text(row, Author))))
            hit(book, rows, row, false);
    }
}

void DuplicateSearch::hit(int book, const database::ResultTable &rows, int row, bool byIsbn) {
    Hit &hit = m_hits[book];
    if (hit.rows++ > 0)
        return;
    hit.byIsbn = byIsbn;
    hit.first = u"控制号 %1《%2》%3"_s.arg(rows.text(row, Key), rows.text(row, Title), rows.text(row, Author));
}

Remark DuplicateSearch::remarkOn(int book, const Hit &hit) const {
    const SoughtBooks::Book &sought = m_books[book];
    QString text = tables[m_table].called + (hit.byIsbn ? u"已有相同ISBN：" : u"已有同题名同作者：") + hit.first;
    if (hit.rows > 1)
        text += u"，共 %1 条"_s.arg(hit.rows);
    return Remark(sought.record, Kind::InStore, sought.tag(), sought.fieldRow, withoutLineEnds(text));
}

std::vector<Remark> DuplicateSearch::tell() {
    std::vector<Remark> remarks;
    while (!m_hits.empty() && remarks.size() < remarksPerStep) {
        const auto hit = m_hits.extract(m_hits.begin());
        remarks.push_back(remarkOn(hit.key(), hit.mapped()));
    }
    if (!m_hits.empty())
        return remarks;
    if (!*m_tableEnded)
        remarks.push_back(notSearched(tables[m_table].called + u"未能查完："_s, m_tableEnded->failure()));
    m_tableEnded.reset();
    m_walk.reset();
    ++m_table;
    return remarks;
}

} // namespace batch
