#include "workspace/windows/fieldGrid.h"
#include <QScrollBar>
#include <array>
#include <memory>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr quint32 descriptionColour = 12632256; // grey
constexpr auto widths = std::to_array<int>({0, 2000, 450, 2000, 4600});
constexpr int fixedRows = 1;

static_assert(std::reduce(widths.begin(), widths.end()) == FieldGrid::allTwips);

} // namespace

FieldGrid::FieldGrid(const QString &objectName, QWidget *parent)
    : FlexGrid(objectName, int(widths.size()), fixedRows, parent) {
    setFormat(u"行数|^字段说明|标识符|^子字段说明|^字段内容"_s);
    for (int column = 0; column < columns(); ++column) {
        setColumnTwips(column, widths[size_t(column)]);
        setColumnAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    }
    for (const QScrollBar *bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &FieldGrid::scrolled);
}

void FieldGrid::follow(std::shared_ptr<const EditedRecord> record) {
    m_record = std::move(record);
    connect(m_record.get(), &EditedRecord::shown, this, &FieldGrid::showAnew);
    connect(m_record.get(), &EditedRecord::rowInserted, this, &FieldGrid::sourceInsertedRow);
    connect(m_record.get(), &EditedRecord::rowRemoved, this, &FieldGrid::sourceRemovedRow);
    connect(m_record.get(), &EditedRecord::cellChanged, this, &FieldGrid::sourceChanged);
    showAnew();
}

void FieldGrid::showAnew() {
    bind(m_record); // makes row 1 current
    for (int row = fixedRows; row < rows(); ++row) {
        for (const int column : {FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn})
            setCellBackground(row, column, descriptionColour);
    }
    Q_EMIT rearranged();
}

QRect FieldGrid::rightHalf() const {
    QRect half = geometry();
    half.setLeft(half.left() + half.width() / 2);
    return half;
}

void FieldGrid::resizeEvent(QResizeEvent *event) {
    FlexGrid::resizeEvent(event);
    QMetaObject::invokeMethod(this, &FieldGrid::rearranged, Qt::QueuedConnection);
}

} // namespace workspace
