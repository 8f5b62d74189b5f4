// The windows that the workspace opens modally, as it knows them: each call returns when the window has closed. Their
// owner hands them in.
#pragma once

#include "marc/fieldPlace.h"
#include "marc/preReadStore.h"
#include "marc/refusedRecord.h"
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QWidget;

namespace workspace {

// Edits a text; nothing where it was left without an answer.
using Assistant = std::function<std::optional<QString>(const QString &text, QWidget *owner)>;

// What became of a batch that was imported.
struct ImportOutcome {
    int taken = 0;  // rows of the list that the import came to
    int wentIn = 0; // records
    std::vector<marc::RefusedRecord> refused;
    bool refusedWanted = false; // they are to be named
};

// The pane under the field grid that lists what was found about the records of the list.
struct RemarksPane {
    QWidget *widget = nullptr; // has the keyboard in its table once it is given it
    // Proves all records; returns when the run has ended. The window may be gone by then.
    std::function<void()> proofAll = [] {};
    std::function<void(std::vector<marc::RefusedRecord>)> listRefused = [](const auto &) {};
    std::function<bool()> isEmpty = [] { return true; };
    std::function<void()> end = [] {}; // a run that is going on
};

// What that pane needs of the workspace.
struct RemarksNeeds {
    std::shared_ptr<const marc::PreReadStore> records;
    std::function<qint64()> recordsInFile; // an estimate until the file has been read to its end
    std::function<void(const marc::FieldPlace &)> jump;
    std::function<void()> leave; // the keyboard goes back to the fields
    std::function<void(const QString &)> tell;
};

struct WorkspaceWindows {
    // frmMarcKaPian with the record; the mode is "标准" or "卡片".
    std::function<void(const marc::RawRecord &record, const QString &mode, QWidget *owner)> showCard;
    // frmMessage with the text: a report, or a record whose directory is damaged.
    std::function<void(const QString &text, QWidget *owner)> showReport;
    // frmDaoRuJindu over the list; `count` is the number of records as text.
    std::function<ImportOutcome(std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                                QWidget *owner)>
        runImport;
    std::function<RemarksPane(const RemarksNeeds &needs)> makeRemarks;
    // Why an import would fail, as far as it is known without asking the database; empty otherwise.
    std::function<QString()> databaseTrouble = [] { return QString(); };
    Assistant leaderAssistant;   // frmHelpLR000
    Assistant field100Assistant; // frmHelpLR100
};

} // namespace workspace
