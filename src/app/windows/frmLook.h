// The notice of the program's start. It stays until the user closes it; its tick is kept in the settings, and nothing
// ever reads it: the notice shows at each start.
#pragma once

#include "app/windows/backdrop.h"
#include "app/windows/makerLinks.h"
#include "widgets/window.h"
#include <QCheckBox>
#include <QLabel>

namespace app {

class frmLook final : public widgets::Window {
    Q_OBJECT
public:
    explicit frmLook(platform::Host &host, QWidget *parent = nullptr);

    Backdrop *Picture1; // the size of the screen
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

// A label with the program's emblem, so many lines of its own text high.
QLabel *emblem(const QString &objectName, int lines);

} // namespace app
