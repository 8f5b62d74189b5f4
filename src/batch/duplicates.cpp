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

DuplicateSearch::DuplicateSearch(const database::SessionState &state, std::vector<SoughtRecord> sought)
    : m_state(state)
    , m_sought(std::move(sought))
    , m_hits(m_sought.size()) {
    for (size_t i = 0; i < m_sought.size(); ++i) {
        const BookIdentity &identity = m_sought[i].identity;
        for (const marc::IsbnKey isbn : identity.isbns)
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
            return {notSearched(u"未能查重："_s, opened.failure())};
        }
        m_connection = std::move(opened).value();
    }
    const platform::Status status = m_walk ? walk() : begin();
    return status && m_walk->more ? std::vector<Remark>() : endTable(status);
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
        const auto [from, to] = std::as_const(m_byIsbn).equal_range(key);
        for (auto found = from; found != to; ++found)
            hit(*found, rows, row, true);
    }
    // An ISBN that the import truncated is shared by many books; only together with the title it identifies one.
    const QString cut = marc::cutIsbn13(isbn);
    if (cut.isEmpty() && !m_anyByTitle)
        return;
    const auto [from, to] = std::as_const(m_byTitle).equal_range(comparedTitle(rows.text(row, Title)));
    for (auto found = from; found != to; ++found) {
        const BookIdentity &identity = m_sought[size_t(*found)].identity;
        const auto isCut = [&cut](marc::IsbnKey key) { return marc::beginsWith(key, cut); };
        if (std::ranges::any_of(identity.isbns, isCut))
            hit(*found, rows, row, true);
        else if (identity.isbns.empty() && identity.author == comparedAuthor(rows.text(row, Author)))
            hit(*found, rows, row, false);
    }
}

void DuplicateSearch::hit(int sought, const database::ResultTable &rows, int row, bool byIsbn) {
    Hit &hit = m_hits[size_t(sought)];
    if (hit.rows++ > 0)
        return;
    hit.byIsbn = byIsbn;
    hit.first = u"控制号 %1《%2》%3"_s.arg(rows.text(row, Key), rows.text(row, Title), rows.text(row, Author));
}

std::vector<Remark> DuplicateSearch::endTable(const platform::Status &status) {
    const QString called = tables[m_table].called.toString();
    std::vector<Remark> remarks;
    for (size_t i = 0; i < m_hits.size(); ++i) {
        const Hit &hit = m_hits[i];
        if (hit.rows == 0)
            continue;
        const SoughtRecord &sought = m_sought[i];
        QString text = called + (hit.byIsbn ? u"已有相同ISBN：" : u"已有同题名同作者：") + hit.first;
        if (hit.rows > 1)
            text += u"，共 %1 条"_s.arg(hit.rows);
        remarks.emplace_back(sought.record, Kind::InStore, sought.identity.tag, sought.identity.fieldRow,
                             withoutLineEnds(text));
    }
    if (!status)
        remarks.push_back(notSearched(called + u"未能查完：", status.failure()));
    m_hits.assign(m_sought.size(), Hit{});
    m_walk.reset();
    ++m_table;
    return remarks;
}

} // namespace batch
