#include "app/windows/startPage.h"
#include "platform/recentFiles.h"
#include "widgets/layout.h"
#include "workspace/draftFile.h"
#include <QDir>
#include <QScrollBar>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::column;

namespace app {

namespace {

Button *entry(const QString &name, const QString &caption, QWidget *page) {
    auto *made = new Button(name, caption, page);
    made->setStyleSheet(u"QPushButton { text-align: left; padding: 0.4em 1em; }"_s);
    return made;
}

QLabel *heading(const QString &name, const QString &text, QWidget *page) {
    auto *made = widgets::named(new QLabel(text, page), name);
    QFont larger = made->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.2);
    made->setFont(larger);
    return made;
}

} // namespace

StartPage::StartPage(platform::Host &host, QWidget *parent)
    : QScrollArea(parent)
    , steps{entry(u"startImport"_s, u"&1 选择机读目录文件：预读、校对、修改，导入到套录库"_s, this),
            entry(u"startMaintain"_s, u"&2 查询和维护套录库"_s, this),
            entry(u"startExport"_s, u"&3 查询书库：打印一览表，导出为 marc 数据"_s, this)}
    , tidy(entry(u"startTidy"_s, u"&4 整理机读目录文件…"_s, this))
    , handbook(entry(u"startHandbook"_s, u"&5 使用手册（F1）"_s, this))
    , recentTitle(heading(u"recentTitle"_s, u"最近用过的文件"_s, this))
    , databaseWords(widgets::named(new QLabel(this), u"databaseWords"_s))
    , m_host(host)
    , m_recentFiles(new QVBoxLayout) {
    setObjectName(u"startPage"_s);
    auto *page = widgets::named(new QWidget, u"startPageContent"_s);
    page->setAutoFillBackground(true);
    page->setBackgroundRole(QPalette::Base);
    databaseWords->setTextInteractionFlags(Qt::TextSelectableByMouse);
    page->setLayout(column({heading(u"startTitle"_s, u"从这里开始"_s, this), steps[0], steps[1], steps[2], tidy,
                            handbook, recentTitle, m_recentFiles, databaseWords}));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the focus goes to its entries
    setWidget(page);
    setWidgetResizable(true);
    refresh();
}

void StartPage::refresh() {
    for (Button *file : recent) { // the button being clicked may be one of them
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
        auto *file =
            entry(u"recent"_s + QString::number(recent.size()), QString(names[at] + mark).replace(u'&', u"&&"_s), this);
        file->setToolTip(shown);
        file->setAccessibleDescription(shown);
        connect(file, &Button::clicked, this, [this, path] { Q_EMIT fileChosen(path); });
        m_recentFiles->addWidget(file);
        recent.append(file);
    }
    recentTitle->setVisible(!recent.isEmpty());
    m_fittedTo = {};
    adjustSize();
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
    const auto excess = [&](int above) { // computed now, not with the next events
        content()->setContentsMargins(side, above, side, above);
        m_recentFiles->invalidate();
        content()->invalidate();
        return content()->totalSizeHint().height() - room.height();
    };
    recentTitle->setVisible(!recent.isEmpty());
    for (Button *file : recent)
        file->show();
    for (auto last = recent.crbegin(); last != recent.crend() && excess(side) > 0; ++last)
        (*last)->hide();
    recentTitle->setVisible(!recent.isEmpty() && !recent[0]->isHidden());
    if (const int over = excess(side); over > 0)
        excess(std::max(line / 2, side - (over + 1) / 2));
    return sizeIn(room);
}

} // namespace app
