#include "widgets/pacedLabel.h"
#include "widgets/layout.h"
#include <QAccessible>
#include <QHelpEvent>
#include <QStylePainter>
#include <QTimerEvent>
#include <QToolTip>
#include <algorithm>

namespace widgets {

namespace {

constexpr int frameMilliseconds = 16;
constexpr int leastCharacters = 12; // the label does not become narrower than this

} // namespace

PacedLabel::PacedLabel(const QString &objectName, const QString &text, QWidget *parent)
    : QLabel(parent) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
    setText(text);
}

void PacedLabel::setPacedText(const QString &text) {
    if (m_form.isNull() && text == m_text)
        return; // unchanged
    m_text = text;
    m_form = {};
    startPace();
}

void PacedLabel::setPacedNumber(QStringView form, qint64 number) {
    m_form = form;
    m_number = number;
    startPace();
}

void PacedLabel::startPace() {
    if (!m_pace.isActive())
        m_pace.start(frameMilliseconds, this);
}

QString PacedLabel::pacedText() const {
    return m_form.isNull() ? m_text : m_form.toString().arg(m_number);
}

void PacedLabel::flush() {
    Q_EMIT aboutToShow();
    m_pace.stop(); // even if a slot has set another text
    m_text = pacedText();
    m_form = {};
    if (QLabel::text() == m_text)
        return;
    QLabel::setText(m_text);
    tellReader();
}

void PacedLabel::setMeaning(const QString &meaning) {
    m_meaning = meaning;
    tellReader();
}

void PacedLabel::tellReader() {
    if (!m_meaning.isEmpty())
        setAccessibleName(m_text.isEmpty() ? m_meaning : QString(m_meaning + u' ' + m_text));
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

void PacedLabel::setText(const QString &text) {
    m_text = text;
    m_form = {};
    flush();
}

QSize PacedLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    return {std::min(whole.width(), leastCharacters * fontMetrics().horizontalAdvance(u'录')), whole.height()};
}

QString PacedLabel::shown() const {
    if (QLabel::text().contains(u'\n'))
        return QLabel::text();
    return fontMetrics().elidedText(QLabel::text(), Qt::ElideMiddle, contentsRect().width());
}

bool PacedLabel::event(QEvent *event) {
    if (event->type() == QEvent::ToolTip && shown() != QLabel::text()) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainTip(pacedText()), this);
        return true;
    }
    return QLabel::event(event);
}

void PacedLabel::paintEvent(QPaintEvent *event) {
    const QString fitting = shown();
    if (fitting == QLabel::text()) {
        QLabel::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    drawFrame(&painter);
    painter.drawItemText(contentsRect(), int(alignment()), palette(), isEnabled(), fitting, foregroundRole());
}

void PacedLabel::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_pace.timerId())
        flush();
    else
        QLabel::timerEvent(event);
}

} // namespace widgets
