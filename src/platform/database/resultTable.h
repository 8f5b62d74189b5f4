// The whole result of a query, held compactly: one text store and one offset a cell, no object per cell. A NULL reads
// as an empty text. Columns are found by name without regard to case.
#pragma once

#include "platform/tableSource.h"
#include <QStringList>
#include <optional>
#include <vector>

namespace platform {

class ResultTable final : public TableSource {
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
    QStringList m_names;
    std::vector<char16_t> m_text;
    std::vector<quint64> m_ends; // end of each cell's text; the top bit marks a NULL
};

} // namespace platform
