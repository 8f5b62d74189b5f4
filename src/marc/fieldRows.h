// The working form of one record: the rows of the field grid. Element i of a FieldRows list is row i + 1 of the grid,
// whose row 0 is the heading; the leader is element 0.
#pragma once

#include "marc/rawRecord.h"
#include <QList>
#include <QString>

namespace marc {

struct FieldRow {
    QString number;        // column 0, hidden; never read
    QString fieldLabel;    // column 1: description of the field
    QString identifier;    // column 2: tag, or "$" and the subfield code
    QString subfieldLabel; // column 3: description of the subfield, or "指示符"
    QString value;         // column 4
    friend bool operator==(const FieldRow &, const FieldRow &) = default;
};

using FieldRows = QList<FieldRow>;

// Returns whether the row begins a field: its identifier is numeric. Any other row belongs to the field above it.
bool isFieldRow(const FieldRow &row);

struct ShownRecord {
    QString leader;       // for `publicTouBiao`
    bool damaged = false; // damaged directory: `rows` has one empty row
    bool cutOff = false;  // the directory entries overlap so much that some of them have no rows
    FieldRows rows;
};

// Returns the rows of a record, without descriptions. A step that fails is skipped and leaves its target unchanged. The
// number of rows is at most the number of bytes of the record, which records without overlapping fields never reach.
ShownRecord showRecord(const RawRecord &record);
// The same for many records, one after the other: uses the memory of the previous rows again. The second form takes the
// record as GBK, which must be what its text encodes to.
void showRecord(const RawRecord &record, ShownRecord &shown);
void showRecord(QByteArrayView gbk, ShownRecord &shown);

} // namespace marc
