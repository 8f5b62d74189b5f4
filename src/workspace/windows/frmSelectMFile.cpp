#include "workspace/windows/frmSelectMFile.h"
#include "platform/fileFilters.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "platform/recentFiles.h"
#include "widgets/fileDrop.h"
#include "widgets/layout.h"
#include "widgets/oneSize.h"
#include "widgets/waitCursor.h"
#include <QAction>
#include <QCompleter>
#include <QDir>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QStyle>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::column;
using widgets::named;
using widgets::row;

namespace workspace {

frmSelectMFile::frmSelectMFile(platform::Host &host, Ways ways, QWidget *parent)
    : Window(u"frmSelectMFile"_s, u"请选择机读目录文件"_s, parent)
    , Frame1(named(new QGroupBox(this), u"Frame1"_s))
    , Text1(named(new QLineEdit(this), u"Text1"_s, u"机读目录数据文件"_s))
    , cmdLL(new Button(u"cmdLL"_s, u"&O 浏览"_s, this))
    , labFacts(new tidy::FactsLabel(u"labFacts"_s, this))
    , cmdTidy(new Button(u"cmdTidy"_s, u"&Z 整理…"_s, this))
    , cmdClick{new Button(u"cmdClick0"_s, u"&S 查看机读目录"_s, this), new Button(u"cmdClick1"_s, u"&Q 退出"_s, this)}
    , m_host(host)
    , m_ways(std::move(ways)) {
    widgets::keepOneSize(this);
    widgets::giveWidth(Text1, fontMetrics().averageCharWidth() * 44);
    widgets::framed(Frame1, row({{Text1, 1}, cmdLL}));
    setLayout(column({Frame1, {labFacts, 1}, row({cmdTidy, widgets::stretch(), cmdClick[0], cmdClick[1]})}));
    offerTidying(false);
    widgets::hint({{Text1, u"↓ 最近用过的文件；也可以把文件拖到窗口上"},
                   {cmdTidy, u"这个文件不能整个读出：整理成一行一条的 GBK 文件"},
                   {cmdClick[0], u"打开文件，先读 200 条；不改动文件"}});
    connect(Text1, &QLineEdit::textChanged, this, [this](const QString &file) {
        offerTidying(false);
        labFacts->lookAt(platform::trimBlanks(file));
    });
    connect(labFacts, &tidy::FactsLabel::looked, this,
            [this](const marc::FileFacts &, bool disagree) { offerTidying(disagree); });
    connect(cmdTidy, &Button::clicked, this, [this] { m_ways.tidy(platform::trimBlanks(Text1->text())); });
    setAcceptDrops(true);
    Text1->setAcceptDrops(false); // the window handles drops everywhere
    auto *down = Text1->addAction(style()->standardIcon(QStyle::SP_ArrowDown), QLineEdit::TrailingPosition);
    down->setText(u"最近用过的文件"_s); // read by a screen reader
    down->setToolTip(down->text());
    connect(down, &QAction::triggered, this, &frmSelectMFile::listRecentFiles);
    Text1->installEventFilter(this);
    connect(Text1, &QLineEdit::returnPressed, this, &frmSelectMFile::enter);
    offerRecentFiles();
    connect(cmdLL, &Button::clicked, this, &frmSelectMFile::browse);
    connect(cmdClick[0], &Button::clicked, this, &frmSelectMFile::openWorkspace);
    connect(cmdClick[1], &Button::clicked, this, [this] { unload(); });
}

void frmSelectMFile::choose(const QString &file) {
    Text1->setText(file);
    cmdClick[0]->setFocus();
}

// Any part of a path can be typed to complete it.
void frmSelectMFile::offerRecentFiles() {
    auto *completer = new QCompleter(platform::recentFiles(m_host.remembered()), this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    completer->setMaxVisibleItems(10);
    Text1->setCompleter(completer);
}

void frmSelectMFile::listRecentFiles() {
    Text1->completer()->setCompletionPrefix({});
    Text1->completer()->complete();
}

// A key event rather than a shortcut: in the open list, which leaves the focus in the box, the key moves down.
bool frmSelectMFile::eventFilter(QObject *watched, QEvent *event) {
    if (watched != Text1 || event->type() != QEvent::KeyPress)
        return Window::eventFilter(watched, event);
    if (static_cast<QKeyEvent *>(event)->key() != Qt::Key_Down)
        return Window::eventFilter(watched, event);
    listRecentFiles();
    return true;
}

// Handles Enter in the box and on a path in its list.
void frmSelectMFile::enter() {
    labFacts->lookAgain();
    labFacts->hurry();
    (cmdTidy->isDefault() ? cmdTidy : cmdClick[0])->click();
}

// The box has already handled Enter.
void frmSelectMFile::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        Window::keyPressEvent(event);
}

void frmSelectMFile::changeEvent(QEvent *event) {
    Window::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !m_busy)
        labFacts->lookAgain();
}

// Enter alone must not open a file that would be read wrongly. The default button is the primary one.
void frmSelectMFile::offerTidying(bool wanted) {
    cmdTidy->setVisible(wanted);
    (wanted ? cmdTidy : cmdClick[0])->setDefault(true);
    if (wanted && cmdClick[0]->hasFocus())
        cmdTidy->setFocus();
    else if (!wanted && cmdTidy->hasFocus())
        cmdClick[0]->setFocus();
}

void frmSelectMFile::dragEnterEvent(QDragEnterEvent *event) {
    if (!m_busy)
        widgets::acceptFile(event);
}

void frmSelectMFile::dropEvent(QDropEvent *event) {
    if (const auto path = widgets::acceptFile(event))
        choose(*path);
}

void frmSelectMFile::browse() {
    Text1->setText(m_host.chooseFile({.title = u"打开marc文件对话框"_s,
                                      .filter = platform::filters::records.toString(),
                                      .kind = platform::FileDialogKind::Open}));
    if (!Text1->text().isEmpty())
        cmdClick[0]->setFocus();
}

void frmSelectMFile::refuse(const QString &text) {
    m_host.tell(text);
    Text1->setFocus();
}

void frmSelectMFile::openWorkspace() {
    if (Text1->text().isEmpty())
        return refuse(u"没有选择机读目录数据文件！"_s);
    const QString file = platform::trimBlanks(Text1->text());
    if (!platform::fileExists(file))
        return refuse(u"该机读目录数据文件不存在！"_s);
    labFacts->stop();
    platform::noteRecentFile(m_host.remembered(), file);
    offerRecentFiles();
    cmdClick[0]->setEnabled(false);
    Frame1->setTitle(u"正在预读,请稍候........."_s);
    Frame1->repaint();
    {
        const widgets::WaitCursor waiting(this);
        m_busy = true;
        m_ways.showWorkspace(file);
        m_busy = false;
    }
    labFacts->lookAgain();
    Frame1->setTitle({});
    cmdClick[0]->setEnabled(true);
}

// While the workspace is being loaded, an event must not close this dialog.
bool frmSelectMFile::queryUnload() {
    return !m_busy;
}

} // namespace workspace
