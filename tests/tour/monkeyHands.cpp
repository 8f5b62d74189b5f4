#include "tour/monkeyHands.h"
#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QThread>
#include <array>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr QStringView exitQuestion = u"确定要退出系统吗？";

// Excluded: Ctrl+F, which ends the program at once when it is pressed in the catalogue, and the keys of the window
// manager.
constexpr auto chords = std::to_array<const char *>(
    {"Tab",      "shift+Tab", "Return",     "Escape",    "space",  "Up",        "Down",     "Left",      "Right",
     "Home",     "End",       "Page_Up",    "Page_Down", "Menu",   "F2",        "F10",      "BackSpace", "Delete",
     "ctrl+a",   "ctrl+c",    "ctrl+v",     "ctrl+z",    "ctrl+e", "ctrl+Home", "ctrl+End", "ctrl+Tab",  "shift+Down",
     "shift+Up", "ctrl+Down", "shift+Home", "y",         "n",      "a",         "Z",        "9",         "0"});
constexpr QStringView accessKeys = u"abcdefghijklmnoqrstuvwxyz"; // Alt+P paginates a whole catalogue

// Stops the read or import of the window in front after its current record; returns false if there is none.
bool stopRun() {
    for (const QString &name : {u"frmDaoru/cmdJieShu"_s, u"frmDaoRuJindu/cmdStop"_s}) {
        auto *stop = TourDriver::find<QAbstractButton>(name);
        if (stop && stop->isEnabled() && stop->window()->isActiveWindow()) {
            stop->click();
            return true;
        }
    }
    return false;
}

} // namespace

MonkeyHands::MonkeyHands(TourDriver &driver, unsigned seed)
    : m_driver(driver)
    , m_dice(seed) {}

MonkeyHands::Front MonkeyHands::front() const {
    return m_driver.look([]() -> Front {
        QWidget *modal = QApplication::activeModalWidget();
        QWidget *window = modal ? modal : QApplication::activeWindow();
        if (!window || !window->isActiveWindow())
            return {};
        const auto *box = qobject_cast<QMessageBox *>(window);
        return {.id = window->winId(),
                .name = window->objectName(),
                .question = box ? box->text() : QString(),
                .hasAnswers = box && box->button(QMessageBox::No),
                .isFileDialog = qobject_cast<QFileDialog *>(window) != nullptr,
                .isPreview = qobject_cast<QPrintPreviewDialog *>(window) != nullptr,
                .isMain = window->objectName() == u"marcMain",
                .hasPopup = QApplication::activePopupWidget() != nullptr,
                .place = QRect(window->mapToGlobal(QPoint(0, 0)), window->size())};
    });
}

void MonkeyHands::act() {
    secondRuns();
    const Front front = this->front();
    if (front.id == 0)
        return meetNobody();
    ++m_acts;
    note(front, {});
    actOn(front, {.kind = int(m_dice() % 1000),
                  .choice = quint32(m_dice()),
                  .x = int(m_dice() % 10000),
                  .y = int(m_dice() % 10000)});
    m_driver.settle();
}

void MonkeyHands::actOn(const Front &front, const Throw &dice) {
    if (front.question == exitQuestion)
        return answer(front, false);
    if (front.isFileDialog)
        return answerFile(dice);
    if (front.isPreview)
        return close(front);
    if (!front.question.isEmpty() && dice.kind < 700)
        return answer(front, dice.choice % 2);
    if (dice.kind < 300)
        return press(QString::fromLatin1(chords[dice.choice % chords.size()]));
    if (dice.kind < 600)
        return press(u"alt+"_s + accessKeys[dice.choice % accessKeys.size()]);
    if (dice.kind < 930)
        return click(front, dice);
    if (dice.kind < 960)
        return close(front);
    if (dice.kind < 995)
        return m_driver.server().resize(front.id, QSize(200 + dice.x % 1200, 120 + dice.y % 800));
    startSecond();
}

// A box shows its button pressed for a while before it closes; if a second start received the key, the box stays open.
void MonkeyHands::answer(const Front &front, bool yes) {
    press(!front.hasAnswers ? u"Return"_s : yes ? u"y"_s : u"n"_s);
    const auto isOpen = [id = front.id] { return QWidget::find(id) && QWidget::find(id)->isVisible(); };
    for (int i = 0; i < 500 && m_driver.look(isOpen); ++i)
        QThread::msleep(1);
}

