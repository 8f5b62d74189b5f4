#include "workspace/windows/cellControls.h"
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMimeData>
#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr int cellMargin = 2; // pixels around the text, about those of a grid cell
constexpr qsizetype unlimited = std::numeric_limits<qsizetype>::max();

bool isEnter(const QKeyEvent *event) {
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

bool isAssistantKey(const QKeyEvent *event) {
    return event->key() == Qt::Key_E && event->modifiers() == Qt::ControlModifier;
}

bool typesText(const QKeyEvent *event) {
    const bool command =
        event->modifiers().testFlag(Qt::ControlModifier) && !event->modifiers().testFlag(Qt::AltModifier);
    return !command && !event->text().isEmpty() && event->text()[0].isPrint();
}

// Claims the keys that an open editor answers itself, ahead of the window and its shortcuts.
bool claims(QEvent *event) {
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (!isEnter(key) && key->key() != Qt::Key_Escape && !isAssistantKey(key))
        return false;
    event->accept();
    return true;
}

// An editor that is left while it is open takes the focus back. Another window in front is no leaving.
void takeFocusBack(QWidget *editor, const QFocusEvent *event) {
    if (!editor->isVisible() || event->reason() == Qt::ActiveWindowFocusReason ||
        event->reason() == Qt::PopupFocusReason)
        return;
    QMetaObject::invokeMethod(
        editor,
        [editor] {
            if (editor->isVisible())
                editor->setFocus();
        },
        Qt::QueuedConnection);
}

} // namespace

bool Composition::uses(QKeyEvent *event, QWidget *editor) {
    if (m_preedit.isEmpty())
        return false;
    event->accept(); // the input method's own keys must not reach the window either
    const bool drops = event->key() == Qt::Key_Escape;
    const bool ends = drops || isEnter(event);
    if (!ends && !typesText(event))
        return true;
    QInputMethodEvent over;
    if (!drops)
        over.setCommitString(m_preedit);
    QGuiApplication::inputMethod()->reset(); // may answer with an end of its own
    if (!m_preedit.isEmpty())
        QCoreApplication::sendEvent(editor, &over);
    return ends;
}

CellText::CellText(const QString &objectName, QWidget *parent)
    : TextBox(objectName, parent) {
    setContextMenuPolicy(Qt::NoContextMenu); // the right button has a meaning of its own
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(cellMargin);
    setEnlarged(false);
    hide();
}

void CellText::setEnlarged(bool enlarged) {
    m_enlarged = enlarged;
    setFrameShape(enlarged ? QFrame::StyledPanel : QFrame::NoFrame);
    setLineWrapMode(enlarged ? WidgetWidth : NoWrap);
    const auto bars = enlarged ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    setHorizontalScrollBarPolicy(bars);
    setVerticalScrollBarPolicy(bars);
    ensureCursorVisible();
}

qsizetype CellText::room() const {
    if (!m_limit)
        return unlimited;
    return std::max<qsizetype>(0, *m_limit - text().size() + textCursor().selectedText().size());
}

bool CellText::event(QEvent *event) {
    return claims(event) || TextBox::event(event);
}

void CellText::keyPressEvent(QKeyEvent *event) {
    if (m_composition.uses(event, this))
        return;
    if (isEnter(event))
        Q_EMIT entered();
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else if (isAssistantKey(event))
        Q_EMIT assistantWanted();
    else if (!typesText(event) || room() > 0)
        TextBox::keyPressEvent(event);
}

void CellText::inputMethodEvent(QInputMethodEvent *event) {
    m_composition.note(event);
    QInputMethodEvent fitting(event->preeditString(), event->attributes());
    fitting.setCommitString(event->commitString().left(room()), event->replacementStart(), event->replacementLength());
    TextBox::inputMethodEvent(&fitting);
    event->setAccepted(fitting.isAccepted());
}

void CellText::insertFromMimeData(const QMimeData *source) {
    if (!m_limit)
        return TextBox::insertFromMimeData(source);
    QMimeData fitting;
    fitting.setText(source->text().left(room()));
    TextBox::insertFromMimeData(&fitting);
}

void CellText::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::RightButton)
        Q_EMIT enlargeWanted();
    else
        TextBox::mousePressEvent(event);
}

void CellText::mouseDoubleClickEvent(QMouseEvent *event) {
    if (m_enlarged && event->button() == Qt::LeftButton)
        Q_EMIT reduceWanted();
    else
        TextBox::mouseDoubleClickEvent(event);
}

void CellText::focusInEvent(QFocusEvent *event) {
    TextBox::focusInEvent(event);
    Q_EMIT focused();
}

void CellText::focusOutEvent(QFocusEvent *event) {
    m_limit.reset(); // the limit holds until the box is left for the first time
    m_composition.forget();
    TextBox::focusOutEvent(event);
    takeFocusBack(this, event);
}

CellLine::CellLine(const QString &objectName, QWidget *parent)
    : QLineEdit(parent) {
    setObjectName(objectName);
    setFrame(false);
    setTextMargins(cellMargin, 0, cellMargin, 0);
    hide();
}

bool CellLine::event(QEvent *event) {
    return claims(event) || QLineEdit::event(event);
}

void CellLine::keyPressEvent(QKeyEvent *event) {
    if (m_composition.uses(event, this))
        return;
    if (isEnter(event))
        Q_EMIT entered();
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else
        QLineEdit::keyPressEvent(event);
}

void CellLine::inputMethodEvent(QInputMethodEvent *event) {
    m_composition.note(event);
    QLineEdit::inputMethodEvent(event);
}

void CellLine::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    Q_EMIT focused();
}

void CellLine::focusOutEvent(QFocusEvent *event) {
    m_composition.forget();
    QLineEdit::focusOutEvent(event);
    takeFocusBack(this, event);
}

} // namespace workspace
