// The rules for changing the rows of the field grid. Rows are numbered as on the grid: row 0 is the heading, row 1 the
// first element of the list. While editing, "???" begins a field like a number does.
#pragma once

#include "marc/fieldRows.h"
#include <QStringList>
#include <optional>

namespace workspace {

inline constexpr QStringView ownField = u"???"; // a field whose tag the user supplies

// Columns 1, 2 and 3, which the one-line editor edits.
enum class IdentityColumn { FieldLabel = 1, Identifier = 2, SubfieldLabel = 3 };

bool beginsField(const marc::FieldRow &row);
// Returns `row` if it begins a field, else the nearest row above it that does, or std::nullopt.
std::optional<int> fieldOf(const marc::FieldRows &rows, int row);
// Returns the tag of the field that the row belongs to, or an empty text if it belongs to none.
QString tagOf(const marc::FieldRows &rows, int row);

// Returns the maximum length of a row's content in characters, or std::nullopt if there is no limit.
std::optional<int> contentLimit(const marc::FieldRows &rows, int row);
std::optional<int> identityLimit(const marc::FieldRow &row, IdentityColumn column);
// Returns the message that refuses a typed text, or an empty text if it is accepted. `typed` must be trimmed.
QString checkIdentity(const marc::FieldRow &row, IdentityColumn column, const QString &typed);

struct NewRow {
    int place; // the row before which the new row is inserted
    marc::FieldRow content;
};
// Makes a row from a line of the pick list, to be inserted after the field of the current row, or at the end.
NewRow newField(const marc::FieldRows &rows, int current, const QString &line);
// Makes a row to be inserted directly below the current row.
NewRow newSubfield(const marc::FieldRows &rows, int current, const QString &line);

// Returns how many rows are removed with the field that begins in row `field`, including that row.
int rowsOfField(const marc::FieldRows &rows, int field);

// Returns how often the field 100 assistant opens for the row: once for each field 100 above a subfield a, even if the
// subfield belongs to another field.
int field100Assistants(const marc::FieldRows &rows, int row);

// The losses in a row's content when the record is stored.
struct Losses {
    QStringList characters;         // not in code page 936, each once
    bool separators = false;        // the content has characters that separate fields
    bool foreignSeparators = false; // the same, except delimiters in the head of an embedded field
};
Losses lossesOf(const QString &content);
// Returns the warning to show below the grid, or an empty text. `losses` has one element for each row.
QString warningOf(const marc::FieldRows &rows, const QList<Losses> &losses);

} // namespace workspace
