#include "platform/widgets/pacedLabel.h"
#include <QEvent>
#include <QTimerEvent>

namespace platform {

namespace {
constexpr int kFrameMilliseconds = 16;
}

PacedLabel::PacedLabel(const QString &objectName, const QString &widestText, QWidget *parent)
    : QLabel(parent)
    , m_widestText(widestText) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
    fitSize();
}

void PacedLabel::setRunningText(const QString &text) {
    if (!m_pace.isActive()) {
        m_pace.start(kFrameMilliseconds, Qt::PreciseTimer, this);
        setUpdatesEnabled(false);
    }
    setText(text);
}

void PacedLabel::timerEvent(QTimerEvent *event) {
    if (event->timerId() != m_pace.timerId()) {
        QLabel::timerEvent(event);
        return;
    }
    m_pace.stop();
    setUpdatesEnabled(true);
    repaint(); // the next text may come before the loop gets round to painting
}

void PacedLabel::changeEvent(QEvent *event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitSize();
}

// A fixed size: with any other, each text would ask the window for a new layout.
void PacedLabel::fitSize() {
    const QMargins margins = contentsMargins();
    setFixedSize(fontMetrics().horizontalAdvance(m_widestText) + margins.left() + margins.right() + 2 * margin(),
                 fontMetrics().height() + margins.top() + margins.bottom() + 2 * margin());
}

} // namespace platform
