// The pane below the field grid of the workspace: the remarks of the last proof of all records, and the records that
// the last import could not store. Both remain until the next proof or import, even while the pane is hidden.
#pragma once

#include "batch/proofRun.h"
#include "batch/refusedRecords.h"
#include "batch/reminders.h"
#include "batch/windows/remarkTable.h"
#include "batch/windows/reportButtons.h"
#include "marc/fieldPlace.h"
#include "widgets/button.h"
#include <QCheckBox>
#include <QSet>
#include <QStackedWidget>

namespace batch {

class RemarksPane final : public QStackedWidget {
    Q_OBJECT
public:
    struct Source {
        std::shared_ptr<const marc::PreReadStore> records;
        std::function<qint64()> recordsInFile; // an estimate until the file was read to its end
        ProofOne proof;
        const database::SessionState &state;
        std::shared_ptr<schema::SchemaInForce> schema = nullptr;  // null: records are not validated
        std::function<QString()> file = [] { return QString(); }; // path of the file with the records
    };
    RemarksPane(platform::Host &host, Source source, QWidget *parent = nullptr);

    // Checks all records. Returns at the end or when the run is stopped: by its button, by end(), by another run or by
    // the deletion of the pane, which may be deleted by then. Hiding the pane does not stop the run.
    void proofAll();
    // Lists the records that the last import refused or left out, and unticks skipBox; if there are none, shows the
    // proof table.
    void listRefused(NotImported rest);
    // Returns the records that the next import must leave out: the duplicates found, if skipBox is ticked.
    RefusedRecords leftOut() const;
    // Ends a run because the workspace is closed.
    void end();
    // Returns whether there is neither a proof nor a refused record to show.
    bool isEmpty() const { return m_run == nullptr && m_rest.isEmpty(); }

    // Returns the remarks about the current record, as it is being edited, and the words of each; none if the user has
    // switched the marks off. Silenced rules are left out.
    struct Current {
        Remark remark;
        QString words; // such as "错误：…"
    };
    std::vector<Current> remarksOn(const marc::FieldRows &rows);
    // Makes the next (1) or last (-1) remark that is shown current. Returns its place, std::nullopt if there is none,
    // and the words for the user. Works while the pane is hidden.
    struct Step {
        std::optional<marc::FieldPlace> place;
        QString words;
    };
    Step step(int by);

    // Returns the rows of the list with a remark of the last proof or refused by the last import, in ascending order.
    std::vector<int> rowsWithRemarks() const;
    // Returns the names of the rules that each record violates by the last proof; std::nullopt if there was none.
    std::optional<QHash<int, QSet<QString>>> violatedRules() const;

    Reminders *reminders;
    RemarkTable *proofTable;
    QCheckBox *skipBox;          // disabled if no duplicate was found, and during a run
    widgets::Button *stopButton; // shown during a run
    widgets::Button *toRefusedButton;
    ReportButtons *reportButtons;
    RemarkTable *refusedTable;
    widgets::Button *toProofButton;
    widgets::Button *isoButton; // saves the refused records as a file

Q_SIGNALS:
    void jump(const marc::FieldPlace &place);
    void left();                      // by Esc: the focus should go back
    void changed();                   // remarks were added, removed or silenced
    void remindersChanged();          // remarksOn() may return other remarks
    void ended(const QString &words); // a run ended while the pane was hidden

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void layOut();
    void turnTo(RemarkTable *table);
    void offerOther();
    void offerSkipping();
    marc::FieldPlace placeOf(const Remark &remark) const;
    void takeRemarks(std::vector<Remark> remarks);
    bool goesOn(int run);
    void finish();
    void showClosing();
    void saveRecords();

    platform::Host &m_host;
    Source m_source;
    RecordCheck m_check;             // of the current record
    std::shared_ptr<ProofRun> m_run; // the last run
    Clearing m_clearing;             // data of ended runs
    NotImported m_rest;              // of the last import
    int m_runs = 0; // number of runs begun and ended; a loop that finds another number returns and touches nothing
    bool m_running = false;
};

} // namespace batch
