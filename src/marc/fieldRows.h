// The working form of one record: the rows of the field grid. Element i of a FieldRows list is row i + 1 of the grid,
// whose row 0 is the heading; the leader is element 0.
#pragma once

#include "marc/rawRecord.h"
#include <QList>
#include <QString>

namespace marc {

struct FieldRow {
    QString number;        // column 0, hidden; nothing reads it
    QString fieldLabel;    // column 1: description of the field
    QString identifier;    // column 2: tag, or "$" and the subfield code
    QString subfieldLabel; // column 3: description of the subfield, or "指示符"
    QString value;         // column 4
    friend bool operator==(const FieldRow &, const FieldRow &) = default;
};

using FieldRows = QList<FieldRow>;

// A row begins a field where its identifier is not empty and numeric; any other row belongs to the field above it.
bool isFieldRow(const FieldRow &row);

struct ShownRecord {
    QString leader;       // for `publicTouBiao`
    bool damaged = false; // damaged directory: one empty row stands in `rows`
    bool cutOff = false;  // the entries of the directory overlap so much that not all of them have their rows
    FieldRows rows;
};

// The rows of a record, without descriptions. A step that fails is passed over and leaves its target as it was. There
// are at most as many rows as the record has bytes, which none comes to whose fields do not overlap.
ShownRecord showRecord(const RawRecord &record);

} // namespace marc
