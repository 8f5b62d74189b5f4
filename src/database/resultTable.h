// The whole result of a query, held compactly: texts behind each other in large blocks and one offset a cell, no object
// per cell, nothing copied as it grows. A NULL reads as an empty text. Columns are found by name without regard to
// case.
#pragma once

#include "platform/tableSource.h"
#include <QStringList>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace database {

class ResultTable final : public platform::TableSource {
public:
    explicit ResultTable(QStringList columnNames);

    int rowCount() const override;
    int columnCount() const override { return int(m_names.size()); }
    QString text(int row, int column) const override;

    const QStringList &columnNames() const { return m_names; }
    // The first column of that name.
    std::optional<int> column(QStringView name) const;
    bool isNull(int row, int column) const;

    // Appends the next cell, in row order. Used by whoever fills the table.
    void append(QStringView text);
    void appendNull();

private:
    QStringView cell(int row, int column) const;

    QStringList m_names;
    std::vector<std::u16string> m_blocks; // none ever grows beyond what it reserved
    std::deque<quint64> m_cells;          // start of each cell's text: block << 32 | offset; the top bit marks a NULL
};

} // namespace database
