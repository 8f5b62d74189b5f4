// The text of the line below the grid, the most urgent first: losses that an edit would cause, the position of the
// editor, and facts about the file and the import.
#pragma once

#include "marc/recordCutter.h"
#include <QString>
#include <optional>

namespace workspace {

// The result of the import of the list.
struct ImportedNow {
    int wentIn = 0;
    qsizetype refused = 0;
    qsizetype leftOut = 0; // by the user's choice
};

struct StatusFacts {
    QString warning;                 // about the record being edited
    bool fieldsCameOrWent = false;   // only rows were inserted or removed, so the user is not asked
    std::optional<qsizetype> column; // in an open editor, counted from 1
    std::optional<int> columns;      // maximum length of the text in that editor
    bool assistant = false;          // the edited row has an assistant
    marc::FileCounts file;           // empty counts if unknown
    qint64 read = 0;                 // records listed
    bool readToTheEnd = false;
    qsizetype changed = 0;               // records changed and not yet imported
    QString draftFault;                  // why changes are not kept for the next start; empty if they are
    QString databaseTrouble;             // why an import would fail; empty: no reason is known
    QString remark;                      // about a recent event
    std::optional<ImportedNow> imported; // until another list is shown
    QString rowRemark;                   // the remark about the current row of the grid
    QString deed;                        // the effect of a key on the current record
};

// Between the facts of the line.
constexpr QChar statusSeparator(u'\u3000');
// Returns an empty text if there is nothing to show. Warnings start with "⚠".
QString statusLine(const StatusFacts &facts);

} // namespace workspace
