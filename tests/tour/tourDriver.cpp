#include "tour/tourDriver.h"
#include "tour/cutTexts.h"
#include "widgets/flexGrid.h"
#include "widgets/pacedLabel.h"
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <condition_variable>
#include <cstdio>
#include <mutex>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

void say(const QString &line) {
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
    std::fflush(stderr);
}

QMessageBox *boxWithText(const QString &text) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *box = qobject_cast<QMessageBox *>(window);
        if (box && box->isVisible() && box->text() == text)
            return box;
    }
    return nullptr;
}

QString shownBy(QWidget *widget) {
    if (auto *label = qobject_cast<widgets::PacedLabel *>(widget))
        return label->text(); // newer than the painted text
    for (const char *property : {"displayText", "text", "plainText", "currentText", "windowTitle"}) {
        if (const QVariant text = widget ? widget->property(property) : QVariant(); text.isValid())
            return text.toString();
    }
    return {};
}

} // namespace

TourDriver::TourDriver(const QString &folder)
    : m_arrivals(m_server)
    , m_folder(folder) {}

// A blocking call into the GUI thread would never return after the program has ended, so the call is queued, and
// waiting for it ends with the program.
void TourDriver::invoke(const std::function<void()> &function) {
    struct Call {
        std::mutex mutex;
        std::condition_variable done;
        bool finished = false;
        bool abandoned = false;
    };
    const auto call = std::make_shared<Call>();
    QMetaObject::invokeMethod(
        qApp,
        [call, &function] {
            const std::lock_guard lock(call->mutex);
            if (call->abandoned)
                return;
            function();
            call->finished = true;
            call->done.notify_one();
        },
        Qt::QueuedConnection);
    std::unique_lock lock(call->mutex);
    while (!call->finished && !m_ended)
        call->done.wait_for(lock, std::chrono::milliseconds(50));
    call->abandoned = !call->finished;
}

bool TourDriver::waitForEnd(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    while (!m_ended && clock.elapsed() < milliseconds)
        QThread::msleep(20);
    expect(m_ended, u"the program ends"_s);
    return m_ended;
}

QWidget *TourDriver::find(const QString &name) {
    if (const qsizetype slash = name.indexOf(u'/'); slash >= 0) {
        const QWidget *outer = find(name.left(slash));
        QWidget *inner = outer ? outer->findChild<QWidget *>(name.mid(slash + 1)) : nullptr;
        return inner && inner->isVisible() ? inner : nullptr;
    }
    for (QWidget *window : QWidgetList{QApplication::activeModalWidget(), QApplication::activeWindow()} +
                               QApplication::topLevelWidgets()) {
        if (!window || !window->isVisible())
            continue;
        const QList<QWidget *> named = window->findChildren<QWidget *>(name);
        for (QWidget *widget : QWidgetList{window} + named) {
            if (widget->objectName() == name && widget->isVisible())
                return widget;
        }
    }
    return nullptr;
}

bool TourDriver::waitUntil(const QString &what, const std::function<bool()> &condition, int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    unsigned long pause = 1;
    while (!look([&] { return condition(); })) {
        if (m_ended) // a program that has ended has closed everything
            return true;
        // After several failures, later ones are usually their consequences and need not wait as long.
        if (clock.elapsed() > (m_failures > 3 ? 1000 : milliseconds)) {
            expect(false, u"in time: " + what);
            shot(u"too-late"_s);
            return false;
        }
        QThread::msleep(pause);
        pause = std::min(2 * pause, 20UL);
    }
    return true;
}

bool TourDriver::waitForWindow(const QString &name, const QString &picture) {
    const bool there = waitUntil(u"window " + name, [name] {
        QWidget *widget = find(name);
        if (!widget || !widget->window()->isActiveWindow())
            return false;
        auto *inFrame = qobject_cast<QMdiSubWindow *>(widget->parentWidget());
        return !inFrame || inFrame->mdiArea()->activeSubWindow() == inFrame;
    });
    if (there && !picture.isEmpty())
        shot(picture);
    return there;
}

bool TourDriver::open(const QString &button, const QString &window, const QString &picture) {
    click(button);
    return waitForWindow(window, picture);
}

void TourDriver::leave(const QString &chord, const QString &window) {
    key(chord);
    waitUntilGone(window);
}

bool TourDriver::waitUntilGone(const QString &name) {
    return waitUntil(name + u" gone", [name] { return !find(name); });
}

