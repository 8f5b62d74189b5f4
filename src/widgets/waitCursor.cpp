#include "widgets/waitCursor.h"
#include <QCursor>
#include <QGuiApplication>

namespace widgets {

namespace {
bool screenWaits() {
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor && cursor->shape() == Qt::WaitCursor;
}
} // namespace

WaitCursor::WaitCursor()
    : m_onScreen(true) {
    if (!screenWaits())
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::WaitCursor(QWidget *window)
    : m_window(window) {
    m_window->setCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor() {
    if (m_window)
        m_window->unsetCursor();
    if (m_onScreen && screenWaits())
        QGuiApplication::restoreOverrideCursor();
}

} // namespace widgets
