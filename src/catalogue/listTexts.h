// The counters and progress texts of the list windows.
#pragma once

#include <QString>

namespace catalogue {

inline constexpr QStringView loadingText = u"正在加载数据，请稍候................";
inline constexpr QStringView deletingText = u"正在删除，请稍候................";
inline constexpr QStringView leavingText = u"正在退出，请稍候................";
inline constexpr QStringView noRowsToExport = u"要导出的记录数：0"; // longer than the other counters on purpose

// Returns the counter of a list with `dataRows` data rows.
QString countText(int dataRows);

// Returns the progress of an export, `row` of `lastRow`, both counted from 1, with the percentage rounded down.
QString progressText(int row, int lastRow);

} // namespace catalogue
