// A record in the form that validation walks through: leader, fields with indicators and subfields, tags as numbers.
// All texts are views of the record that was read.
#pragma once

#include "marc/fieldRows.h"
#include "marc/fieldedRecord.h"
#include <QStringView>
#include <array>
#include <deque>
#include <span>
#include <vector>

namespace schema {

inline constexpr int leaderTag = 1000;  // number of the leader among the tags 0 to 999
inline constexpr int unknownTag = -1;   // a tag that is not three digits
inline constexpr int tagCount = 1001;   // with the leader
inline constexpr int firstDataTag = 10; // fields from this tag on have indicators and subfields
inline constexpr char16_t noCode = 0;   // a delimiter without a code

struct Subfield {
    char16_t code = noCode;
    QStringView value;
    int element = 0; // of the record that was read
};

struct Field {
    int tag = unknownTag;
    QStringView tagText;
    QStringView value;                    // of a flat field; else empty
    std::array<char16_t, 2> indicators{}; // 0: there is none
    int firstSubfield = 0;
    int subfieldCount = 0;
    int element = 0; // of the record that was read
};

// One object is reused for all records. A record must not change or be destroyed while the views of it are in use.
class RecordView {
public:
    void read(const marc::FieldRows &rows);       // elements are rows
    void read(const marc::FieldedRecord &record); // elements are fields, counted from 1; 0 is the leader

    const std::vector<Field> &fields() const { return m_fields; } // the leader is first, if there is one
    std::span<const Subfield> subfields(const Field &field) const {
        return std::span(m_subfields).subspan(size_t(field.firstSubfield), size_t(field.subfieldCount));
    }

private:
    void clear();
    void addField(const marc::FieldRow &row, int element);
    void addSubfield(const marc::FieldRow &row, int element);
    void addEmbedded(QStringView value, int element);
    QStringView withBlanks(const QString &value, qsizetype count);

    std::vector<Field> m_fields;
    std::vector<Subfield> m_subfields;
    std::deque<QString> m_owned; // values of which the grid shows a changed form
};

// Returns the number of a tag of three digits, leaderTag for "LDR", else unknownTag.
int tagNumber(QStringView tag);

// Returns "200", or "LDR" for the leader.
QString tagName(int tag);

} // namespace schema
