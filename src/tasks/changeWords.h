// A change as texts for a table: contents as the field grid shows them, and which parts of them differ.
#pragma once

#include "tasks/recordWork.h"
#include <vector>

namespace tasks {

// Returns the content of a field with "$" for each delimiter of a subfield and "#" for blanks among the indicators.
QString shownContent(QStringView tag, const QString &content);
// Returns the field of a change, such as "200", "300→330" or "字段次序".
QString shownField(const Change &change);

struct Part {
    qsizetype from = 0;
    qsizetype size = 0;
    friend bool operator==(const Part &, const Part &) = default;
};

// The parts of each text that the other one lacks, in ascending order. Long texts are compared less exactly.
struct Difference {
    std::vector<Part> gone; // of the first text
    std::vector<Part> made; // of the second text
};
Difference difference(QStringView before, QStringView after);

} // namespace tasks
