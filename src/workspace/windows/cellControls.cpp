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

// Claims the keys that an open editor handles itself, before the window and its shortcuts get them.
bool claims(QKeyEvent *event) {
    if (!isEnter(event) && event->key() != Qt::Key_Escape && !isAssistantKey(event))
        return false;
    event->accept();
    return true;
}

// An open editor that loses the focus takes it back, unless another window was activated.
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

EditorKeys::EditorKeys(QWidget *editor)
    : m_editor(editor) {
    editor->installEventFilter(this);
}

bool EditorKeys::eventFilter(QObject *, QEvent *event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return claims(static_cast<QKeyEvent *>(event));
    case QEvent::KeyPress:
        return endsComposition(static_cast<QKeyEvent *>(event)) || endsEdit(static_cast<QKeyEvent *>(event)) ||
               meansAButton(static_cast<QKeyEvent *>(event));
    case QEvent::InputMethod:
        m_preedit = static_cast<QInputMethodEvent *>(event)->preeditString();
        break;
    case QEvent::FocusIn:
        Q_EMIT focused();
        break;
    case QEvent::FocusOut:
        m_preedit.clear();
        takeFocusBack(m_editor, static_cast<QFocusEvent *>(event));
        break;
    default:
        break;
    }
    return false;
}

// Alt and a letter is the access key of a button that is disabled at the moment; Qt would insert the letter into the
// record.
bool EditorKeys::meansAButton(const QKeyEvent *event) {
    return (event->modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::AltModifier &&
           !event->text().isEmpty();
}

bool EditorKeys::endsEdit(QKeyEvent *event) {
    if (isEnter(event))
        Q_EMIT entered();
    else if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else
        return false;
    return true;
}

bool EditorKeys::endsComposition(QKeyEvent *event) {
    if (m_preedit.isEmpty())
        return false;
    event->accept(); // the keys of the input method must not reach the window either
    const bool drops = event->key() == Qt::Key_Escape;
    const bool ends = drops || isEnter(event);
    if (!ends && !typesText(event))
        return true;
    QInputMethodEvent over;
    if (!drops)
        over.setCommitString(m_preedit);
    QGuiApplication::inputMethod()->reset(); // may itself end the composition
    if (!m_preedit.isEmpty())
        QCoreApplication::sendEvent(m_editor, &over);
    return ends;
}

CellText::CellText(const QString &objectName, QWidget *parent)
    : TextBox(objectName, parent)
    , m_keys(new widgets::KeyLine(u"回车写入　Esc 放弃"_s, this)) {
    setContextMenuPolicy(Qt::NoContextMenu); // the right button is used for enlarging
    document()->setDocumentMargin(margin);
    hide();
}

void CellText::setEnlarged(bool enlarged) {
    m_enlarged = enlarged;
    setFrameShape(enlarged ? QFrame::StyledPanel : QFrame::NoFrame);
    setLineWrapMode(enlarged ? WidgetWidth : NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // the large form wraps
    setVerticalScrollBarPolicy(enlarged ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    m_keys->setVisible(enlarged);
    setViewportMargins(0, 0, 0, enlarged ? m_keys->room() : 0);
    ensureCursorVisible();
}

qsizetype CellText::room() const {
    if (!m_limit)
        return unlimited;
    return std::max<qsizetype>(0, *m_limit - text().size() + textCursor().selectedText().size());
}

void CellText::keyPressEvent(QKeyEvent *event) {
    if (isAssistantKey(event))
        Q_EMIT assistantWanted();
    else if (!typesText(event) || room() > 0)
        TextBox::keyPressEvent(event);
}

void CellText::inputMethodEvent(QInputMethodEvent *event) {
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

void CellText::focusOutEvent(QFocusEvent *event) {
    m_limit.reset(); // the limit applies until the box first loses the focus
    TextBox::focusOutEvent(event);
}

} // namespace workspace
