// A remark about a row of the current record, as the workspace shows it.
#pragma once

#include "widgets/stylePaint.h"
#include <QString>

namespace workspace {

struct RowRemark {
    int row = 0; // on the field grid; 0: about the record as a whole
    widgets::Mark mark = widgets::Mark::Error;
    QString words; // with the level, such as "错误：…"
};

} // namespace workspace
