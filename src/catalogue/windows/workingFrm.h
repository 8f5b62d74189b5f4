// The busy box. Its only user is the store list, which creates it just to hide it, so it is never visible.
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
