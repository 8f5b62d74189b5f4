#include "catalogue/windows/screenCursor.h"
#include <QCursor>
#include <QGuiApplication>

namespace catalogue {

namespace {

bool waits() {
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}

} // namespace

void setWaitCursor() {
    if (!waits())
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void setNormalCursor() {
    if (waits())
        QGuiApplication::restoreOverrideCursor();
}

} // namespace catalogue
