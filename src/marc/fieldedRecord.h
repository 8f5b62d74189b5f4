// A record as fields: the form in which records are checked, changed, converted and received from elsewhere. It is
// Unicode, has no lengths and no addresses, and keeps every character of a field, even if the field breaks the format.
// FieldRows is the form of the grid.
#pragma once

#include "marc/isoLayout.h"
#include <QString>
#include <QStringView>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace marc {

// Views of the content of a field.
struct Subfield {
    QStringView code; // one character; empty if the delimiter is followed by the next one or by the end of the field
    QStringView text;
};

// The subfields of a field, in order: what follows each delimiter. The subfields of an embedded field follow the "1"
// that contains its tag.
class Subfields {
public:
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using difference_type = std::ptrdiff_t;
        using value_type = Subfield;
        using pointer = void;
        using reference = Subfield;

        Iterator() = default;
        explicit Iterator(QStringView fromDelimiter)
            : m_rest(fromDelimiter) {
            findEnd();
        }
        Subfield operator*() const;
        Iterator &operator++() {
            m_rest = m_rest.sliced(m_size);
            findEnd();
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        // Compares iterators of the same field.
        friend bool operator==(const Iterator &a, const Iterator &b) { return a.m_rest.size() == b.m_rest.size(); }

        qsizetype size() const { return m_size; } // characters from the delimiter up to the next one

    private:
        void findEnd();
        QStringView m_rest;   // from the delimiter to the end of the field
        qsizetype m_size = 0; // of the subfield
    };

    explicit Subfields(QStringView content);
    Iterator begin() const { return Iterator(m_fromFirst); }
    Iterator end() const { return {}; }

private:
    QStringView m_fromFirst; // empty if there is no subfield
};

struct Field {
    QString tag;     // three characters
    QString content; // without the terminator: data, or two indicators and the subfields with their delimiters

    bool isControl() const { return tag.startsWith(u"00"); }
    // Returns the text before the first delimiter: the indicators; all of the content if there is no subfield.
    QStringView beforeSubfields() const;
    Subfields subfields() const { return Subfields(content); }
    // Returns the text of the first subfield with that code; std::nullopt if there is none.
    std::optional<QStringView> subfield(QChar code) const;

    void setBeforeSubfields(QStringView text);
    // `index` is counted from 0 over subfields(). A subfield inserted at or after the end becomes the last one; other
    // changes do nothing if there is no such subfield. The texts may be views of this content.
    void insertSubfield(int index, QStringView code, QStringView text);
    void setSubfield(int index, QStringView text);
    void removeSubfield(int index);

    friend bool operator==(const Field &, const Field &) = default;

private:
    std::pair<qsizetype, qsizetype> placeOf(int index) const;
};

// The result of cutting a record into fields.
enum class Cut {
    Exact,   // the directory describes every field to the byte; nothing is lost if the record is written again
    Inexact, // lengths or addresses are wrong: fields may be cut off, overlap or be missing
    None     // there is no directory, or its length is wrong; there are no fields
};

// Returns whether the tag consists of three letters or digits of ASCII.
bool isTag(QByteArrayView tag);

// Returns a leader of exactly 24 characters of ASCII; others become blanks.
QString fitLeader(QByteArrayView leader);

struct FieldedRecord {
    QString leader; // 24 characters; the length and the address in it are not used
    std::vector<Field> fields;

    // Replaces leader and fields by those of a record whose directory counts GBK bytes. Reuses the memory of the
    // previous record. Exact also if the fields are stored in another order than that of the directory.
    Cut take(QStringView record);
    // Replaces leader and fields. `tags` has three characters for each field, `data` their contents in this order, each
    // followed by its terminator. Returns false if data has another number of terminators; the contents are then not
    // valid.
    bool take(QByteArrayView leaderText, QByteArrayView tags, QStringView data);
    // Returns the index for a new field with that tag: after the last field whose tag is not greater.
    size_t placeFor(QStringView tag) const;

    friend bool operator==(const FieldedRecord &, const FieldedRecord &) = default;
};

} // namespace marc
