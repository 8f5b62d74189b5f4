// Shows in a window that a long run is active, and disables its controls.
#pragma once

#include "widgets/pacedLabel.h"
#include "widgets/waitCursor.h"
#include <QLineEdit>
#include <QPointer>
#include <optional>

namespace widgets {

// Creates a label that is hidden until a run and keeps its space while hidden.
PacedLabel *progressLabel(const QString &objectName, QWidget *window);

class RunControls {
public:
    // Shows the wait cursor on the window, disables the controls of `disabled` and makes those of `locked` read-only.
    void begin(QWidget *window, const QList<QWidget *> &disabled, const QList<QLineEdit *> &locked);
    // Reverts what begin() did and returns the focus to the control that had it.
    void end();

private:
    QList<QWidget *> m_disabled;
    QList<QLineEdit *> m_locked;
    QPointer<QWidget> m_focused;
    std::optional<WaitCursor> m_waiting;
};

} // namespace widgets
