// The books of a batch, found by ISBN or by title. A book takes some 60 bytes: of title and author only hash values are
// kept, 64 and 32 bits.
#pragma once

#include "batch/bookIdentity.h"
#include <bit>
#include <deque>
#include <utility>
#include <vector>

namespace batch {

// A growing list of entries that are found by the number `key`, except those with the key 0. This class sets `next` of
// an entry. Each entry adds one slot, so that no call takes long, however many entries there are.
template <class Entry>
class KeyedList {
public:
    static constexpr int none = -1;

    const Entry &operator[](int at) const { return m_entries[size_t(at)]; }
    int size() const { return int(m_entries.size()); }

    // Return the first entry with this key that was added, and the next one with the key of an entry; none if there is
    // none. After the first one the order is undefined.
    int first(quint64 key) const { return m_heads.empty() ? none : found(m_heads[slotOf(key)], key); }
    int after(int at) const { return found((*this)[at].next, (*this)[at].key); }

    void add(const Entry &entry) {
        m_entries.push_back(entry);
        addSlot();
        if (entry.key != 0)
            link(size() - 1);
    }

private:
    // The number of slots may lie between two powers of two: a slot of the lower half is then split by the next bit of
    // the hash value if its counterpart in the upper half exists.
    size_t slotOf(quint64 key) const {
        constexpr quint64 spread = 0x9E37'79B9'7F4A'7C15; // odd; its multiples differ in the upper half
        const size_t half = std::bit_floor(m_heads.size());
        const size_t slot = size_t(key * spread >> 32) & (2 * half - 1);
        return slot < m_heads.size() ? slot : slot - half;
    }
    // Moves the entries that belong to the new slot there. Their order stays.
    void addSlot() {
        const size_t slot = m_heads.size();
        m_heads.push_back(none);
        if (slot == 0)
            return;
        int &lower = m_heads[slot - std::bit_floor(slot)];
        int *ends[] = {&lower, &m_heads[slot]};
        for (int at = std::exchange(lower, none); at != none;) {
            Entry &entry = m_entries[size_t(at)];
            int *&end = ends[slotOf(entry.key) == slot];
            *end = at;
            end = &entry.next;
            at = std::exchange(entry.next, none);
        }
    }
    int found(int at, quint64 key) const {
        while (at != none && (*this)[at].key != key)
            at = (*this)[at].next;
        return at;
    }
    // An entry whose key is present already follows the first one with this key.
    void link(int at) {
        Entry &entry = m_entries[size_t(at)];
        const int same = first(entry.key);
        int &before = same == none ? m_heads[slotOf(entry.key)] : m_entries[size_t(same)].next;
        entry.next = before;
        before = at;
    }

    std::deque<Entry> m_entries;
    std::vector<int> m_heads; // by slot: the first entry
};

class SoughtBooks {
public:
    static constexpr int none = -1;
    struct Book {
        quint64 key = 0; // of the title; 0: none
        quint32 author = 0;
        int record = 0;   // row in the list, counted from 0
        int fieldRow = 0; // as in BookIdentity
        int isbn = none;  // the first of its ISBNs
        int next = none;

        QStringView tag() const { return isbn == none ? u"200" : u"010"; }
    };

    // Adds a book that has ISBNs or a title.
    void add(int record, const BookIdentity &identity);

    int count() const { return m_books.size(); }
    const Book &operator[](int book) const { return m_books[book]; }
    bool anyWithoutIsbn() const { return m_anyWithoutIsbn; }

    // Returns the record of the first book with this ISBN; none if there is none.
    int recordWith(marc::IsbnKey isbn) const;
    // Return the numbers of the books with this ISBN or this title, which has the form that is compared.
    std::vector<int> withIsbn(marc::IsbnKey isbn) const;
    std::vector<int> withTitle(const QString &title) const;
    // Returns whether an ISBN of the book may be the one that was cut off in the table.
    bool hasCutIsbn(int book, const QString &cut) const;
    // Returns whether the author, in the form that is compared, is that of the book.
    bool isBy(int book, const QString &author) const;

private:
    struct Isbn {
        quint64 key = 0;
        int book = 0;
        int next = none;
    };

    KeyedList<Book> m_books;
    KeyedList<Isbn> m_isbns; // those of a book one after the other
    bool m_anyWithoutIsbn = false;
};

} // namespace batch
