#include "assist/windows/codeBox.h"
#include "widgets/fixedColours.h"
#include "widgets/flexGridColours.h"
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace assist {

namespace {

bool isCodeCharacter(QChar c) {
    return c > u' ' && c < QChar(0x7F);
}

// Returns the character of a key press, or 0 for a key that types none.
char16_t typedCharacter(const QKeyEvent &event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        return u'\r';
    // On some machines AltGr is reported as Ctrl and Alt together.
    const bool ctrl = event.modifiers() & Qt::ControlModifier;
    const bool alt = event.modifiers() & Qt::AltModifier;
    if (ctrl != alt || event.modifiers() & Qt::MetaModifier || event.text().size() != 1)
        return 0;
    return event.text().front().unicode();
}

bool goesElsewhere(const QFocusEvent &event) {
    return event.reason() != Qt::ActiveWindowFocusReason && event.reason() != Qt::PopupFocusReason;
}

} // namespace

CodeBox::CodeBox(const QString &objectName, int width, QWidget *parent)
    : QLineEdit(parent)
    , m_width(width) {
    setObjectName(objectName);
    setMaxLength(width);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setInputMethodHints(Qt::ImhPreferLatin | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
}

void CodeBox::makeEditable() {
    QPalette colours = palette();
    const QColor coded = widgets::colourFromNumber(widgets::codedCyan);
    colours.setColor(QPalette::Base, coded);
    colours.setColor(QPalette::Text, widgets::legibleOn(coded)); // in the dark scheme too
    setPalette(colours);
}

void CodeBox::makeFixed() {
    QPalette colours = palette();
    colours.setColor(QPalette::Disabled, QPalette::Base, colours.color(QPalette::Active, QPalette::Button));
    colours.setColor(QPalette::Disabled, QPalette::Text, colours.color(QPalette::Active, QPalette::ButtonText));
    setPalette(colours);
    setEnabled(false);
}

QSize CodeBox::sizeHint() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QFontMetrics metrics(font());
    const QChar widest = isEnabled() ? QChar(u'字') : QChar(u'?');
    const QSize room(metrics.horizontalAdvance(QString(m_width, widest)) + metrics.averageCharWidth(),
                     metrics.height());
    const QSize all = style()->sizeFromContents(QStyle::CT_LineEdit, &option, room, this);
    return all.expandedTo(QSize(0, QLineEdit::sizeHint().height()));
}

void CodeBox::keyPressEvent(QKeyEvent *event) {
    const char16_t key = typedCharacter(*event);
    if (event->key() == Qt::Key_Down)
        Q_EMIT listWanted();
    else if (key == 0 || !onKey(key))
        QLineEdit::keyPressEvent(event);
}

void CodeBox::inputMethodEvent(QInputMethodEvent *event) {
    const QString typed = event->commitString();
    if (typed.isEmpty() || !std::ranges::all_of(typed, isCodeCharacter)) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent compositionOver;
    QLineEdit::inputMethodEvent(&compositionOver);
    for (const QChar c : typed) {
        if (!onKey(c.unicode()))
            insert(c);
        if (!hasFocus())
            break;
    }
}

void CodeBox::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        deselect(); // so that a key does not replace the text of a full box
    Q_EMIT entered();
}

void CodeBox::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    if (goesElsewhere(*event))
        Q_EMIT left();
}

} // namespace assist
