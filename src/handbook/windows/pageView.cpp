#include "handbook/windows/pageView.h"
#include "handbook/handbook.h"
#include "handbook/windows/pageLook.h"
#include "widgets/fixedColours.h"
#include "widgets/flexGridColours.h"
#include <QAccessible>
#include <QEvent>
#include <QResizeEvent>
#include <QtMath>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace handbook {

PageView::PageView(const QString &folder, QWidget *parent)
    : QTextBrowser(parent)
    , m_folder(folder) {
    setObjectName(u"pageView"_s);
    setAccessibleName(u"正文"_s);
    setOpenLinks(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // keeps the width of pictures constant
    connect(this, &QTextBrowser::anchorClicked, this, &PageView::follow);
    connect(this, &QTextBrowser::sourceChanged, this, &PageView::arrived);
}

bool PageView::focusNextPrevChild(bool next) {
    const bool moved = QTextBrowser::focusNextPrevChild(next);
    if (const QTextCursor link = textCursor(); moved && hasFocus() && link.hasSelection()) {
        QAccessibleTextSelectionEvent chosen(this, link.selectionStart(), link.selectionEnd());
        QAccessible::updateAccessibility(&chosen);
    }
    return moved;
}

QString PageView::file() const {
    return m_page.fileName();
}

void PageView::open(const QString &file, const QString &heading) {
    if (file == this->file() && heading.isEmpty())
        return;
    if (file == this->file()) // setSource() would read the page again, without its format
        return scrollToAnchor(anchorOf(heading));
    const QString path = m_folder + u'/' + file;
    QUrl place = path.startsWith(u':') ? QUrl(u"qrc"_s + path) : QUrl::fromLocalFile(path);
    if (!heading.isEmpty())
        place.setFragment(anchorOf(heading));
    setSource(place, QTextDocument::MarkdownResource);
}

void PageView::follow(const QUrl &link) {
    const QUrl target = m_page.resolved(link);
    if (target.scheme() != m_page.scheme())
        Q_EMIT linkLeads(target);
    else if (target.adjusted(QUrl::RemoveFragment) == m_page)
        scrollToAnchor(target.fragment());
    else
        setSource(target, QTextDocument::MarkdownResource);
}

// Called after the document was filled, before navigation back restores the scroll position. source() is still the old
// one.
void PageView::arrived(const QUrl &place) {
    const QUrl page = place.adjusted(QUrl::RemoveFragment);
    if (page == m_page)
        return;
    m_page = page;
    m_pictures.clear();
    m_marks.clear();
    m_current = -1;
    setExtraSelections({});
    dress(*document(), palette());
    fitPictures();
    if (place.hasFragment())
        scrollToAnchor(place.fragment());
    Q_EMIT pageChanged();
}

QImage PageView::picture(const QUrl &name) {
    QImage &kept = m_pictures[name.toString()];
    if (kept.isNull())
        kept.loadFromData(QTextBrowser::loadResource(QTextDocument::ImageResource, name).toByteArray());
    const int margins = 2 * qCeil(document()->documentMargin());
    return fitted(kept, viewport()->width() - margins, devicePixelRatioF());
}

QVariant PageView::loadResource(int type, const QUrl &name) {
    if (type == QTextDocument::ImageResource)
        return picture(name);
    return QTextBrowser::loadResource(type, name);
}

void PageView::fitPictures() {
    for (const QString &name : picturesIn(*document())) {
        const QUrl address = document()->baseUrl().resolved(QUrl(name)); // the key of the resource
        document()->addResource(QTextDocument::ImageResource, address, picture(address));
    }
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
    if (!another || m_page.isEmpty())
        return;
    m_page.clear();
    reload(); // both affect the format
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
        const QColor back = widgets::colourFromNumber(i == m_current ? widgets::foundOrange : widgets::foundYellow);
        format.setBackground(back);
        format.setForeground(widgets::legibleOn(back));
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

int PageView::markAfter() const {
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
