// What the two grids of the workspace look like, and the way between the field grid and the rows of a record.
#pragma once

#include "marc/fieldRows.h"
#include "platform/widgets/flexGrid.h"

namespace workspace {

inline constexpr quint32 currentRecordColour = 255;      // red
inline constexpr quint32 visitedRecordColour = 12648447; // light yellow
inline constexpr int titleColumn = 1;                    // of the record list

// Grid columns of the fields.
enum FieldColumn { NumberColumn, FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn, ValueColumn };

// The rows of the grid below its heading.
marc::FieldRows fieldRows(const platform::FlexGrid &grid);
marc::FieldRow fieldRow(const platform::FlexGrid &grid, int row);
void setFieldRow(platform::FlexGrid &grid, int row, const marc::FieldRow &content);
// Makes the grid's rows these rows.
void showFieldRows(platform::FlexGrid &grid, const marc::FieldRows &rows);

// Heading, widths, alignment, grey descriptions; row 1 is current afterwards. A row that comes later is not grey.
void formatFieldGrid(platform::FlexGrid &grid);
void formatRecordList(platform::FlexGrid &grid);

} // namespace workspace
