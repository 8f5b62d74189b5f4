#include "platform/desktop/qtHost.h"
#include "platform/desktop/faces.h"
#include "platform/desktop/fileChooser.h"
#include "platform/desktop/frontWindow.h"
#include "platform/programFolder.h"
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QFont>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QTranslator>
#include <QUrl>
#include <cstdlib>
#include <ctime>
#include <utility>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

// Returns milliseconds of a monotonic clock that is read once per record. The coarse clock, where the system has one,
// is accurate to a few milliseconds and takes a quarter of the time to read.
qint64 roughMilliseconds() {
#ifdef CLOCK_MONOTONIC_COARSE
    timespec now = {};
    if (clock_gettime(CLOCK_MONOTONIC_COARSE, &now) == 0)
        return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
#endif
    return QDeadlineTimer::current().deadline();
}

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

// QMessageBox takes No for the escape button of a box with Yes and No, even if none was set. A box that may be left
// only by its buttons therefore rejects Esc and the close button itself.
class QuestionBox final : public QMessageBox {
public:
    QuestionBox(QWidget *parent, const Box &box, const QString &tick = {})
        : QMessageBox(parent)
        , m_leaving(box.leaving) {
        setIcon(iconOf(box.icon));
        if (!tick.isEmpty()) // before the title, since setCheckBox() lays out the box again
            setCheckBox(new QCheckBox(tick, this));
        showTitle(box.title.isEmpty() ? programTitle.toString() : box.title);
        setTextFormat(Qt::PlainText);
        setText(box.text);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override {
        if (m_leaving == Leaving::ByButtonsOnly && event->matches(QKeySequence::Cancel))
            event->accept();
        else
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent *event) override {
        if (m_leaving == Leaving::ByButtonsOnly)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

private:
    // Makes the box wide enough for its title, which would be truncated over a short text.
    void showTitle(const QString &title) {
        constexpr int besideTitle = 14; // characters: the buttons of the frame and their margins
        setWindowTitle(title);
        const QFontMetrics metrics = fontMetrics();
        if (auto *grid = qobject_cast<QGridLayout *>(layout()))
            grid->addItem(
                new QSpacerItem(metrics.horizontalAdvance(title) + besideTitle * metrics.averageCharWidth(), 0),
                grid->rowCount(), 0, 1, grid->columnCount());
    }

    Leaving m_leaving;
};

// QDesktopServices reports success as soon as the helper program starts, but the helper reports by its exit code that
// there is no browser. A helper that still runs after the timeout has become the browser itself or waits for it.
// Meanwhile windows are painted and user input waits.
[[maybe_unused]] bool openBy(const QString &opener, const QUrl &url, std::chrono::milliseconds patience) {
    auto *helper = new QProcess(qApp); // deleted when the helper ends
    helper->setStandardInputFile(QProcess::nullDevice());
    helper->setStandardOutputFile(QProcess::nullDevice());
    helper->setStandardErrorFile(QProcess::nullDevice());
    QEventLoop waiting;
    bool opened = true;
    const auto done = [&](bool well) {
        opened = well;
        waiting.quit();
    };
    QObject::connect(helper, &QProcess::finished, &waiting,
                     [&](int code, QProcess::ExitStatus status) { done(code == 0 && status == QProcess::NormalExit); });
    QObject::connect(helper, &QProcess::errorOccurred, &waiting, [&] { done(false); });
    QObject::connect(helper, &QProcess::finished, helper, &QObject::deleteLater);
    QTimer::singleShot(patience, &waiting, &QEventLoop::quit);
    helper->start(opener, {url.toString(QUrl::FullyEncoded)});
    if (helper->state() != QProcess::NotRunning)
        waiting.exec(QEventLoop::ExcludeUserInputEvents);
    return opened;
}

} // namespace

QtHost::QtHost(Settings settings, DeskState state, std::function<void()> beforeEnd)
    : m_settings(std::move(settings))
    , m_state(std::move(state))
    , m_beforeEnd(std::move(beforeEnd))
    , m_programFolder(platform::programFolder()) {}

Answer QtHost::show(const Box &box) {
    QuestionBox window(windowInFront(), box);
    if (box.buttons == Buttons::Ok) { // which it has by default
        window.exec();
        return Answer::Ok;
    }
    window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    window.setDefaultButton(box.preselected == Answer::No ? QMessageBox::No : QMessageBox::Yes);
    return window.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

bool QtHost::showWithTick(const Box &box, const QString &tick) {
    QuestionBox window(windowInFront(), box, tick);
    window.exec();
    return window.checkBox()->isChecked();
}

QString QtHost::chooseFile(const FileDialog &dialog) {
    const QString folder = m_state.value(kept::lastFolder);
    const bool startsThere = !dialog.start.isEmpty() && QFileInfo(dialog.start).absoluteDir().exists();
    const QString start = startsThere ? dialog.start : QDir(folder).exists() ? folder : QString();
    const QString chosen = chooseFileIn(dialog, start, windowInFront());
    if (!chosen.isEmpty())
        m_state.keep(kept::lastFolder,
                     dialog.kind == FileDialogKind::Folder ? chosen : QFileInfo(chosen).absolutePath());
    return chosen;
}

bool QtHost::openInShell(const QString &target) {
    const bool isLink = target.contains(u"://") || target.startsWith(u"mailto:");
    const QUrl url = isLink ? QUrl(target) : QUrl::fromLocalFile(target);
#ifndef Q_OS_WIN
    if (const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s); !opener.isEmpty())
        return openBy(opener, url, helperPatience);
#endif
    return QDesktopServices::openUrl(url);
}

QDateTime QtHost::now() const {
    return QDateTime::currentDateTime();
}

// Processing events costs as much as one record does in the fastest runs, so events are processed at most some hundred
// times a second, which is fast enough for a button.
void QtHost::yield() {
    constexpr qint64 leastMilliseconds = 2;
    if (m_lastEvents && roughMilliseconds() - *m_lastEvents < leastMilliseconds)
        return;
    QCoreApplication::processEvents();
    m_lastEvents = roughMilliseconds();
}

void QtHost::endProcess() {
    // Ends without close events and destructors.
    if (m_beforeEnd)
        m_beforeEnd();
    std::_Exit(EXIT_SUCCESS);
}

void prepareToolkit() {
    const QLocale chinese(QLocale::Chinese, QLocale::SimplifiedChineseScript, QLocale::China);
    QLocale::setDefault(chinese);
    for (const char *name : {"qtbase_zh_CN", "qt_zh_CN"}) {
        auto *translator = new QTranslator(qApp);
        if (translator->load(QLatin1StringView(name), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(translator);
    }
    // A font that is set explicitly would no longer follow the desktop's choice.
    QFont::insertSubstitutions(QApplication::font().family(), plainFaces());
    QGuiApplication::setDesktopFileName(u"tarvex"_s);
}

} // namespace platform
