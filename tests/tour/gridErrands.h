// Errands in the field grid of the workspace, by the keyboard where nothing else is said. Rows count from 1.
#pragma once

#include "tour/tourDriver.h"
#include "workspace/windows/frmDaoru.h"

namespace tour {

inline constexpr QStringView editQuestion = u"本条记录已经改变,是否确定暂时改变该记录?\r\n"
                                            u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)";

// The workspace in front; only inside look().
workspace::frmDaoru *desk();

// The row of the first such field or, with an identifier ("$a"), of its subfield; 0 where there is none.
int rowOf(TourDriver &driver, const QString &tag, const QString &identifier = {});
QString value(TourDriver &driver, const QString &tag, const QString &identifier);
void goTo(TourDriver &driver, int row);

// Waits until the editor is open, has the keyboard and lies exactly over that cell.
bool waitForEditor(TourDriver &driver, const QString &editor, int row, int column);
// Opens the editor of the row's content.
void openContent(TourDriver &driver, int row);
// Opens it, types that instead of what was there, and takes it over.
void retype(TourDriver &driver, int row, const QString &text);
void waitUntilIdle(TourDriver &driver); // no editor open, the grid has the keyboard

void setClipboard(TourDriver &driver, const QString &text);
QString clipboard(TourDriver &driver);

// The popup of the current row by the menu key, and the choice of an item.
bool openPopup(TourDriver &driver);
void choosePopup(TourDriver &driver, const QString &item);

} // namespace tour
