// The busy box. The store list is its only user, and hides it: it comes into being there and never shows.
#pragma once

#include "widgets/window.h"
#include <QLabel>

namespace catalogue {

class WorkingFrm final : public widgets::Window {
    Q_OBJECT
public:
    explicit WorkingFrm(QWidget *parent = nullptr);

    QLabel *Label1;
};

} // namespace catalogue
