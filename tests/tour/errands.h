// Errands that several scenes of the tour have.
#pragma once

#include "tour/tourDriver.h"

namespace tour {

inline constexpr QStringView closeQuestion = u"确实要退出吗？";

// One value of the tour's own database: the first column of the first row.
QString fromDatabase(TourDriver &driver, const QString &statement);

// Runs a statement that gives no rows.
void changeDatabase(TourDriver &driver, const QString &statement);

// Makes a catalogue large enough for an export to be met in the middle.
void enlargeCatalogue(TourDriver &driver);
void shrinkCatalogue(TourDriver &driver); // back to what it was

// Gives the keyboard to a control, as soon as it is there.
void giveFocus(TourDriver &driver, const QString &name);

// Puts the text where the keyboard is, from the clipboard: keys alone give no Chinese.
void paste(TourDriver &driver, const QString &text);

// Waits for the file dialog with that title, takes its picture when it has a name, types the name and closes it.
void enterFile(TourDriver &driver, const QString &title, const QString &path, const QString &picture = {});
// How many records the system's own reader finds in a file; -1 where there is no file.
int recordsIn(const QString &path);

// In frmSelectMFile: types the path of a sample file and opens the workspace on it.
void choose(TourDriver &driver, const QString &file);
// From the main window to the workspace on a sample file.
void openSample(TourDriver &driver, const QString &file);
// Closes the workspace, with its question; frmSelectMFile stands behind it.
void closeWorkspace(TourDriver &driver);

} // namespace tour
