#include "handbook/windows/pageView.h"
#include "handbook/windows/pageLook.h"
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace handbook {

PageView::PageView(const QString &folder, QWidget *parent)
    : QTextBrowser(parent)
    , m_folder(folder) {
    setObjectName(u"pageView"_s);
    setAccessibleName(u"正文"_s);
    setOpenLinks(false);
    setTabChangesFocus(false);
    connect(this, &QTextBrowser::anchorClicked, this, &PageView::follow);
    connect(this, &QTextBrowser::sourceChanged, this, &PageView::arrived);
}

QString PageView::file() const {
    return source().fileName();
}

void PageView::open(const QString &file) {
    if (file == this->file())
        return;
    const QString path = m_folder + u'/' + file;
    setSource(path.startsWith(u':') ? QUrl(u"qrc"_s + path) : QUrl::fromLocalFile(path),
              QTextDocument::MarkdownResource);
}

void PageView::follow(const QUrl &link) {
    const QUrl target = source().resolved(link);
    if (target.scheme() != source().scheme())
        Q_EMIT linkLeads(target);
    else
        setSource(target, QTextDocument::MarkdownResource);
}

// Behind the filling of the document and before a way back scrolls to where one was.
void PageView::arrived() {
    const QUrl page = source().adjusted(QUrl::RemoveFragment);
    if (page == m_dressed)
        return;
    m_dressed = page;
    m_pictures.clear();
    m_marks.clear();
    m_current = -1;
    setExtraSelections({});
    dress(*document(), palette());
    if (source().hasFragment())
        scrollToAnchor(source().fragment());
    Q_EMIT pageChanged();
}

QImage PageView::picture(const QUrl &name) {
    QImage &kept = m_pictures[name.toString()];
    if (kept.isNull())
        kept.loadFromData(QTextBrowser::loadResource(QTextDocument::ImageResource, name).toByteArray());
    return fitted(kept, viewport()->width() - 3 * int(document()->documentMargin()), devicePixelRatioF());
}

QVariant PageView::loadResource(int type, const QUrl &name) {
    if (type == QTextDocument::ImageResource)
        return picture(name);
    return QTextBrowser::loadResource(type, name);
}

void PageView::fitPictures() {
    for (const QString &name : picturesIn(*document()))
        document()->addResource(QTextDocument::ImageResource, QUrl(name), picture(QUrl(name)));
    document()->markContentsDirty(0, document()->characterCount());
}

void PageView::resizeEvent(QResizeEvent *event) {
    QTextBrowser::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        fitPictures();
}

void PageView::changeEvent(QEvent *event) {
    QTextBrowser::changeEvent(event);
    const bool another = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (!another || m_dressed.isEmpty())
        return;
    m_dressed.clear();
    reload(); // the look is made of both
}

int PageView::mark(const QString &words) {
    m_marks.clear();
    m_current = -1;
    if (!words.isEmpty())
        for (QTextCursor found = document()->find(words, 0); !found.isNull(); found = document()->find(words, found))
            m_marks.append(found);
    showMarks();
    return marks();
}

void PageView::showMarks() {
    QList<ExtraSelection> shown;
    for (int i = 0; i < marks(); ++i) {
        QTextCharFormat format;
        format.setBackground(i == m_current ? QColor(0xff, 0x96, 0x32) : QColor(0xff, 0xf0, 0x80));
        format.setForeground(Qt::black);
        shown.append({m_marks[i], format});
    }
    setExtraSelections(shown);
}

void PageView::goToMark(int number) {
    if (number < 0 || number >= marks())
        return;
    m_current = number;
    QTextCursor place = m_marks[number];
    place.setPosition(place.selectionStart());
    setTextCursor(place);
    ensureCursorVisible();
    showMarks();
}

int PageView::markBehind() const {
    if (m_current >= 0)
        return m_current + 1 < marks() ? m_current + 1 : -1;
    const int top = cursorForPosition(QPoint(0, 0)).position();
    const auto found = std::ranges::find_if(m_marks, [&](const QTextCursor &at) { return at.selectionStart() >= top; });
    return found != m_marks.end() ? int(found - m_marks.begin()) : -1;
}

int PageView::markBefore() const {
    return m_current >= 0 ? m_current - 1 : marks() - 1;
}

} // namespace handbook
