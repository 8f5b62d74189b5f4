#include "tidy/windows/encodingBox.h"
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

namespace tidy {

EncodingBox::EncodingBox(const QString &objectName, QWidget *parent)
    : QComboBox(parent) {
    setObjectName(objectName);
    for (const EncodingRow &row : sourceEncodings) {
        const bool available = isAvailable(row.choice);
        addItem(row.caption + (available ? u""_s : u"（没有 YAZ 库，不能读）"_s));
        if (const auto *items = qobject_cast<QStandardItemModel *>(model()); items && !available)
            items->item(count() - 1)->setEnabled(false);
    }
}

SourceEncoding EncodingBox::encoding() const {
    return sourceEncodings.at(size_t(currentIndex())).choice;
}

} // namespace tidy
