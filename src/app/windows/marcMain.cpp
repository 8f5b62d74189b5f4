#include "app/windows/marcMain.h"
#include "app/databaseNote.h"
#include "platform/desktop/frontWindow.h"
#include "platform/desktop/screenSize.h"
#include "widgets/button.h"
#include "widgets/fileDrop.h"
#include "widgets/layout.h"
#include "widgets/lineIcon.h"
#include "widgets/remembered.h"
#include "widgets/styleTokens.h"
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QIcon>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::named;

namespace app {

marcMain::marcMain(platform::Host &host, CommandWindows &windows)
    : Toolbar1(named(new QToolBar(this), u"Toolbar1"_s))
    , mdiArea(named(new QMdiArea(this), u"mdiArea"_s))
    , startPage(new StartPage(host, mdiArea->viewport()))
    , databaseName(named(new QLabel(this), u"databaseName"_s))
    , lookBox(named(new QComboBox(this), u"lookBox"_s, u"外观"_s))
    , m_host(host)
    , m_windows(windows) {
    setObjectName(u"marcMain"_s);
    setWindowTitle(u"Tarvex图书馆管理系统-----------marc处理工具"_s);
    mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdiArea->setBackground(widgets::colour(widgets::Colour::Frame, palette()));
    setCentralWidget(mdiArea);
    buildMenu();
    buildToolbar();
    buildStartPage();
    buildStatusBar();
    fitBars();
    const QSize room = screen()->availableSize() * 9 / 10;
    const QSize wanted(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 42);
    resize(wanted.boundedTo(room).expandedTo({menuBar()->sizeHint().width(), 0}));
    widgets::rememberPlace(this, m_host.remembered());
}

// The list windows are deleted after this part of the window, and the area reports that none is active any more.
marcMain::~marcMain() {
    mdiArea->disconnect(this);
}

void marcMain::buildMenu() {
    menuBar()->setAccessibleName(u"菜单"_s);
    QMenu *menu = nullptr;
    for (const MenuRow &row : menuRows) {
        if (!row.menuCaption.isEmpty()) {
            menu = menuBar()->addMenu(row.menuCaption.toString());
            menu->setObjectName(row.menuName.toString());
        }
        QAction *item =
            row.command == Command::Separator ? menu->addSeparator() : menu->addAction(row.itemCaption.toString());
        item->setObjectName(row.itemName.toString());
        if (row.command != Command::Separator)
            connect(item, &QAction::triggered, this, [this, command = row.command] { run(command); });
    }
}

// On a small screen the items of the menu bar and of the toolbar move together, so that none of them is hidden.
void marcMain::fitBars() {
    const int room = platform::usableScreenSize(this).width();
    QWidgetList close;
    if (menuBar()->sizeHint().width() > room)
        close.append(menuBar());
    if (Toolbar1->sizeHint().width() > room)
        for (QToolButton *button : Toolbar1->findChildren<QToolButton *>())
            close.append(button);
    for (QWidget *part : close) {
        part->setProperty("narrow", true); // read by the style
        QEvent measureAgain(QEvent::StyleChange);
        QCoreApplication::sendEvent(part, &measureAgain);
    }
}

void marcMain::buildToolbar() {
    Toolbar1->setWindowTitle(u"工具栏"_s);
    Toolbar1->setMovable(false);
    Toolbar1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Toolbar1->setContextMenuPolicy(Qt::PreventContextMenu); // a hidden toolbar could not be shown again
    const int side = fontMetrics().height() * 2;
    Toolbar1->setIconSize(QSize(side, side));
    for (const ToolRow &row : toolRows) {
        QAction *action = Toolbar1->addAction(widgets::lineIcon(row.key.toString()), row.caption.toString());
        action->setObjectName(row.key.toString());
        action->setData(row.key.toString());
        action->setToolTip(row.tip.toString());
        connect(action, &QAction::triggered, this, [this, command = row.command] { run(command); });
        if (QWidget *button = Toolbar1->widgetForAction(action)) {
            named(button, row.key.toString(), row.caption.toString());
            button->setFocusPolicy(Qt::TabFocus);
        }
    }
    addToolBar(Toolbar1);
}

// The start page is below the list windows and visible only without them.
void marcMain::buildStartPage() {
    connect(startPage->steps[0], &widgets::Button::clicked, this, [this] { run(Command::Import); });
    connect(startPage->steps[1], &widgets::Button::clicked, this, [this] { run(Command::Maintain); });
    connect(startPage->steps[2], &widgets::Button::clicked, this, [this] { run(Command::Export); });
    connect(startPage->tidy, &widgets::Button::clicked, this, [this] {
        m_windows.tidyFile({});
        startPage->refresh();
    });
    connect(startPage->fetch, &widgets::Button::clicked, this, [this] {
        m_windows.fetchRecords();
        startPage->refresh();
    });
    connect(startPage->tasks, &widgets::Button::clicked, this, [this] { m_windows.showTasks(); });
    connect(startPage, &StartPage::fileChosen, this, &marcMain::selectFile);
    setAcceptDrops(true);
    connect(mdiArea, &QMdiArea::subWindowActivated, this, &marcMain::placeStartPage);
    mdiArea->viewport()->installEventFilter(this);
    startPage->widget()->installEventFilter(this);
    auto *menuKey = new QShortcut(Qt::Key_F10, this);
    connect(menuKey, &QShortcut::activated, this, [this] {
        if (platform::isBlocked(this))
            return;
        menuBar()->setFocus(Qt::MenuBarFocusReason);
        menuBar()->setActiveAction(menuBar()->actions().constFirst());
    });
}

void marcMain::buildStatusBar() {
    statusBar()->addWidget(databaseName);
    lookBox->addItems({u"外观：跟随系统"_s, u"外观：浅色"_s, u"外观：深色"_s});
    statusBar()->addPermanentWidget(lookBox);
    statusBar()->setSizeGripEnabled(false);
    const int side = widgets::space(widgets::Space::Small, fontMetrics());
    statusBar()->setContentsMargins(side, side / 2, side, side / 2);
    const DatabaseNote note = databaseNote(m_windows.connectionText());
    databaseName->setText(note.missing ? QString(u"⚠ " + note.words) : note.words);
}

void marcMain::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        mdiArea->setBackground(widgets::colour(widgets::Colour::Frame, palette()));
}

