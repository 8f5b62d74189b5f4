#include "handbook/windows/frmHandbook.h"
#include "handbook/windows/pagePrint.h"
#include "platform/desktop/frontWindow.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <QApplication>
#include <QFile>
#include <QShortcut>
#include <QTextDocument>
#include <QWindow>
#include <algorithm>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::column;
using widgets::named;
using widgets::row;

namespace handbook {

frmHandbook::frmHandbook(platform::Host &host, const QString &folder)
    : Window(u"frmHandbook"_s, u"使用手册"_s)
    , view(new PageView(folder, this))
    , contents(named(new QListWidget(this), u"contents"_s, u"目录"_s))
    , findText(named(new QLineEdit(this), u"findText"_s, u"查找"_s))
    , findCount(named(new QLabel(this), u"findCount"_s))
    , cmdBack(new Button(u"cmdBack"_s, u"&B 后退"_s, this))
    , cmdForward(new Button(u"cmdForward"_s, u"&N 前进"_s, this))
    , cmdContents(new Button(u"cmdContents"_s, u"&H 目录"_s, this))
    , cmdPrint(new Button(u"cmdPrint"_s, u"&P 打印…"_s, this))
    , across(named(new QSplitter(this), u"across"_s))
    , m_host(host)
    , m_folder(folder)
    , m_pages(pagesIn(folder)) {
    layOut();
    connectControls();
    bindKeys();
    showContents();
}

void frmHandbook::layOut() {
    cmdBack->setToolTip(u"回到刚才看的一页（Alt+←）"_s);
    cmdForward->setToolTip(u"Alt+→"_s);
    cmdContents->setToolTip(u"手册的第一页（Alt+Home）"_s);
    cmdPrint->setToolTip(u"打印这一页（Ctrl+P）"_s);
    findText->setToolTip(u"Ctrl+F 到这里；回车或 F3 下一处，Shift+F3 上一处"_s);
    findText->setPlaceholderText(u"在全书查找（Ctrl+F）"_s);
    findText->setClearButtonEnabled(true);
    contents->setWordWrap(true);
    contents->setSpacing(fontMetrics().height() / 8);
    QFont larger = view->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.1);
    view->setFont(larger);
    contents->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *left = new QWidget(this);
    left->setLayout(column({findText, findCount, {contents, 1}}));
    left->layout()->setContentsMargins(0, 0, 0, 0);
    across->addWidget(left);
    across->addWidget(view);
    across->setStretchFactor(1, 1);
    across->setChildrenCollapsible(false);
    setLayout(column({row({cmdBack, cmdForward, cmdContents, cmdPrint, widgets::stretch()}), {across, 1}}));
    const int letter = fontMetrics().horizontalAdvance(u'字');
    resize(78 * letter, 44 * fontMetrics().height());
    across->setSizes({18 * letter, 60 * letter});
    widgets::rememberPlace(this, m_host.remembered());
    across->restoreState(m_host.remembered().value(platform::kept::handbookAcross));
}

void frmHandbook::connectControls() {
    connect(cmdBack, &Button::clicked, view, &PageView::backward);
    connect(cmdForward, &Button::clicked, view, &PageView::forward);
    connect(view, &PageView::backwardAvailable, cmdBack, &Button::setEnabled);
    connect(view, &PageView::forwardAvailable, cmdForward, &Button::setEnabled);
    connect(cmdContents, &Button::clicked, this, [this] { view->open(firstPage.toString()); });
    connect(cmdPrint, &Button::clicked, this, &frmHandbook::printPage);
    connect(view, &PageView::pageChanged, this, &frmHandbook::showPlace);
    connect(view, &PageView::linkLeads, this, &frmHandbook::leave);
    connect(findText, &QLineEdit::textChanged, this, &frmHandbook::lookFor);
    connect(findText, &QLineEdit::returnPressed, this, &frmHandbook::next);
    const auto turnTo = [this](const QListWidgetItem *item) {
        if (item)
            view->open(item->data(Qt::UserRole).toString());
    };
    connect(contents, &QListWidget::currentItemChanged, this, turnTo);
    connect(contents, &QListWidget::itemActivated, view, qOverload<>(&QWidget::setFocus));
}

void frmHandbook::bindKeys() {
    const auto bind = [this](const QKeySequence &key, auto act) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, act);
    };
    bind(Qt::ControlModifier | Qt::Key_F, [this] {
        findText->setFocus();
        findText->selectAll();
    });
    bind(Qt::Key_F3, [this] { next(); });
    bind(Qt::ShiftModifier | Qt::Key_F3, [this] { previous(); });
    bind(Qt::ControlModifier | Qt::Key_P, [this] { printPage(); });
    bind(Qt::AltModifier | Qt::Key_Left, [this] { view->backward(); });
    bind(Qt::AltModifier | Qt::Key_Right, [this] { view->forward(); });
    bind(Qt::AltModifier | Qt::Key_Home, [this] { cmdContents->click(); });
}

void frmHandbook::openBefore(QWidget *window, const Place &place) {
    m_opener = window;
    if (!isVisible() && !findText->text().isEmpty())
        findText->clear();
    standBefore(window);
    view->setFocus();
    show();
    view->open(place.file, place.heading); // after show(): the position of the heading depends on the width
    contents->scrollToItem(contents->currentItem());
    raise();
    activateWindow();
}

