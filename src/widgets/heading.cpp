#include "widgets/heading.h"
#include <QApplication>
#include <QEvent>

namespace widgets {

Heading::Heading(const QString &objectName, const QString &text, double size, QWidget *parent)
    : QLabel(text, parent)
    , m_size(size) {
    setObjectName(objectName);
    scale();
}

void Heading::scale() {
    QFont scaled = QApplication::font();
    scaled.setPointSizeF(scaled.pointSizeF() * m_size);
    setFont(scaled);
}

bool Heading::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationFontChange)
        scale();
    return QLabel::event(event);
}

} // namespace widgets
