// What was found about a batch of records: a table beside the workspace, from which one goes to the record and its
// field. It proves and looks up all records itself, alive meanwhile, or lists those that an import refused.
#pragma once

#include "batch/duplicates.h"
#include "batch/refusedRecords.h"
#include "platform/host.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QComboBox>
#include <QLabel>

namespace batch {

class frmRemarks final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmRemarks(platform::Host &host, QWidget *parent = nullptr);

    // Shows the window and comes back when all is looked at, or when the run was stopped: by the button, by closing the
    // window or the one behind it, by another run. The window may be gone by then.
    void proofAll(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof,
                  const database::SessionState &state);
    // Shows the window with the records that an import refused.
    void showRefused(std::vector<Refused> refused, std::shared_ptr<const marc::PreReadStore> records);

    QSize sizeHint() const override;

    QLabel *labLeibie;
    QComboBox *cmbLeibie;
    widgets::PacedLabel *labJindu; // how far the run has got, and what came of it
    widgets::Button *cmdStop;      // shown while a run is going on
    widgets::FlexGrid *Grid1;
    QLabel *labShuoming; // the whole text of the current row
    widgets::Button *cmdCopy;
    widgets::Button *cmdSave;
    widgets::Button *cmdIso; // shown with refused records
    widgets::Button *cmdQuit;

Q_SIGNALS:
    // To the record (row in the list, from 0) and the row on its field grid (0: none is meant).
    void jump(int record, int fieldRow);

protected:
    void changeEvent(QEvent *event) override;

private:
    void lay();
    void fitWidths();
    int begin(const QString &caption, std::shared_ptr<const marc::PreReadStore> records);
    bool goesOn(int run);
    bool prove(BatchProof &proving, int run);
    bool search(DuplicateSearch &searching, int run);
    void take(std::vector<Remark> remarks);
    void finish(QStringView opening);
    void stop();
    void showKinds();
    void filter();
    void showRow();
    void activateRow();
    QString chooseTarget(const QString &title, const QString &filter, QStringView suffix);
    void tellSaved(const platform::Status &saved, const QString &path);
    void saveTable();
    void saveRecords();

    platform::Host &m_host;
    std::shared_ptr<RemarkList> m_list = std::make_shared<RemarkList>();
    std::shared_ptr<const marc::PreReadStore> m_records;
    std::vector<Refused> m_refused;
    int m_proved = 0;
    int m_run = 0; // runs begun and ended: one that finds another number leaves and touches nothing
    bool m_running = false;
};

} // namespace batch
