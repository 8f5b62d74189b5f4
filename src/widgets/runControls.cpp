#include "widgets/runControls.h"
#include "widgets/layout.h"

namespace widgets {

PacedLabel *progressLabel(const QString &objectName, QWidget *window) {
    auto *label = new PacedLabel(objectName, {}, window);
    keepPlace(label);
    label->hide();
    return label;
}

void RunControls::begin(QWidget *window, const QList<QWidget *> &disabled, const QList<QLineEdit *> &locked) {
    m_waiting.emplace(window);
    m_disabled = disabled;
    m_locked = locked;
    m_focused = window->focusWidget();
    for (QWidget *control : m_disabled)
        control->setEnabled(false);
    for (QLineEdit *box : m_locked)
        box->setReadOnly(true);
}

void RunControls::end() {
    m_waiting.reset();
    for (QWidget *control : m_disabled)
        control->setEnabled(true);
    for (QLineEdit *box : m_locked)
        box->setReadOnly(false);
    // Disabling the focused button moved the focus to the button that closes the window.
    if (m_focused)
        m_focused->setFocus();
}

} // namespace widgets
