#include "widgets/keyLine.h"
#include "widgets/styleTokens.h"
#include <QEvent>

namespace widgets {

KeyLine::KeyLine(const QString &words, QAbstractScrollArea *owner)
    : QLabel(words, owner)
    , m_owner(owner) {
    QPalette faint = palette();
    faint.setColor(QPalette::WindowText, colour(Colour::FaintInk, faint));
    faint.setColor(QPalette::Window, colour(Colour::Base, faint));
    setPalette(faint);
    setAutoFillBackground(true);
    setMargin(space(Space::Tight, fontMetrics()));
    setCursor(Qt::ArrowCursor);
    owner->viewport()->installEventFilter(this);
}

bool KeyLine::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        const QRect above = m_owner->viewport()->geometry();
        setGeometry(above.left(), above.bottom() + 1, above.width(), sizeHint().height());
    }
    return false;
}

} // namespace widgets
