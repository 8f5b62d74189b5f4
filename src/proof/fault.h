// What a proof finds wrong with a record, as a value; and the fixed text of its report.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace proof {

enum class FaultKind {
    Missing,      // a required field
    Repeated,     // a field
    Subfield,     // by the template
    Isbn,         // as a whole
    IsbnParts,    // their number
    IsbnSegments, // one or more of them
};

struct Fault {
    FaultKind kind = FaultKind::Missing;
    QString tag;
    std::optional<qsizetype> element; // of the rows, where it stands; nothing of a field that is missing
    QString words;                    // one line or several, with CR LF between
};

QString report(const std::vector<Fault> &faults);

} // namespace proof
