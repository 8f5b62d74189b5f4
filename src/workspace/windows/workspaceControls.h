// Creates the controls of the workspace with their names, captions and hints.
#pragma once

#include "widgets/button.h"
#include "widgets/pacedLabel.h"
#include <QComboBox>
#include <array>

class QBoxLayout;

namespace workspace {

std::array<widgets::Button *, 7> commandButtons(QWidget *parent); // cmdclick
// Lays the buttons out in a row, of one width if there is space.
QBoxLayout *ofOneWidth(const std::array<widgets::Button *, 7> &buttons);
// Creates a box for a number next to its label, wide enough for 99,999,999 records.
widgets::PacedLabel *numberBox(const QString &name, const QString &meaning, QWidget *parent);

// Puts the box that filters the title list above it; the box never makes the list wider.
QWidget *listSide(QComboBox *filterBox, QWidget *list);

} // namespace workspace
