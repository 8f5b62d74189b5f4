#include "catalogue/listTexts.h"

namespace catalogue {

QString countText(int dataRows) {
    return u"记录数：" + QString::number(dataRows);
}

QString progressText(int row, int lastRow) {
    const qint64 percent = lastRow > 0 ? qint64(row) * 100 / lastRow : 100;
    return u"已经导出：" + QString::number(row) + u"(" + QString::number(percent) + u"%)";
}

} // namespace catalogue
