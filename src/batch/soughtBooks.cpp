#include "batch/soughtBooks.h"
#include <QHashFunctions>
#include <algorithm>

namespace batch {

namespace {

// Returns 0 for an empty text only.
quint64 keyOf(const QString &text) {
    return text.isEmpty() ? 0 : qMax(quint64(qHash(text)), quint64(1));
}

} // namespace

void SoughtBooks::add(int record, const BookIdentity &identity) {
    m_anyWithoutIsbn = m_anyWithoutIsbn || identity.isbns.empty();
    m_books.add({.key = keyOf(identity.title),
                 .author = quint32(keyOf(identity.author)),
                 .record = record,
                 .fieldRow = identity.fieldRow,
                 .isbn = identity.isbns.empty() ? none : m_isbns.size()});
    for (const marc::IsbnKey isbn : identity.isbns)
        m_isbns.add({.key = isbn, .book = m_books.size() - 1});
}

int SoughtBooks::recordWith(marc::IsbnKey isbn) const {
    const int first = m_isbns.first(isbn);
    return first == none ? none : m_books[m_isbns[first].book].record;
}

std::vector<int> SoughtBooks::withIsbn(marc::IsbnKey isbn) const {
    std::vector<int> books;
    for (int at = m_isbns.first(isbn); at != none; at = m_isbns.after(at))
        books.push_back(m_isbns[at].book);
    return books;
}

std::vector<int> SoughtBooks::withTitle(const QString &title) const {
    std::vector<int> books;
    for (int at = title.isEmpty() ? none : m_books.first(keyOf(title)); at != none; at = m_books.after(at))
        books.push_back(at);
    return books;
}

bool SoughtBooks::hasCutIsbn(int book, const QString &cut) const {
    for (int at = m_books[book].isbn; at != none && at < m_isbns.size() && m_isbns[at].book == book; ++at) {
        if (marc::beginsWith(m_isbns[at].key, cut))
            return true;
    }
    return false;
}

bool SoughtBooks::isBy(int book, const QString &author) const {
    return m_books[book].author == quint32(keyOf(author));
}

} // namespace batch
