// The detail window: one catalogue row in full, and its copies with their loans. It writes nothing. All failures except
// that of the connection are ignored silently.
#pragma once

#include "catalogue/bookDetail.h"
#include "catalogue/windows/listWindow.h"
#include "database/sublib.h"
#include "widgets/button.h"
#include <array>

namespace catalogue {

class SCKListFrm final : public ListWindow {
    Q_OBJECT
public:
    SCKListFrm(const database::SessionState &state, platform::Host &host, QWidget *parent = nullptr);

    // Shows the row. Does nothing if `zskid` is less than 1.
    void InfoLoad(qint32 zskid);
    void gridFix() override;

    std::array<QLabel *, detailLabels> Label1;   // the captions
    std::array<QLabel *, detailLabels> LabelZSK; // the values
    widgets::Button *CmdExit;

private:
    void makeLabels();
    void layOut();
    void showNothing();
    void loadCopies(database::Connection &connection, qint32 zskid);

    const database::SessionState &m_state;
    platform::Host &m_host;
};

} // namespace catalogue
