// The interface to the windows that the workspace opens modally. Each call returns when the window is closed. The owner
// of the windows provides the functions.
#pragma once

#include "marc/fieldRows.h"
#include "marc/refusedRecord.h"
#include "workspace/windows/batchNeeds.h"
#include "workspace/windows/fetchNeeds.h"
#include "workspace/windows/rowRemark.h"
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QWidget;

namespace workspace {

// Edits a text. Returns std::nullopt if the user cancelled.
using Assistant = std::function<std::optional<QString>(const QString &text, QWidget *owner)>;

// The result of the import of a batch.
struct ImportOutcome {
    int taken = 0;  // rows of the list that the import processed
    int wentIn = 0; // records imported
    std::vector<marc::RefusedRecord> refused;
    std::vector<marc::RefusedRecord> leftOut; // by the user's choice, of the rows that were processed
    bool refusedWanted = false;               // the user wants them listed
};

// The pane below the field grid that lists the findings about the records of the list.
struct RemarksPane {
    QWidget *widget = nullptr; // passes the focus on to its table
    // Checks all records and returns when the run has ended. The window may be closed by then.
    std::function<void()> proofAll = [] {};
    std::function<void(const ImportOutcome &)> listRefused = [](const auto &) {};
    // Returns the records that the next import has to leave out, in the order of the list.
    std::function<std::vector<marc::RefusedRecord>()> leftOut = [] { return std::vector<marc::RefusedRecord>(); };
    std::function<bool()> isEmpty = [] { return true; };
    // Returns the rows of the list that have a remark, in ascending order.
    std::function<std::vector<int>()> rowsWithRemarks = [] { return std::vector<int>(); };
    // Makes the next (1) or last (-1) remark that is shown current. Returns its place, std::nullopt if there is none,
    // and the words for the user.
    struct Step {
        std::optional<marc::FieldPlace> place;
        QString words;
    };
    std::function<Step(int by)> step = [](int) { return Step(); };
    // Returns the remarks about the current record, the worst of each row first.
    std::function<std::vector<RowRemark>(const marc::FieldRows &rows)> check = [](const auto &) {
        return std::vector<RowRemark>();
    };
    // Returns the result of the last proof of all records; std::nullopt if there was none.
    std::function<std::optional<ViolatedRules>()> violatedRules = [] { return std::nullopt; };
    std::function<void()> end = [] {}; // ends a running proof
};

// The interface of the workspace to the pane.
struct RemarksNeeds {
    std::shared_ptr<const marc::PreReadStore> records;
    std::function<QString()> file;         // path of the file with the records
    std::function<qint64()> recordsInFile; // an estimate until the file was read to its end
    std::function<void(const marc::FieldPlace &)> jump;
    std::function<void()> leave; // moves the focus back to the fields
    std::function<void(const QString &)> tell;
    std::function<void()> changed;      // call when remarks were added or removed; often in a run
    std::function<void()> checkChanged; // call when RemarksPane::check may return other remarks
};

struct WorkspaceWindows {
    // Shows frmMarcKaPian with the record; the mode is "标准" or "卡片".
    std::function<void(const marc::RawRecord &record, const QString &mode, const marc::RecordStep &step,
                       QWidget *owner)>
        showCard;
    // Shows frmMessage with the text: a report, or a record with a damaged directory.
    std::function<void(const QString &text, QWidget *owner)> showReport;
    // Shows frmDaoRuJindu over the list; `count` is the number of records as text, `leaveOut` those that are not
    // imported.
    std::function<ImportOutcome(std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                                const std::vector<marc::RefusedRecord> &leaveOut, QWidget *owner)>
        runImport;
    std::function<RemarksPane(const RemarksNeeds &needs)> makeRemarks;
    // Makes the window that changes many records at once. The function that it returns shows the window and returns
    // when it is closed. Empty if there is no such window.
    std::function<std::function<void()>(const BatchNeeds &needs, QWidget *owner)> makeBatch;
    // Shows the search in other libraries' catalogues. Empty if there is no such window.
    std::function<void(const FetchNeeds &needs, QWidget *owner)> fetchRecord;
    // Returns why an import would fail, as far as this is known without a query to the database; else an empty text.
    std::function<QString()> databaseTrouble = [] { return QString(); };
    Assistant leaderAssistant;   // frmHelpLR000
    Assistant field100Assistant; // frmHelpLR100
};

} // namespace workspace
