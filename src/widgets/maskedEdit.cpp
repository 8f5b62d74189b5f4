#include "widgets/maskedEdit.h"
#include <QFocusEvent>
#include <QPointer>
#include <QValidator>
#include <utility>

namespace widgets {

namespace {
constexpr QChar digit = u'#';
constexpr QChar prompt = u'_';

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

// Qt's mask accepts the digits of all scripts, including full-width digits from an input method, and a NUL in any
// position.
class AsciiDigits final : public QValidator {
public:
    explicit AsciiDigits(QString mask, QObject *parent)
        : QValidator(parent)
        , m_mask(std::move(mask)) {}
    State validate(QString &text, int &) const override {
        for (qsizetype at = 0; at < text.size(); ++at) {
            if (m_mask.mid(at, 1) != text.mid(at, 1) && text[at] != prompt && !isDigit(text[at]))
                return Invalid;
        }
        return Acceptable;
    }

private:
    QString m_mask;
};

// Converts to Qt's mask: 0 is an optional digit (with 9 a partial value would be incomplete), a backslash escapes any
// other character, and the prompt follows a semicolon.
QString toolkitMask(const QString &mask) {
    if (mask.isEmpty())
        return {};
    QString result;
    for (const QChar character : mask)
        result += character == digit ? QString(u'0') : QString(u"\\" + QString(character));
    return result + u';' + prompt;
}
} // namespace

MaskedEdit::MaskedEdit(const QString &objectName, QWidget *parent)
    : SelectingEdit(objectName, parent) {
    setAccessibleName(objectName);
}

void MaskedEdit::setMask(const QString &mask) {
    m_mask = mask;
    setInputMask({});
    clear();
    delete validator();
    setValidator(mask.isEmpty() ? nullptr : new AsciiDigits(mask, this));
    setInputMask(toolkitMask(mask));
}

// QLineEdit would move the digits after a prompt forward, so each digit is inserted at its own position.
void MaskedEdit::setText(const QString &text) {
    if (m_mask.isEmpty() || text.isEmpty()) {
        QLineEdit::setText(text);
        return;
    }
    clear();
    for (qsizetype at = 0; at < m_mask.size() && at < text.size(); ++at) {
        if (m_mask[at] != digit || !isDigit(text[at]))
            continue;
        setCursorPosition(int(at));
        insert(text[at]);
    }
    setCursorPosition(0);
}

void MaskedEdit::focusInEvent(QFocusEvent *event) {
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        QLineEdit::focusInEvent(event);
    else
        SelectingEdit::focusInEvent(event);
}

void MaskedEdit::focusOutEvent(QFocusEvent *event) {
    SelectingEdit::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (m_leaving || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
        reason == Qt::ActiveWindowFocusReason)
        return;
    const QPointer<MaskedEdit> self(this);
    m_leaving = true;
    Q_EMIT left();
    if (self)
        m_leaving = false;
}

} // namespace widgets
