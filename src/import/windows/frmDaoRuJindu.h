// Runs the import of a record list and shows how far it has got. The run starts when the window first comes up and
// goes on record by record, with the window alive in between; rows that went in stay in after a stop.
#pragma once

#include "database/sublib.h"
#include "import/importRun.h"
#include "marc/preReadStore.h"
#include "platform/host.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QLineEdit>
#include <QProgressBar>
#include <memory>

namespace importing {

class frmDaoRuJindu final : public widgets::Window {
    Q_OBJECT
public:
    // Whoever opens the window fills Text1 and Text2 before showing it.
    frmDaoRuJindu(platform::Host &host, const database::SessionState &state,
                  std::shared_ptr<const marc::PreReadStore> records, QWidget *parent = nullptr);

    // Runs the import; only the first call does, whatever the window system reports.
    void activate();

    QLineEdit *Text1; // "0" from the opener; never read
    QLineEdit *Text2; // the number of records, from the opener
    QLabel *Picture1;
    QLabel *labEndShu;
    widgets::PacedLabel *labJinDuShu;
    widgets::PacedLabel *LabBi;
    QLabel *labTishi;
    QProgressBar *barJinduTishi;
    widgets::Button *cmdStop; // disabled is the sign to stop
    widgets::Button *cmdQuit;

protected:
    bool queryUnload() override;
    void showEvent(QShowEvent *event) override;

private:
    void lay();
    void run();

    platform::Host &m_host;
    const database::SessionState &m_state;
    std::shared_ptr<const marc::PreReadStore> m_records;
    bool m_activated = false;
};

} // namespace importing
