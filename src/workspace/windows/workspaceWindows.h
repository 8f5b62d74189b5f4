// The windows that the workspace opens modally, as it knows them: each call returns when the window has closed. Their
// owner hands them in.
#pragma once

#include "marc/preReadStore.h"
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace workspace {

// Edits a text; nothing where it was left without an answer.
using Assistant = std::function<std::optional<QString>(const QString &text, QWidget *owner)>;

// What became of a batch that was imported.
struct ImportOutcome {
    int taken = 0;                          // rows of the list that the import came to
    QList<std::pair<int, QString>> refused; // row in the list, from 0, and what the server said
    bool refusedWanted = false;             // they are to be named
};

// Leads to a record of the list, from 0, and a row of its field grid, 0 for none.
using Jump = std::function<void(int record, int fieldRow)>;

struct WorkspaceWindows {
    // frmMarcKaPian with the record; the mode is "标准" or "卡片".
    std::function<void(const marc::RawRecord &record, const QString &mode, QWidget *owner)> showCard;
    // frmMessage with the text: a report, or a record whose directory is damaged.
    std::function<void(const QString &text, QWidget *owner)> showReport;
    // frmDaoRuJindu over the list; `count` is the number of records as text.
    std::function<ImportOutcome(std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                                QWidget *owner)>
        runImport;
    // The remarks on all records, modeless.
    std::function<void(std::shared_ptr<const marc::PreReadStore> records, const Jump &jump, QWidget *owner)> proofAll;
    std::function<void(const QList<std::pair<int, QString>> &refused, std::shared_ptr<const marc::PreReadStore> records,
                       const Jump &jump, QWidget *owner)>
        showRefused;
    Assistant leaderAssistant;   // frmHelpLR000
    Assistant field100Assistant; // frmHelpLR100
};

} // namespace workspace
