// The flexible grid: cells of text addressed by row and column, with fixed heading rows, as the windows' event
// procedures think of it. Rows count from 0 and include the fixed ones. It holds its own cells, or shows a bound
// TableSource without copying it: a million rows cost no object each. Only what the user does is reported by signals;
// changes made by the program are not.
#pragma once

#include "platform/tableSource.h"
#include <QColor>
#include <QTableView>
#include <memory>

namespace platform {

class FlexGridModel;

class FlexGrid : public QTableView {
    Q_OBJECT
public:
    FlexGrid(const QString &objectName, int columns, int fixedRows, QWidget *parent = nullptr);
    ~FlexGrid() override;

    // "行数|^字段说明|标识符": the heading texts, "^" in front of a centred one.
    void setFormat(const QString &format);

    int rows() const;        // fixed rows included
    void setRows(int count); // new rows are empty; never below the fixed rows
    int columns() const;
    QString text(int row, int column) const;
    void setText(int row, int column, const QString &text); // of a bound grid: overrides the bound cell
    void insertRow(int row);                                // an empty row in front of `row`
    void removeRow(int row);
    void clear(); // empties all cells and backgrounds, unbinds; rows stay as many

    // The current cell and the other end of the selected rows; setRow() selects that row alone and scrolls to it.
    int row() const;
    int column() const;
    void setRow(int row);
    void setColumn(int column);
    int rowSel() const;
    void setRowSel(int row);

    // Backgrounds are 24-bit numbers with red in the low byte; the text colour on them stays legible.
    void setCellBackground(int row, int column, quint32 colour);
    std::optional<quint32> cellBackground(int row, int column) const;
    // A background for all data rows of a column that have none of their own.
    void setColumnBackground(int column, quint32 colour);

    void setColumnTwips(int column, int twips); // 0 hides the column; it still holds its texts
    int columnTwips(int column) const;
    void setHeadingTwips(int twips); // height of the heading row
    void setColumnAlignment(int column, Qt::Alignment alignment);
    void setHeadingAlignment(Qt::Alignment alignment);

    // Shows the source's rows behind the fixed ones; the grid keeps the source alive. bind(nullptr) unbinds.
    void bind(std::shared_ptr<const TableSource> source);
    // The bound source has grown at its end; the view is told at screen pace, once a frame at most.
    void sourceHasGrown();

    // The place of a cell in the coordinates of the grid's parent, where an editor can be laid over it.
    QRect cellRect(int row, int column) const;

Q_SIGNALS:
    void leaveCell();          // before another row becomes current by the user's doing; row() is still the old one
    void enterCell();          // after it; row() is the new one
    void gridClicked();        // a press and release of any button on a cell
    void rightPressed();       // right button down; the current row does not move
    void menuKeyPressed();     // the menu key, for the current row
    void gridActivated();      // Enter or a double click
    void keyReleased(int key); // Qt::Key of a key released on the grid

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    FlexGridModel *m_model;
};

} // namespace platform
