// Runs the import of a record list and shows how far it has got. The run starts when the window first comes up and
// goes on record by record, with the window alive in between; rows that went in stay in after a stop.
#pragma once

#include "database/sublib.h"
#include "import/importRun.h"
#include "marc/preReadStore.h"
#include "marc/refusedRecord.h"
#include "platform/host.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QLineEdit>
#include <QProgressBar>
#include <memory>
#include <vector>

namespace importing {

class frmDaoRuJindu final : public widgets::Window {
    Q_OBJECT
public:
    // Whoever opens the window fills Text1 and Text2 before showing it.
    frmDaoRuJindu(platform::Host &host, const database::SessionState &state,
                  std::shared_ptr<const marc::PreReadStore> records, QWidget *parent = nullptr);

    // Runs the import; only the first call does, whatever the window system reports.
    void activate();

    // What became of the records so far.
    const std::vector<marc::RefusedRecord> &refused() const { return m_refused; }
    int wentIn() const { return m_wentIn; }              // records; an empty row is none
    const QList<qint64> &keys() const { return m_keys; } // of the rows that went in
    int taken() const { return m_taken; }                // rows of the list that the run came to

    QLineEdit *Text1; // "0" from the opener; never read
    QLineEdit *Text2; // the number of records, from the opener
    QLabel *Picture1;
    QLabel *labEndShu;
    widgets::PacedLabel *labJinDuShu;
    widgets::PacedLabel *LabBi;
    QLabel *labTishi;
    QProgressBar *barJinduTishi;
    widgets::Button *cmdRefused; // "未成功 117 条": names them
    widgets::Button *cmdStop;    // disabled is the sign to stop
    widgets::Button *cmdQuit;

Q_SIGNALS:
    void refusedWanted();

protected:
    bool queryUnload() override;
    void showEvent(QShowEvent *event) override;

private:
    void lay();
    void run();
    bool take(const QString &record, int row, platform::RunBoxes &boxes);

    platform::Host &m_host;
    const database::SessionState &m_state;
    std::shared_ptr<const marc::PreReadStore> m_records;
    bool m_activated = false;
    std::vector<marc::RefusedRecord> m_refused;
    int m_wentIn = 0;
    QList<qint64> m_keys;
    int m_taken = 0;
};

} // namespace importing
