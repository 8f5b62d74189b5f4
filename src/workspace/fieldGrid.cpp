#include "workspace/fieldGrid.h"
#include <array>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

constexpr quint32 descriptionColour = 12632256; // grey
constexpr auto fieldColumnTwips = std::to_array<int>({0, 2000, 450, 2000, 4600});
constexpr auto listColumnTwips = std::to_array<int>({0, 2190, 0});

template <size_t Columns>
void formatColumns(platform::FlexGrid &grid, const std::array<int, Columns> &twips) {
    for (int column = 0; column < int(Columns); ++column) {
        grid.setColumnTwips(column, twips[size_t(column)]);
        grid.setColumnAlignment(column, Qt::AlignLeft | Qt::AlignVCenter);
    }
}

} // namespace

marc::FieldRow fieldRow(const platform::FlexGrid &grid, int row) {
    return {grid.text(row, NumberColumn), grid.text(row, FieldLabelColumn), grid.text(row, IdentifierColumn),
            grid.text(row, SubfieldLabelColumn), grid.text(row, ValueColumn)};
}

void setFieldRow(platform::FlexGrid &grid, int row, const marc::FieldRow &content) {
    grid.setText(row, NumberColumn, content.number);
    grid.setText(row, FieldLabelColumn, content.fieldLabel);
    grid.setText(row, IdentifierColumn, content.identifier);
    grid.setText(row, SubfieldLabelColumn, content.subfieldLabel);
    grid.setText(row, ValueColumn, content.value);
}

marc::FieldRows fieldRows(const platform::FlexGrid &grid) {
    marc::FieldRows rows;
    rows.reserve(grid.rows());
    for (int row = 1; row < grid.rows(); ++row)
        rows.append(fieldRow(grid, row));
    return rows;
}

void showFieldRows(platform::FlexGrid &grid, const marc::FieldRows &rows) {
    grid.setRows(1 + int(rows.size()));
    for (int i = 0; i < rows.size(); ++i)
        setFieldRow(grid, i + 1, rows[i]);
}

void formatFieldGrid(platform::FlexGrid &grid) {
    grid.setFormat(u"行数|^字段说明|标识符|^子字段说明|^字段内容"_s);
    formatColumns(grid, fieldColumnTwips);
    for (int row = 1; row < grid.rows(); ++row) {
        for (const int column : {FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn})
            grid.setCellBackground(row, column, descriptionColour);
    }
    grid.setRow(1);
}

void formatRecordList(platform::FlexGrid &grid) {
    formatColumns(grid, listColumnTwips);
}

} // namespace workspace
