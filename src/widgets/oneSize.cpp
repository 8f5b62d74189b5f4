#include "widgets/oneSize.h"
#include <QWidget>

namespace widgets {

void keepOneSize(QWidget *dialog) {
    dialog->setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    dialog->setWindowFlag(Qt::WindowMinimizeButtonHint, false);
}

} // namespace widgets
