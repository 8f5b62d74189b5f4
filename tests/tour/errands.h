// Errands that several scenes of the tour have.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

inline constexpr QStringView closeQuestion = u"确实要退出吗？";

// One value of the tour's own database: the first column of the first row.
QString fromDatabase(TourDriver &driver, const QString &statement);

// In frmSelectMFile: types the path of a sample file and opens the workspace on it.
void choose(TourDriver &driver, const QString &file);
// From the main window to the workspace on a sample file.
void openSample(TourDriver &driver, const QString &file);
// Closes the workspace, with its question; frmSelectMFile stands behind it.
void closeWorkspace(TourDriver &driver);

} // namespace tour
