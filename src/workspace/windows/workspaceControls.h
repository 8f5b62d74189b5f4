// The controls of the workspace as they stand in its design: names, captions, hints.
#pragma once

#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <QFrame>
#include <array>

namespace workspace {

std::array<widgets::Button *, 7> commandButtons(QWidget *parent); // cmdclick
// A number beside its label, as large as any count of records.
widgets::PacedLabel *numberBox(const QString &name, const QString &meaning, QWidget *parent);
QFrame *frameOf(const QString &name, QWidget *parent);
QLabel *label(const QString &name, const QString &text, QWidget *parent);

} // namespace workspace
