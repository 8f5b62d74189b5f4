// The "about" box: the system's name and version, the maker's address and links.
#pragma once

#include "app/backdrop.h"
#include "app/linkLabel.h"
#include "platform/widgets/window.h"

namespace app {

class AboutFrm final : public platform::Window {
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
    LinkLabel *lHttp;
    LinkLabel *lEmail1;
    platform::Button *Command1;

private:
    void layOut();
};

} // namespace app
