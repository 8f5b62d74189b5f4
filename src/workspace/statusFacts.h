// What the line under the grid says, the most urgent first: what an edit would lose, where the editor stands, and what
// the file and the batch are like.
#pragma once

#include "marc/recordCutter.h"
#include <QString>
#include <optional>

namespace workspace {

// What an import did with the list.
struct ImportedNow {
    int wentIn = 0;
    qsizetype refused = 0;
};

struct StatusFacts {
    QString warning;                 // of the record as it is edited
    bool fieldsCameOrWent = false;   // and nothing else was changed, so that nobody is asked about it
    std::optional<qsizetype> column; // in an open editor, from 1
    std::optional<int> columns;      // that it has room for
    bool assistant = false;          // what is edited has one
    marc::FileCounts file;           // nothing counted: not known
    qint64 read = 0;                 // records listed
    bool readToTheEnd = false;
    qsizetype changed = 0;               // records changed and not imported
    QString draftFault;                  // why changes are not kept for a later start; empty where they are
    QString remark;                      // of something that just happened
    std::optional<ImportedNow> imported; // until the list is another one
    QString deed;                        // what a key did to the record that is shown
};

// Empty where there is nothing to say. A warning begins with a sign.
QString statusLine(const StatusFacts &facts);
// Whether the line is a warning rather than a fact.
bool warns(const StatusFacts &facts);

} // namespace workspace
