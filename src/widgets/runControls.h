// What a window shows and closes off while a long run goes on.
#pragma once

#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QLineEdit>
#include <QPointer>
#include <optional>

namespace widgets {

// A label that is hidden until a run and leaves its place free all the same.
PacedLabel *progressLabel(const QString &objectName, QWidget *window);

class RunControls {
public:
    // Puts up the hourglass on the window, disables and locks.
    void begin(QWidget *window, const QList<QWidget *> &disabled, const QList<QLineEdit *> &locked);
    // Gives all of it back, and the keyboard to where it was when the run began.
    void end();

private:
    QList<QWidget *> m_disabled;
    QList<QLineEdit *> m_locked;
    QPointer<QWidget> m_focused;
    std::optional<WaitCursor> m_waiting;
};

} // namespace widgets
