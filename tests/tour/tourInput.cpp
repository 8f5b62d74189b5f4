// The mouse and the keyboard of TourDriver.
#include "platform/desktop/frontWindow.h"
#include "tour/tourDriver.h"
#include "widgets/flexGrid.h"
#include <QApplication>
#include <QMenuBar>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace tour {

// While one window replaces another, no window has the keyboard until the window manager assigns it. Keys pressed then
// are lost, even if the toolkit already reports the next window as active.
void TourDriver::waitForKeyboard(const QString &what) {
    waitUntil(u"a window takes " + what, [this] {
        const QWidget *front = QApplication::activeWindow();
        return QApplication::activePopupWidget() ||
               (front && !platform::isBlocked(front) && m_server.hasKeyboard(front->winId()));
    });
    settle();
}

void TourDriver::clickCell(const QString &grid, int row, int column, int button, int times) {
    const QPoint centre = look([&] {
        auto *found = find<widgets::FlexGrid>(grid);
        if (!found)
            return QPoint();
        found->scrollTo(found->model()->index(row - 1, column)); // a low screen shows few rows
        return found->parentWidget()->mapToGlobal(found->cellRect(row, column).center());
    });
    clickAt(centre, button, times);
}

void TourDriver::click(const QString &name, int button) {
    if (!waitUntil(u"control " + name, [name] { return find(name) && find(name)->isEnabled(); }))
        return;
    const QPoint centre = look([&] {
        QWidget *widget = find(name);
        for (QWidget *outer = widget->parentWidget(); outer; outer = outer->parentWidget())
            if (auto *area = qobject_cast<QScrollArea *>(outer)) // on a small screen
                area->ensureWidgetVisible(widget);
        return widget->mapToGlobal(widget->rect().center());
    });
    clickAt(centre, button);
}

void TourDriver::openMenu(const QString &menu, const QString &item) {
    const auto findMenu = [menu]() -> QMenu * {
        QWidget *bar = find(u"marcMain"_s);
        return bar ? bar->findChild<QMenu *>(menu) : nullptr;
    };
    const QPoint title = look([&] {
        const QMenu *opened = findMenu();
        auto *bar = opened ? qobject_cast<QMenuBar *>(opened->parentWidget()) : nullptr;
        return bar ? bar->mapToGlobal(bar->actionGeometry(opened->menuAction()).center()) : QPoint();
    });
    clickAt(title);
    waitUntil(u"menu " + menu, [&] { return findMenu() && findMenu()->isVisible(); });
    const QPoint place = look([&] {
        QMenu *opened = findMenu();
        return opened->mapToGlobal(opened->actionGeometry(opened->findChild<QAction *>(item)).center());
    });
    clickAt(place);
}

void TourDriver::moveTo(const QPoint &global) {
    const qreal ratio = look([] { return qApp->devicePixelRatio(); });
    m_server.move((QPointF(global) * ratio).toPoint());
    settle();
}

void TourDriver::clickAt(const QPoint &global, int button, int times) {
    waitForKeyboard(u"a click"_s);
    moveTo(global + QPoint(20, 0)); // two clicks in a row at the same position must not form a double click
    moveTo(global);
    const bool inside = look([&] { return QApplication::widgetAt(global) != nullptr; });
    for (int i = 0; i < times; ++i) {
        press(button, inside);
        m_server.button(button, false);
    }
    settle();
}

void TourDriver::press(int button, bool inside) {
    const int presses = m_arrivals.presses();
    m_server.button(button, true);
    if (inside) // clicks on the window manager's title bars never arrive here
        waitUntil(u"the press arrives"_s, [&] { return m_arrivals.presses() > presses; });
}

TourDriver &TourDriver::key(const QString &chords, int times) {
    for (const QString &chord : QString(chords + u' ').repeated(times).split(u' ', Qt::SkipEmptyParts)) {
        waitForKeyboard(chord);
        expect(m_server.key(chord), u"a key " + chord);
        settle();
    }
    return *this;
}

void TourDriver::keyElsewhere(const QString &chord) {
    waitUntil(u"another program has the keyboard"_s, [] { return !QApplication::activeWindow(); });
    expect(m_server.key(chord), u"a key " + chord);
}

TourDriver &TourDriver::type(const QString &text) {
    waitForKeyboard(text);
    for (const QChar character : text) {
        expect(m_server.type(character), u"a key for "_s + character);
        settle();
    }
    return *this;
}

} // namespace tour
