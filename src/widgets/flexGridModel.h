// What a flexible grid holds: heading texts, and data rows that are its own cells or a bound source's, the latter never
// copied. Rows and columns count from 0 and data rows leave the heading out. Reads outside give empty texts and writes
// outside do nothing. The true number of rows is dataRows(); the view is told of a source's growth at screen pace, so
// rowCount() may lag behind until announce() or the next frame.
#pragma once

#include "platform/tableSource.h"
#include <QAbstractTableModel>
#include <QTimer>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace widgets {

class FlexGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    FlexGridModel(int columns, QObject *parent);

    int dataRows() const;
    void setDataRows(int count); // of a bound model: empty rows behind the source's, which its growth takes up
    QString text(int row, int column) const;
    void setText(int row, int column, const QString &text);
    void clear(); // empties all cells and backgrounds, unbinds; rows stay as many
    void bind(std::shared_ptr<const platform::TableSource> source); // drops all cells and backgrounds
    void sourceHasGrown();
    void sourceInsertedRow(int row); // told behind it, as all that became of the source; an unbound model takes no heed
    void sourceRemovedRow(int row);
    void sourceChanged(int row, int column);
    void announce(); // tells the view of all rows at once

    QString heading(int column) const;
    void setHeading(int column, const QString &text);
    void setHeadingAlignment(int column, Qt::Alignment alignment);
    void setColumnAlignment(int column, Qt::Alignment alignment);

    void setBackground(int row, int column, quint32 colour);
    std::optional<quint32> background(int row, int column) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Column {
        QString heading;
        Qt::Alignment headingAlignment = Qt::AlignLeft | Qt::AlignVCenter;
        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    };
    struct Cell {
        std::optional<QString> text;
        std::optional<quint32> background;
    };
    using Row = std::vector<Cell>; // as long as the last cell that was written

    bool holds(int row, int column) const;
    const Cell *find(int row, int column) const;
    Cell &touch(int row, int column);
    void changed(int row, int column);
    void moveOverrides(int from, int by);

    std::vector<Column> m_columns;
    std::vector<std::unique_ptr<Row>> m_rows; // own cells; null where a row was never written
    std::shared_ptr<const platform::TableSource> m_source;
    std::unordered_map<int, Row> m_overrides; // what was written over the source
    int m_leastRows = 0;                      // of a bound model
    int m_announced = 0;
    QTimer m_pace;
};

} // namespace widgets
