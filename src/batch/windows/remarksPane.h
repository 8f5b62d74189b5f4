// What was found about the records of a list, under the field grid of the workspace: the remarks of the last proof of
// all records, and the records that the last import could not put into the store. Each of the two stays until the next
// of its kind, also while the pane is hidden.
#pragma once

#include "batch/proofRun.h"
#include "batch/refusedRecords.h"
#include "batch/windows/remarkTable.h"
#include "marc/fieldPlace.h"
#include <QStackedWidget>

namespace batch {

class RemarksPane final : public QStackedWidget {
    Q_OBJECT
public:
    struct Source {
        std::shared_ptr<const marc::PreReadStore> records;
        std::function<qint64()> recordsInFile; // an estimate until the file has been read to its end
        ProofOne proof;
        const database::SessionState &state;
    };
    RemarksPane(platform::Host &host, Source source, QWidget *parent = nullptr);

    // Comes back when all is looked at, or when the run was stopped: by its button, by end(), by another run, by the
    // end of the pane, which may be gone by then. To hide the pane does not stop it.
    void proofAll();
    // Lists the records that the last import refused; none takes the list away.
    void listRefused(RefusedRecords refused);
    // Ends a run: its workspace closes.
    void end();
    // Nothing was listed so far.
    bool isEmpty() const { return m_run == nullptr && m_refused.empty(); }

    RemarkTable *proofTable;
    widgets::Button *stopButton; // shown while a run is going on
    widgets::Button *toRefusedButton;
    RemarkTable *refusedTable;
    widgets::Button *toProofButton;
    widgets::Button *isoButton; // the refused records as a file

Q_SIGNALS:
    void jump(const marc::FieldPlace &place);
    void left();                      // by Esc: the keyboard is to go back
    void ended(const QString &words); // the run, while the pane is hidden

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void lay();
    void turnTo(RemarkTable *table);
    void offerOther();
    bool goesOn(int run);
    void finish();
    void saveRecords();

    platform::Host &m_host;
    Source m_source;
    std::shared_ptr<ProofRun> m_run; // the last one
    RefusedRecords m_refused;
    int m_runs = 0; // begun and ended: a loop that finds another number leaves and touches nothing
    bool m_running = false;
};

} // namespace batch
