#include "widgets/accentFrame.h"
#include <QEvent>
#include <QPainter>

namespace widgets {

AccentFrame::AccentFrame(QWidget *framed)
    : QWidget(framed->parentWidget())
    , m_framed(framed) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    framed->installEventFilter(this);
    connect(framed, &QObject::destroyed, this, &QObject::deleteLater);
    hide();
}

bool AccentFrame::eventFilter(QObject *, QEvent *event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::ZOrderChange:
        follow();
        break;
    case QEvent::Hide:
        hide();
        break;
    default:
        break;
    }
    return false;
}

// Surrounds the widget; at an edge of the parent the frame covers the edge of the widget instead.
void AccentFrame::follow() {
    if (m_framed->isHidden())
        return;
    const QMargins edge(width, width, width, width);
    setGeometry(m_framed->geometry().marginsAdded(edge) & parentWidget()->rect());
    setMask(QRegion(rect()) - QRegion(rect().marginsRemoved(edge)));
    raise();
    show();
}

void AccentFrame::paintEvent(QPaintEvent *) {
    QPainter(this).fillRect(rect(), colour(Colour::Accent, palette()));
}

} // namespace widgets
