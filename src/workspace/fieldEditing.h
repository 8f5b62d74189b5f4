// The rules by which the rows of the field grid may be changed. Rows are numbered as on the grid: row 1 is the first
// element of the list, row 0 the heading. While editing, "???" begins a field as a number does.
#pragma once

#include "marc/fieldRows.h"
#include <QStringList>
#include <optional>

namespace workspace {

inline constexpr QStringView ownField = u"???"; // a field whose tag the user supplies

// Columns 1, 2 and 3, which the one-line editor edits.
enum class IdentityColumn { FieldLabel = 1, Identifier = 2, SubfieldLabel = 3 };

bool beginsField(const marc::FieldRow &row);
// The row itself where it begins a field, else the nearest one above that does.
std::optional<int> fieldOf(const marc::FieldRows &rows, int row);
// The tag that a record's subfields are looked up by; empty where the row belongs to no field.
QString tagOf(const marc::FieldRows &rows, int row);

// How many characters the content of a row may have; nothing where there is no limit.
std::optional<int> contentLimit(const marc::FieldRows &rows, int row);
std::optional<int> identityLimit(const marc::FieldRow &row, IdentityColumn column);
// The words with which a typed text is refused, empty where it passes. `typed` has no blanks at its ends.
QString checkIdentity(const marc::FieldRow &row, IdentityColumn column, const QString &typed);

struct NewRow {
    int place; // the row in front of which it goes
    marc::FieldRow content;
};
// From a line of the pick list: behind the field of the current row, or at the end.
NewRow newField(const marc::FieldRows &rows, int current, const QString &line);
// Directly below the current row.
NewRow newSubfield(const marc::FieldRows &rows, int current, const QString &line);

// How many rows go with the field whose row this is, that row included.
int rowsOfField(const marc::FieldRows &rows, int field);

// How often the field 100 assistant opens on the row: once for each field 100 above a subfield a, whatever field the
// subfield belongs to.
int field100Assistants(const marc::FieldRows &rows, int row);

// What the content of a row loses when the record is stored.
struct Losses {
    QStringList characters;         // that code page 936 lacks, each once
    bool separators = false;        // it holds characters that part fields from each other
    bool foreignSeparators = false; // others than delimiters in what would be the short head of an embedded field
};
Losses lossesOf(const QString &content);
// What is to be said below the grid about the losses of its rows, one each. Empty when all is well.
QString warningOf(const marc::FieldRows &rows, const QList<Losses> &losses);

} // namespace workspace
