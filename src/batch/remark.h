// A finding about a record of a batch, as a value that is small enough for a million of them. The words of the findings
// of a validation are made when they are shown, by RuleBook.
#pragma once

#include "schema/finding.h"
#include <array>
#include <compare>

namespace batch {

enum class Kind : quint8 {
    Unchecked, // could not be checked
    Directory,
    Required,
    Repeated,
    Template,
    Isbn,
    Issn,
    InBatch,
    InStore,
    Refused,
    LeftOut, // by the user's choice
    Format,  // violates the schema of the format
    Rule,    // violates a rule across fields
};
inline constexpr size_t kindCount = 13;

// Returns the level of the kind, which a remark may replace.
schema::Level levelOf(Kind kind);

// A tag of at most three characters; of a longer one, the first three. Tags are in the order of their characters.
class Tag {
public:
    Tag() = default;
    explicit Tag(QStringView text);

    QString text() const;
    bool isEmpty() const { return m_characters[0] == 0; }
    auto operator<=>(const Tag &) const = default;

private:
    std::array<char16_t, 3> m_characters{}; // unused ones are 0
};

struct Remark {
    explicit Remark(int record, Kind kind, QStringView tag = {}, int fieldRow = 0, QString text = {});
    Remark(int record, const schema::Finding &finding);

    int record = -1;  // row in the list of records, counted from 0; -1: about the whole batch
    int fieldRow = 0; // row on the field grid, whose row 0 is the heading; 0: none, or the field is missing
    QString text;     // the words; for findings of a validation, the value
    Tag tag;          // empty if no field is concerned
    Kind kind = Kind::Unchecked;
    schema::Level level = schema::Level::Error;
    // Of Format and Rule, as in schema::Finding.
    schema::Check check = schema::Check::UndefinedField;
    qint8 indicator = 0;
    char16_t code = schema::noCode;
    qint16 start = -1, end = -1;
    qint16 rule = -1;
};
static_assert(sizeof(Remark) <= 56);

// Returns the finding of the validation; meaningful for Kind::Format and Kind::Rule only.
schema::Finding findingOf(const Remark &remark);

} // namespace batch