void marcMain::selectFile(const QString &path) {
    m_windows.selectMarcFile(path);
    startPage->refresh();
}

void marcMain::dragEnterEvent(QDragEnterEvent *event) {
    widgets::acceptFile(event);
}

// Opens the dialog later, since the program that the file was dragged from waits for the end of the drop.
void marcMain::dropEvent(QDropEvent *event) {
    if (const auto path = widgets::acceptFile(event))
        QMetaObject::invokeMethod(
            this, [this, path] { selectFile(*path); }, Qt::QueuedConnection);
}

void marcMain::placeStartPage() {
    const QSize room = mdiArea->viewport()->size();
    const QSize size = startPage->fittedTo(room);
    startPage->setGeometry(QRect(QPoint((room.width() - size.width()) / 2, (room.height() - size.height()) / 3), size));
    startPage->setVisible(mdiArea->subWindowList().isEmpty());
}

bool marcMain::eventFilter(QObject *watched, QEvent *event) {
    const bool moved = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (moved || event->type() == QEvent::ChildRemoved)
        QMetaObject::invokeMethod(this, &marcMain::placeStartPage, Qt::QueuedConnection);
    return QMainWindow::eventFilter(watched, event);
}

void marcMain::run(Command command) {
    switch (command) {
    case Command::Import:
        return selectFile({});
    case Command::Export:
        return LoadQuery();
    case Command::Maintain:
        return LoadQuerydel();
    case Command::Split:
        return m_windows.splitFile();
    case Command::Merge:
        return m_windows.mergeFiles();
    case Command::AboutTool:
        return m_windows.showHelp();
    case Command::AboutSystem:
        return m_windows.showAbout();
    case Command::Quit:
        close();
        return;
    case Command::Separator:
        return;
    }
}

void marcMain::LoadQuery() {
    m_windows.queryCatalogue(catalogueQuery);
}

void marcMain::LoadQuerydel() {
    m_windows.queryStore(storeQuery);
}

// The notice is created only after the frame is painted, so that it is in front of the frame and does not delay it.
void marcMain::paintEvent(QPaintEvent *event) {
    QMainWindow::paintEvent(event);
    if (!std::exchange(m_noticeShown, true))
        QTimer::singleShot(0, this, [this] { m_windows.showNotice(); });
}

void marcMain::closeEvent(QCloseEvent *event) {
    event->ignore();
    if (m_host.ask(u"确定要退出系统吗？"_s, QString(platform::programTitle + u"-[退出]"_s), platform::Answer::Yes,
                   platform::Icon::Exclamation)) {
        m_windows.endRuns();
        m_host.endProcess(); // without asking other windows
    }
}

} // namespace app
