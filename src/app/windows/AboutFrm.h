// The "about" box: name and version of the system, address and links of the maker.
#pragma once

#include "app/windows/backdrop.h"
#include "app/windows/makerLinks.h"
#include "widgets/button.h"
#include "widgets/window.h"
#include <QLabel>

namespace app {

class AboutFrm final : public widgets::Window {
    Q_OBJECT
public:
    explicit AboutFrm(platform::Host &host, QWidget *parent = nullptr);

    QLabel *Image1;
    Backdrop *Image3;
    QLabel *Label2;
    QLabel *Label5;
    QLabel *Label4;
    QLabel *Label8;
    QLabel *Label6;
    QLabel *Label7;
    widgets::ClickLabel *lHttp;
    widgets::ClickLabel *lEmail1;
    widgets::Button *Command1;

private:
    void layOut();
};

} // namespace app
