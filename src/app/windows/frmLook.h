// The notice at program start. It stays until the user closes it. Its check mark is stored in the settings but never
// read: the notice is shown at each start.
#pragma once

#include "app/windows/backdrop.h"
#include "app/windows/makerLinks.h"
#include "widgets/button.h"
#include "widgets/window.h"
#include <QCheckBox>
#include <QLabel>

namespace app {

class frmLook final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmLook(platform::Host &host, QWidget *parent = nullptr);

    Backdrop *Picture1; // as large as the screen
    QLabel *imgMain;
    QLabel *Image1;
    QLabel *lMain;
    QLabel *Label1;
    widgets::ClickLabel *lHttp;
    widgets::ClickLabel *lEmail;
    QCheckBox *Check1;
    widgets::Button *cmOK;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void layOut();
    void keepTick(bool ticked);

    platform::Host &m_host;
};

// Returns a label with the emblem of the program, `lines` lines of its font high.
QLabel *emblem(const QString &objectName, int lines);

} // namespace app