// Qt blocks every window except the modal one and those with it as transient parent. Changing the transient parent of a
// visible window neither hides it nor moves the keyboard focus.
void frmHandbook::standBefore(QWidget *window) {
    winId(); // creates the QWindow
    QWindow *place = window ? window->window()->windowHandle() : nullptr;
    windowHandle()->setTransientParent(place);
    if (place)
        connect(place, &QObject::destroyed, this, &frmHandbook::raiseAboveModal,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    const QWidgetList others = QApplication::topLevelWidgets();
    for (QWidget *other : others) // windows opened by the handbook move with it
        if (other->parentWidget() == this && other->windowHandle())
            other->windowHandle()->setTransientParent(windowHandle());
}

void frmHandbook::raiseAboveModal() {
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || modal->parentWidget() != this)
        standBefore(modal);
}

bool frmHandbook::event(QEvent *event) {
    if (event->type() == QEvent::WindowBlocked && isVisible())
        QMetaObject::invokeMethod(this, &frmHandbook::raiseAboveModal, Qt::QueuedConnection);
    return Window::event(event);
}

void frmHandbook::closeEvent(QCloseEvent *event) {
    m_host.remembered().keep(platform::kept::handbookAcross, across->saveState());
    Window::closeEvent(event);
    const bool opener = m_opener && m_opener->isVisible() && !platform::isBlocked(m_opener);
    QWidget *behind = opener ? m_opener->window() : QApplication::activeModalWidget();
    if (isActiveWindow() && behind)
        behind->activateWindow();
}

void frmHandbook::lookFor(const QString &words) {
    view->mark(words);
    showContents();
    showPlace();
}

const QString &frmHandbook::textOf(const QString &file) {
    QString &text = m_texts[file];
    QFile page(m_folder + u'/' + file);
    if (text.isEmpty() && page.open(QIODevice::ReadOnly)) {
        QTextDocument document;
        document.setMarkdown(QString::fromUtf8(page.readAll()));
        text = document.toPlainText();
    }
    return text;
}

void frmHandbook::showContents() {
    const QSignalBlocker quiet(contents);
    contents->clear();
    const QString words = findText->text();
    for (const Page &page : m_pages) {
        const Hits hits = words.isEmpty() ? Hits() : hitsIn(textOf(page.file), words);
        if (!words.isEmpty() && hits.count == 0)
            continue;
        const QString found = u"%1（%2 处）\n…%3…"_s.arg(page.title, QString::number(hits.count), hits.excerpt);
        auto *item = new QListWidgetItem(words.isEmpty() ? page.title : found, contents);
        item->setData(Qt::UserRole, page.file);
    }
}

// Selects the page in the contents and shows the number of the current mark.
void frmHandbook::showPlace() {
    const QString words = findText->text();
    if (view->marks() == 0)
        view->mark(words); // for a page that was just opened
    const QSignalBlocker quiet(contents);
    contents->setCurrentItem(nullptr);
    for (int i = 0; i < contents->count(); ++i)
        if (contents->item(i)->data(Qt::UserRole) == view->file())
            contents->setCurrentRow(i);
    const QString all = QString::number(view->marks());
    findCount->setText(words.isEmpty()          ? QString()
                       : contents->count() == 0 ? u"没有找到"_s
                       : view->marks() == 0     ? u"本页没有，另有 %1 页"_s.arg(contents->count())
                       : view->currentMark() >= 0
                           ? u"本页第 %1 / %2 处"_s.arg(QString::number(view->currentMark() + 1), all)
                           : u"本页 %1 处"_s.arg(all));
    findCount->setVisible(!words.isEmpty());
}

void frmHandbook::next() {
    step(1);
}

void frmHandbook::previous() {
    step(-1);
}

void frmHandbook::step(int direction) {
    if (findText->text().isEmpty() || contents->count() == 0)
        return findText->setFocus();
    int mark = direction > 0 ? view->markAfter() : view->markBefore();
    if (mark < 0) {
        const int pages = contents->count();
        const int at = contents->currentRow(); // -1: the current page is not among them
        const int page = at < 0 ? (direction > 0 ? 0 : pages - 1) : (at + direction + pages) % pages;
        view->open(contents->item(page)->data(Qt::UserRole).toString());
        mark = direction > 0 ? 0 : view->marks() - 1;
    }
    view->goToMark(mark);
    showPlace();
}

void frmHandbook::printPage() {
    const auto page = std::ranges::find(m_pages, view->file(), &Page::file);
    if (page != m_pages.end())
        newPagePreview(m_folder + u'/' + page->file, windowTitle() + u'：' + page->title, this)->show();
}

void frmHandbook::leave(const QUrl &link) {
    const QString address = link.toString();
    if (m_host.ask(u"要离开程序，打开这个地址吗？\r\n"_s + address, windowTitle()) && !m_host.openInShell(address))
        m_host.tell(u"浏览器没有正确安装或其它错误。"_s, windowTitle());
}

} // namespace handbook