// Enters a new name in the folder of the samples, an existing one, or cancels; never names a file elsewhere.
void MonkeyHands::answerFile(const Throw &dice) {
    if (dice.choice % 4 == 0)
        return press(u"Escape"_s);
    const QString name = dice.choice % 4 == 1 ? u"five.iso"_s : u"monkey%1.iso"_s.arg(++m_names);
    press(u"ctrl+a"_s);
    typeText(QDir::currentPath() + u'/' + name);
    press(u"Return"_s);
    m_driver.settle();
    if (front().isFileDialog) // the file to open does not exist
        press(u"Escape"_s);
}

void MonkeyHands::note(const Front &front, const QString &done) {
    constexpr qsizetype kept = 60;
    m_last.append(front.name + u' ' + front.question + u' ' + done);
    m_last = m_last.last(std::min(m_last.size(), kept));
}

void MonkeyHands::press(const QString &chord) {
    m_last.last() += u' ' + chord;
    m_driver.server().key(chord);
}

void MonkeyHands::typeText(const QString &text) {
    for (const QChar character : text)
        m_driver.server().type(character);
}

void MonkeyHands::click(const Front &front, const Throw &dice) {
    const QPoint place(front.place.left() + dice.x * front.place.width() / 10000,
                       front.place.top() + dice.y * front.place.height() / 10000);
    const int times = dice.choice % 5 == 0 ? 2 : 1;
    const int button = dice.choice % 7 == 0 ? 3 : 1;
    m_last.last() += u" button %1 at %2,%3"_s.arg(button).arg(place.x()).arg(place.y());
    m_driver.server().move(place);
    for (int i = 0; i < 2 * times; ++i)
        m_driver.server().button(button, i % 2 == 0);
}

// While one window replaces another, the window manager has yet to give the keyboard to the next one. After the box of
// a second start closes, it may give the keyboard to no window, and a user would then click a window.
void MonkeyHands::meetNobody() {
    QThread::msleep(1);
    if (++m_alone % 500 != 0)
        return;
    m_driver.look([] {
        QWidget *modal = QApplication::activeModalWidget();
        (modal ? modal : TourDriver::find(u"marcMain"_s))->activateWindow();
    });
}

void MonkeyHands::startSecond() {
    m_last.last() += u" second start";
    if (!secondRuns())
        m_second.start(QApplication::applicationFilePath(), {u"second"_s});
}

bool MonkeyHands::secondRuns() {
    if (m_second.state() == QProcess::NotRunning || m_second.waitForFinished(1))
        return false;
    m_driver.server().closeWindowsOf(m_second.processId());
    return true;
}

void MonkeyHands::close(const Front &front) {
    m_last.last() += u" close";
    m_driver.server().close(front.id);
}

// Once the window has the newly requested size, the window manager has processed all earlier requests. The width leaves
// space for the toolbar.
void MonkeyHands::hearTheManager(const Front &front) {
    const QSize size(1100 + m_acts % 100, 700);
    m_driver.server().resize(front.id, size);
    m_driver.waitUntil(u"the main window has its size"_s,
                       [&] { return TourDriver::find(u"marcMain"_s)->size() == size; });
}

void MonkeyHands::closeFront(const Front &front) {
    if (front.id == 0)
        return meetNobody();
    note(front, u"tidy"_s);
    if (front.isMain && !front.hasPopup)
        return hearTheManager(front);
    if (!front.question.isEmpty())
        answer(front, front.question == u"确实要退出吗？");
    else if (front.hasPopup || !m_driver.look(stopRun))
        press(u"Escape"_s);
    m_driver.settle();
}

void MonkeyHands::tidyUp(const std::function<void()> &help) {
    QElapsedTimer clock;
    clock.start();
    bool heard = false;
    const auto inTime = [&] { return clock.elapsed() < 60000; };
    while (m_driver.waitUntil(u"the main window stands alone"_s, inTime, 0)) {
        secondRuns();
        QThread::msleep(1);
        const Front front = this->front();
        const bool isAlone = front.isMain && !front.hasPopup;
        if (isAlone && heard)
            break;
        closeFront(front);
        heard = heard || isAlone;
        help();
    }
    while (secondRuns() && inTime())
        QThread::msleep(1);
    m_driver.expect(m_second.state() == QProcess::NotRunning, u"a second start ends"_s);
}

} // namespace tour
