#include "scaleReport.h"
#include <QCoreApplication>
#include <QProcess>
#include <array>
#include <cstdlib>
#include <memory>
#include <unistd.h>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

// A screen without a window manager, named in BARE_DISPLAY. It is black until a program paints, so it shows, for any
// program alike, when a window becomes visible.
class BareScreen {
public:
    BareScreen()
        : m_connection(xcb_connect(qgetenv("BARE_DISPLAY").constData(), nullptr), &xcb_disconnect)
        , m_root(xcb_connection_has_error(m_connection.get())
                     ? 0
                     : xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root) {}

    bool isOpen() const { return m_root != 0; }
    // Returns whether anything is painted on a line near the upper edge, where windows are placed first.
    bool showsSomething() const {
        constexpr int lineAt = 100, lineWidth = 800;
        const auto cookie =
            xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, 0, lineAt, lineWidth, 1, ~0U);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> line(
            xcb_get_image_reply(m_connection.get(), cookie, nullptr), &std::free);
        if (!line)
            return false;
        const QByteArrayView pixels(xcb_get_image_data(line.get()), xcb_get_image_data_length(line.get()));
        return std::ranges::any_of(pixels, [](char byte) { return byte != 0 && byte != '\xff'; });
    }
    // Polls the screen; returns false after ten seconds.
    bool waitUntilItShows(bool something) const {
        constexpr int pauseMicroseconds = 200, looks = 50'000;
        for (int look = 0; look < looks; ++look) {
            if (showsSomething() == something)
                return true;
            usleep(pauseMicroseconds);
        }
        return false;
    }

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    xcb_window_t m_root;
};

// Measures from the start of the process to the first painting of its window.
Side startOf(const BareScreen &screen, const QString &program, const QStringList &arguments = {}) {
    return [&screen, program, arguments]() -> std::optional<double> {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DISPLAY"_s, qEnvironmentVariable("BARE_DISPLAY"));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        const auto taken = timed([&] {
            process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
            return screen.waitUntilItShows(true);
        });
        process.kill();
        return process.waitForFinished() && screen.waitUntilItShows(false) ? taken : std::nullopt;
    };
}

} // namespace

void startScale(ScaleReport &report) {
    constexpr int rounds = 15;
    const BareScreen screen;
    if (!screen.isOpen())
        qFatal("BARE_DISPLAY names no screen");
    const auto sides = takeTurns("start", rounds,
                                 {startOf(screen, u"tarvex"_s), startOf(screen, u"bareWindow"_s),
                                  startOf(screen, u"bareWindow"_s, {u"图书馆管理系统"_s})});
    report.table.time(u"start to the first window | a bare window of the toolkit"_s, sides[0], sides[1], 1.5);
    report.table.time(u"start to the first window | a bare window with one line of Chinese"_s, sides[0], sides[2], 0);
}

} // namespace bench
