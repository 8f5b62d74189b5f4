#include "platform/desktop/screenSize.h"
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace platform {

namespace {

// While a window is being maximised, the toolkit may report a frame as large as the screen.
QSize frameOf(const QWidget *window) {
    const int line = window->fontMetrics().height();
    for (const QWidget *shown = window; shown; shown = shown->parentWidget())
        if (const QWidget *top = shown->window(); top->isVisible())
            if (const QSize frame = top->frameGeometry().size() - top->size();
                !frame.isEmpty() && frame.width() < 4 * line && frame.height() < 6 * line)
                return frame;
    return {line, 2 * line};
}

} // namespace

QSize usableScreenSize(const QWidget *window) {
    return window->screen()->availableSize() - frameOf(window);
}

bool isScreenLow(const QWidget *window) {
    constexpr int lines = 30;
    return usableScreenSize(window).height() < lines * window->fontMetrics().lineSpacing();
}

void keepOnScreen(QWidget *window) {
    const QRect room = window->screen()->availableGeometry();
    const QRect frame = window->frameGeometry();
    QPoint place = frame.topLeft();
    place.setX(std::max(room.left(), std::min(place.x(), room.right() + 1 - frame.width())));
    place.setY(std::max(room.top(), std::min(place.y(), room.bottom() + 1 - frame.height())));
    if (place != frame.topLeft())
        window->move(place);
}

} // namespace platform
