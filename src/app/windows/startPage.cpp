#include "app/windows/startPage.h"
#include "platform/recentFiles.h"
#include "widgets/heading.h"
#include "widgets/layout.h"
#include "widgets/stylePaint.h"
#include "workspace/draftFile.h"
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QScrollBar>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::column;

namespace app {

namespace {

// "folder · day" of a recent file, with the home folder as "~".
QString whereAndWhen(const QFileInfo &file) {
    QString folder = QDir::toNativeSeparators(file.absolutePath());
    if (const QString home = QDir::toNativeSeparators(QDir::homePath()); folder.startsWith(home))
        folder.replace(0, home.size(), u'~');
    return folder + u"  ·  " + file.lastModified().toString(u"yyyy-MM-dd HH:mm");
}

} // namespace

StartPage::StartPage(platform::Host &host, QWidget *parent)
    : QScrollArea(parent)
    , steps{new PageEntry(u"startImport"_s, u"&1 选择机读目录文件：预读、校对、修改，导入到套录库"_s, u"daoru"_s, this),
            new PageEntry(u"startMaintain"_s, u"&2 查询和维护套录库"_s, u"delete"_s, this),
            new PageEntry(u"startExport"_s, u"&3 查询书库：打印一览表，导出为 marc 数据"_s, u"daochu"_s, this)}
    , tidy(new PageEntry(u"startTidy"_s, u"&4 整理机读目录文件…"_s, u"tidy"_s, this))
    , handbook(new PageEntry(u"startHandbook"_s, u"&5 使用手册（F1）"_s, u"book"_s, this))
    , fetch(new PageEntry(u"startFetch"_s, u"&6 从其他图书馆套录…"_s, u"fetch"_s, this))
    , tasks(new PageEntry(u"startTasks"_s, u"&7 批量修改的任务…"_s, u"tasks"_s, this))
    , recentTitle(new widgets::Heading(u"recentTitle"_s, u"最近用过的文件"_s, widgets::sectionSize, this))
    , m_host(host)
    , m_recentFiles(new QVBoxLayout)
    , m_sides(new QHBoxLayout) {
    setObjectName(u"startPage"_s);
    auto *page = widgets::named(new QWidget, u"startPageContent"_s);
    auto *title = new widgets::Heading(u"startTitle"_s, u"从这里开始"_s, widgets::titleSize, this);
    QBoxLayout *entries = column({steps[0], steps[1], steps[2], tidy, handbook, fetch, tasks, widgets::stretch()});
    QBoxLayout *files = column({recentTitle, m_recentFiles, widgets::stretch()});
    m_recentFiles->setSpacing(0);
    entries->setSpacing(0);
    m_sides->addLayout(entries, 1);
    m_sides->addLayout(files, 1);
    m_sides->setSpacing(2 * fontMetrics().height());
    page->setLayout(column({title, m_sides}));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the focus goes to its entries
    viewport()->setAutoFillBackground(false);
    setWidget(page);
    page->setAutoFillBackground(false);
    setWidgetResizable(true);
    refresh();
}

void StartPage::paintEvent(QPaintEvent *event) {
    QPainter painter(viewport());
    widgets::paintPanel(&painter, viewport()->rect(), widgets::colour(widgets::Colour::Base, palette()),
                        widgets::colour(widgets::Colour::Hairline, palette()));
    QScrollArea::paintEvent(event);
}

void StartPage::refresh() {
    for (PageEntry *file : recent) { // the button being clicked may be one of them
        file->hide();
        file->setObjectName({});
        file->deleteLater();
    }
    recent.clear();
    const QStringList paths = platform::recentFiles(m_host.remembered());
    const QStringList names = platform::recentNames(paths);
    const auto drafts = m_host.remembered().folderFor(platform::kept::drafts);
    for (qsizetype at = 0; at < paths.size(); ++at) {
        const QString &path = paths[at];
        const QString shown = QDir::toNativeSeparators(path);
        const qsizetype edits = drafts ? workspace::DraftFile(drafts.value(), path).count() : 0;
        const QString mark = edits > 0 ? u"　有 %1 条未导入的修改"_s.arg(edits) : QString();
        auto *file = new PageEntry(u"recent"_s + QString::number(recent.size()),
                                   QString(names[at] + mark).replace(u'&', u"&&"_s), u"file"_s, this);
        file->setDetail(whereAndWhen(QFileInfo(path)));
        file->setToolTip(shown);
        connect(file, &PageEntry::clicked, this, [this, path] { Q_EMIT fileChosen(path); });
        m_recentFiles->addWidget(file);
        recent.append(file);
    }
    m_fittedTo = {};
}

QSize StartPage::sizeIn(const QSize &room) const {
    QSize wanted = content()->totalSizeHint();
    if (wanted.height() > room.height())
        wanted.rwidth() += verticalScrollBar()->sizeHint().width();
    return wanted.boundedTo(room);
}

QSize StartPage::fittedTo(const QSize &room) {
    // Showing and hiding buttons triggers another layout of the page, which calls this function again; without this
    // test it would never end.
    if (std::exchange(m_fittedTo, room) == room)
        return sizeIn(room);
    const int line = fontMetrics().height();
    const int side = 2 * line;
    m_sides->setDirection(QBoxLayout::LeftToRight);
    if (recent.isEmpty() || content()->totalSizeHint().width() > room.width())
        m_sides->setDirection(QBoxLayout::TopToBottom);
    const auto excess = [&](int above) { // computed now, not with the next events
        content()->setContentsMargins(side, above, side, above);
        QObject *inner = m_recentFiles;
        for (QLayout *layout = m_recentFiles; layout; layout = qobject_cast<QLayout *>(inner = inner->parent()))
            layout->invalidate();
        return content()->totalSizeHint().height() - room.height();
    };
    recentTitle->setVisible(!recent.isEmpty());
    for (PageEntry *file : recent)
        file->show();
    for (auto last = recent.crbegin(); last != recent.crend() && excess(side) > 0; ++last) {
        const int over = excess(side);
        (*last)->hide();
        if (excess(side) == over) { // the steps next to the files are higher
            (*last)->show();
            break;
        }
    }
    recentTitle->setVisible(!recent.isEmpty() && !recent[0]->isHidden());
    if (const int over = excess(side); over > 0)
        excess(std::max(line / 2, side - (over + 1) / 2));
    return sizeIn(room);
}

} // namespace app