bool TourDriver::waitForFocus(const QString &name) {
    return waitUntil(u"the keyboard is in " + name, [name] { return find(name) && find(name)->hasFocus(); });
}

void TourDriver::settle() {
    const quint32 mark = ++m_marks;
    m_server.mark(m_arrivals.window(), Arrivals::message, mark);
    waitUntil(u"the program deals with what is pressed"_s, [&] { return m_arrivals.mark() >= mark; });
}

QString TourDriver::textOf(const QString &name) {
    return look([&] { return shownBy(find(name)); });
}

bool TourDriver::waitForText(const QString &name, const QString &text, int milliseconds) {
    return waitUntil(
        u"%1 shows \"%2\""_s.arg(name, text), [&] { return shownBy(find(name)) == text; }, milliseconds);
}

QString TourDriver::cell(const QString &grid, int row, int column) {
    return look([&] {
        auto *found = find<widgets::FlexGrid>(grid);
        return found ? found->text(row, column) : QString();
    });
}

int TourDriver::rows(const QString &grid) {
    return look([&] {
        auto *found = find<widgets::FlexGrid>(grid);
        return found ? found->rows() : -1;
    });
}

void TourDriver::answerBox(const QString &text, const QString &chord, const QString &picture) {
    const bool there = waitUntil(u"box: " + text, [&] {
        QMessageBox *box = boxWithText(text);
        return box && box->isActiveWindow();
    });
    if (!there)
        return;
    if (!picture.isEmpty())
        shot(picture);
    const auto level = [] { return QThread::currentThread()->loopLevel(); };
    const int ofBox = look(level);
    key(chord);
    // The command that showed the box continues after the box has closed, and may move the focus.
    waitUntil(u"box gone: " + text,
              [&] { return !boxWithText(text) && (QApplication::activeModalWidget() || level() < ofBox); });
}

QString TourDriver::boxText() {
    const auto box = [] { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); };
    waitUntil(u"a box"_s, [&] { return box() && box()->isActiveWindow(); });
    return look([&] { return box() ? box()->text() : QString(); });
}

void TourDriver::shot(const QString &name) {
    const QString path = u"%1/%2-%3.png"_s.arg(m_folder).arg(++m_pictures, 2, 10, QChar(u'0')).arg(name);
    const auto screen = [this] { return look([] { return QApplication::primaryScreen()->grabWindow(0).toImage(); }); };
    settle();
    QImage before;
    QImage now = screen();
    for (int i = 0; i < 20 && now != before; ++i) {
        QThread::msleep(40);
        before = std::exchange(now, screen());
    }
    expect(m_ended || now.save(path), u"picture " + path);
    say(u"picture " + path.section(u'/', -1));
    keepFront(name, now);
    const QStringList cut = look([] {
        const QWidget *front = QApplication::activeWindow();
        return front ? cutTexts(front) : QStringList();
    });
    for (const QString &text : cut)
        say(u"NOT AS IT SHOULD BE: on picture %1 a text is cut: %2"_s.arg(name, text));
    m_cutTexts += int(cut.size());
}

void TourDriver::keepFront(const QString &name, const QImage &screen) {
    const auto frame = [] {
        // The frame geometry of a widget may be outdated until the window manager has processed the window.
        const QWidget *front = QApplication::activeWindow();
        const QWindow *window = front ? front->windowHandle() : nullptr;
        return window && window->frameGeometry() != window->geometry() ? window->frameGeometry() : QRect();
    };
    QRect place = look(frame);
    for (int i = 0; i < 100 && place.isEmpty() && !m_ended; ++i) { // the frame geometry is known only after some delay
        QThread::msleep(40);
        place = look(frame);
    }
    const QString folder = m_folder + u"/windows";
    if (place.isEmpty() || !QDir().mkpath(folder))
        return;
    const qreal ratio = look([] { return qApp->devicePixelRatio(); });
    place = QRect((QPointF(place.topLeft()) * ratio).toPoint(), (QSizeF(place.size()) * ratio).toSize());
    expect(screen.copy(place & screen.rect()).save(folder + u'/' + name + u".png"), u"window " + name);
}

void TourDriver::expect(bool holds, const QString &what) {
    if (holds)
        return;
    ++m_failures;
    say(u"NOT AS IT SHOULD BE: " + what);
}

void TourDriver::expectEqual(const QString &is, const QString &shouldBe, const QString &what) {
    expect(is == shouldBe, u"%1 is \"%2\", not \"%3\""_s.arg(what, is, shouldBe));
}

} // namespace tour
