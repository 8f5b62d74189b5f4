// Runs the import of a record list and shows its progress. The run starts when the window is first shown and proceeds
// record by record, processing events in between; imported rows are kept after a stop.
#pragma once

#include "database/sublib.h"
#include "import/importRun.h"
#include "marc/preReadStore.h"
#include "marc/refusedRecord.h"
#include "platform/host.h"
#include "widgets/window.h"
#include <QSet>
#include <memory>
#include <vector>

class QLabel;
class QLineEdit;
class QProgressBar;
namespace widgets {
class Button;
class PacedLabel;
} // namespace widgets

namespace importing {

class frmDaoRuJindu final : public widgets::Window {
    Q_OBJECT
public:
    // The caller fills Text1 and Text2 before showing the window.
    frmDaoRuJindu(platform::Host &host, const database::SessionState &state,
                  std::shared_ptr<const marc::PreReadStore> records, QWidget *parent = nullptr);

    // The rows of these records are not imported.
    void leaveOut(const std::vector<marc::RefusedRecord> &records);
    // Runs the import on the first call only; the window system may cause more calls.
    void activate();

    // The result so far.
    const std::vector<marc::RefusedRecord> &refused() const { return m_refused; }
    int wentIn() const { return m_wentIn; }              // imported records, not counting empty rows
    const QList<qint64> &keys() const { return m_keys; } // of the imported rows
    int taken() const { return m_taken; }                // rows of the list processed so far

    QLineEdit *Text1; // set to "0" by the caller; never read
    QLineEdit *Text2; // the number of records, set by the caller
    QLabel *Picture1;
    QLabel *labEndShu;
    widgets::PacedLabel *labJinDuShu;
    widgets::PacedLabel *LabBi;
    QLabel *labTishi;
    QLabel *leftOutWords; // how many records were left out
    QProgressBar *barJinduTishi;
    widgets::Button *cmdRefused; // "未成功 117 条": lists the refused records
    widgets::Button *cmdStop;    // disabled once a stop is requested
    widgets::Button *cmdQuit;

Q_SIGNALS:
    void refusedWanted();

protected:
    bool queryUnload() override;
    void showEvent(QShowEvent *event) override;

private:
    void layOut();
    void showSign(const QString &icon);
    void run();
    bool take(const QString &record, int row, platform::RunBoxes &boxes);

    platform::Host &m_host;
    const database::SessionState &m_state;
    std::shared_ptr<const marc::PreReadStore> m_records;
    bool m_activated = false;
    std::vector<marc::RefusedRecord> m_refused;
    QSet<int> m_leaveOut;
    int m_wentIn = 0;
    QList<qint64> m_keys;
    int m_taken = 0;
};

} // namespace importing
