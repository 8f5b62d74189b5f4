// The text of the coded positions of the leader and of the coded fields; its syntax is explained at its beginning.
#pragma once

#include "tools/formatText.h"

namespace tools {

struct CodedPosition {
    QString range; // "00" or "00-07", counted from 0
    QString name;
    QString pattern; // empty if there is none
    QList<FormatCode> codes;
    bool flags = false; // several of the codes, one after the other, instead of one
};

struct CodedValue {
    QString tag;  // "LDR" or three digits
    QString code; // of the subfield; empty for the leader
    QList<CodedPosition> positions;
};

// Fails at the first malformed line with "line 12: ...": neither a header nor a position, positions that overlap or are
// out of order, codes whose length is not that of the position (of flags: that does not divide it).
platform::Result<QList<CodedValue>> parseCodedValues(const QStringList &lines);

} // namespace tools
