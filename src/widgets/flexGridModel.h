// The model of a flexible grid: heading texts, and data rows that are either its own cells or those of a bound source,
// which are never copied. Rows and columns count from 0; data rows do not include the heading. Reading a cell outside
// the model returns an empty text; writing there does nothing. dataRows() returns the actual number of rows. The view
// is notified of new rows of a source at most once per frame, so rowCount() may be smaller until announce() or the next
// frame.
//
// A view has positions: those of the shown rows, which are all rows unless showOnly() filters them. Indexes of the
// model count positions, everything else counts rows.
#pragma once

#include "platform/shownRows.h"
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
    // In a bound model, adds empty rows after those of the source; rows that the source gains replace them.
    void setDataRows(int count);
    QString text(int row, int column) const;
    void setText(int row, int column, const QString &text);
    void clear(); // empties all cells and backgrounds and unbinds; keeps the number of rows
    void bind(std::shared_ptr<const platform::TableSource> source); // removes all cells and backgrounds
    void sourceHasGrown();
    void sourceInsertedRow(int row); // these are called after the source has changed; an unbound model ignores them
    void sourceRemovedRow(int row);
    void sourceChanged(int row, int column);
    void announce(); // reports all rows to the view at once

    // Shows only these rows and the kept one; see ShownRows. A bound model with a filter gains and loses rows at its
    // end only. clear() and bind() end the filter.
    void showOnly(std::optional<std::vector<int>> rows);
    void keep(int row);
    const platform::ShownRows &shown() const { return m_shown; }
    int shownCount() const { return m_shown.count(dataRows()); }

    QString heading(int column) const;
    void setHeading(int column, const QString &text);
    void setHeadingAlignment(int column, Qt::Alignment alignment);
    void setColumnAlignment(int column, Qt::Alignment alignment);
    void setColumnShown(int column, bool shown); // for the text that a screen reader reads of a row

    void setBackground(int row, int column, quint32 colour);
    std::optional<quint32> background(int row, int column) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Column {
        QString heading;
        bool shown = true;
        Qt::Alignment headingAlignment = Qt::AlignLeft | Qt::AlignVCenter;
        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    };
    struct Cell {
        std::optional<QString> text;
        std::optional<quint32> background;
    };
    using Row = std::vector<Cell>; // ends with the last cell that was written

    QString rowText(int row) const;
    bool holds(int row, int column) const;
    const Cell *find(int row, int column) const;
    Cell &touch(int row, int column);
    void changed(int row, int column);
    void moveOverrides(int from, int by);

    std::vector<Column> m_columns;
    std::vector<std::unique_ptr<Row>> m_rows; // own cells; null for a row that was never written
    std::shared_ptr<const platform::TableSource> m_source;
    std::unordered_map<int, Row> m_overrides; // texts and backgrounds written over the source
    int m_leastRows = 0;                      // rows of a bound model, if the source has fewer
    platform::ShownRows m_shown;
    int m_announced = 0; // positions
    QTimer m_pace;
};

} // namespace widgets
