// A table of texts that a grid shows without copying it: a database result, a list of records. Rows and columns are
// counted from 0 and contain only data; headings belong to the grid.
#pragma once

#include <QStringList>

namespace platform {

class TableSource {
public:
    virtual ~TableSource() = default;
    virtual int rowCount() const = 0;
    virtual int columnCount() const = 0;
    virtual QString text(int row, int column) const = 0;
};

// Returns the cells of one row as text for a spreadsheet, separated by tabs. Tabs and line ends in a cell become
// blanks.
QString tabSeparated(QStringList cells);

} // namespace platform
