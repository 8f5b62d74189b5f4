// The counters and the progress text of the list windows.
#pragma once

#include <QString>

namespace catalogue {

inline constexpr QStringView loadingText = u"正在加载数据，请稍候................";
inline constexpr QStringView deletingText = u"正在删除，请稍候................";
inline constexpr QStringView leavingText = u"正在退出，请稍候................";
inline constexpr QStringView noRowsToExport = u"要导出的记录数：0"; // longer than the other counters, on purpose

// The counter of a list of so many data rows.
QString countText(int dataRows);

// How far an export is: `row` of `lastRow`, both from 1, with the whole part of the exact percentage.
QString progressText(int row, int lastRow);

} // namespace catalogue
