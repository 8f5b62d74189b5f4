// A small table of texts that are made once.
#pragma once

#include "platform/tableSource.h"
#include <QStringList>
#include <vector>

namespace batch {

class TextRows final : public platform::TableSource {
public:
    explicit TextRows(int columns)
        : m_columns(columns) {}

    void add(QStringList cells) { m_rows.push_back(std::move(cells)); } // one cell per column

    int rowCount() const override { return int(m_rows.size()); }
    int columnCount() const override { return m_columns; }
    QString text(int row, int column) const override { return m_rows.at(size_t(row)).value(column); }

private:
    int m_columns;
    std::vector<QStringList> m_rows;
};

} // namespace batch
