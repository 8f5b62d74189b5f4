// Errands that several scenes of the tour have. Rows of a grid count from 1.
#pragma once

#include "tour/tourDriver.h"
#include "workspace/windows/draftBar.h"
#include "workspace/windows/frmDaoru.h"
#include "workspace/windows/workspaceParts.h"
#include "workspace/windows/workspaceRoom.h"

namespace tour {

inline constexpr QStringView closeQuestion = u"确实要退出吗？";
inline constexpr QStringView exportTitle = u"导出书库数据为marc格式";

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

QString pathOf(const QString &file); // of a sample, or of a file beside the samples
// Waits for the file dialog with that title, takes its picture when it has a name, types the path and closes it.
void enterFile(TourDriver &driver, const QString &title, const QString &path, const QString &picture = {});
// How many records the system's own reader finds in a file; -1 where there is no file.
int recordsIn(const QString &path);

// In frmSelectMFile: types the path of a sample file and opens the workspace on it.
void choose(TourDriver &driver, const QString &file);
// From the main window to the workspace on a sample file.
void openSample(TourDriver &driver, const QString &file);
// Closes the workspace, with its question; frmSelectMFile stands behind it, which the other closes too.
void closeWorkspace(TourDriver &driver);
void backToMain(TourDriver &driver);

// The workspace in front; only inside look().
workspace::frmDaoru *desk();
// The row of the first such field or, with an identifier ("$a"), of its subfield; 0 where there is none.
int rowOf(TourDriver &driver, const QString &tag, const QString &identifier = {});
void goTo(TourDriver &driver, int row);
// Waits until the editor is open, has the keyboard and lies exactly over that cell.
bool waitForEditor(TourDriver &driver, const QString &editor, int row, int column);
// Opens the editor of the row's content.
void openContent(TourDriver &driver, int row);
// Opens it, types that instead of what was there, and takes it over.
void retype(TourDriver &driver, int row, const QString &text);
void waitUntilIdle(TourDriver &driver); // no editor open, the grid has the keyboard

} // namespace tour
