// Actions that several scenes of the tour use. Rows of a grid count from 1.
#pragma once

#include "tour/tourDriver.h"
#include "widgets/button.h"
#include "workspace/windows/draftBar.h"
#include "workspace/windows/frmDaoru.h"
#include "workspace/windows/workspaceParts.h"
#include "workspace/windows/workspaceRoom.h"

namespace tour {

inline constexpr QStringView closeQuestion = u"确实要退出吗？";
inline constexpr QStringView exportTitle = u"导出书库数据为marc格式";

// Returns one value from the tour's database: the first column of the first row.
QString fromDatabase(TourDriver &driver, const QString &statement);
// Runs a statement that returns no rows.
void changeDatabase(TourDriver &driver, const QString &statement);
// Enlarges the catalogue so that an export can be interrupted in its middle.
void enlargeCatalogue(TourDriver &driver);
void shrinkCatalogue(TourDriver &driver); // restores the original size

// Gives the keyboard focus to a control as soon as it exists.
void giveFocus(TourDriver &driver, const QString &name);
// Pastes the text at the keyboard focus, because key presses alone cannot enter Chinese.
void paste(TourDriver &driver, const QString &text);

QString pathOf(const QString &file); // of a sample, or of a file in the folder of the samples
// Waits for the file dialog with that title, takes a picture if it has a name, types the path and closes the dialog.
void enterFile(TourDriver &driver, const QString &title, const QString &path, const QString &picture = {});
// Returns how many records the program's own reader finds in a file, or -1 if the file does not exist.
int recordsIn(const QString &path);

// In frmSelectMFile: types the path of a sample file and opens the workspace on it.
void choose(TourDriver &driver, const QString &file);
// Opens the workspace on a sample file, starting from the main window.
void openSample(TourDriver &driver, const QString &file);
// closeWorkspace() closes the workspace, with its question, and leaves frmSelectMFile; backToMain() closes both.
void closeWorkspace(TourDriver &driver);
void backToMain(TourDriver &driver);

// Returns the workspace in front. Only inside look().
workspace::frmDaoru *desk();
// Returns the row of the first field with this tag or, with an identifier ("$a"), of its subfield; 0 if there is none.
int rowOf(TourDriver &driver, const QString &tag, const QString &identifier = {});
void goTo(TourDriver &driver, int row);
// Waits until the editor is open, has the keyboard focus and covers exactly that cell.
bool waitForEditor(TourDriver &driver, const QString &editor, int row, int column);
// Opens the editor for the content of the row.
void openContent(TourDriver &driver, int row);
// Opens that editor, replaces its text and commits it.
void retype(TourDriver &driver, int row, const QString &text);
void waitUntilIdle(TourDriver &driver); // no editor is open and the grid has the keyboard focus

} // namespace tour
