// A fault found in a record by a proof, and the fixed text of the report.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace proof {

enum class FaultKind {
    Missing,      // a required field is missing
    Repeated,     // a field is repeated
    Subfield,     // a rule of the template is violated
    Isbn,         // the ISBN as a whole is wrong
    IsbnParts,    // the ISBN has the wrong number of segments
    IsbnSegments, // one or more segments are wrong
};

struct Fault {
    FaultKind kind = FaultKind::Missing;
    QString tag;
    std::optional<qsizetype> element; // index in the rows; std::nullopt for a missing field
    QString words;                    // one or more lines, separated by CR LF
};

// Returns the words of all faults, each in the frame of its kind; an empty text if there are none.
QString report(const std::vector<Fault> &faults);

} // namespace proof
