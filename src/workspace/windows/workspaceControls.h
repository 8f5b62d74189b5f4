// The controls of the workspace as they stand in its design: names, captions, hints.
#pragma once

#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include <array>

namespace workspace {

std::array<widgets::Button *, 7> commandButtons(QWidget *parent); // cmdclick
// A number beside its label, as large as any count of records.
widgets::PacedLabel *numberBox(const QString &name, const QString &meaning, QWidget *parent);

} // namespace workspace
