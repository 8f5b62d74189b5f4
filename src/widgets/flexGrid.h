// A grid of text cells addressed by row and column, with fixed heading rows. Rows count from 0 and include the fixed
// rows. The grid has its own cells, or shows a bound TableSource without copying it, so that even a million rows need
// no object each. Signals report only actions of the user, never changes made by the program.
#pragma once

#include "platform/tableSource.h"
#include <QBasicTimer>
#include <QMap>
#include <QTableView>
#include <memory>
#include <optional>

namespace widgets {

class FlexGridColumns;
class FlexGridModel;

class FlexGrid : public QTableView {
    Q_OBJECT
public:
    FlexGrid(const QString &objectName, int columns, int fixedRows, QWidget *parent = nullptr);
    ~FlexGrid() override;

    // Sets the heading texts from a format such as "行数|^字段说明|标识符"; "^" centres a heading.
    void setFormat(const QString &format);

    int rows() const;        // including the fixed rows
    void setRows(int count); // new rows are empty; the fixed rows always remain
    int columns() const;
    QString text(int row, int column) const;
    void setText(int row, int column, const QString &text); // in a bound grid, overrides the bound cell
    void clear(); // empties all data cells and backgrounds and unbinds; keeps row count, headings and widths

    // The current cell, and the other end of the selected rows. setRow() selects only that row and scrolls to it. Row
    // numbers do not change when rows are inserted or removed. Without data rows row() is 0.
    int row() const;
    int column() const;
    void setRow(int row);
    void setColumn(int column);
    int rowSel() const;
    void setRowSel(int row);
    // Acts like a click of the user on the row, including all signals.
    void clickRow(int row);
    // Scroll no further than needed to make the row or cell visible; the current cell does not change.
    void scrollToRow(int row);
    void scrollToCell(int row, int column);

    // Shows only these rows, in ascending order, and the current row; std::nullopt shows all. Row numbers do not
    // change. For a bound grid whose source gains rows at its end only; bind() and clear() show all rows again.
    void showOnly(std::optional<std::vector<int>> rows);
    // Returns the row that is `steps` shown rows after `from`, or -1 beyond the first and the last one.
    int shownRow(int from, int steps) const;

    // Backgrounds are 24-bit numbers with red in the low byte. The text colour is chosen to be legible on them.
    void setCellBackground(int row, int column, quint32 colour);
    std::optional<quint32> cellBackground(int row, int column) const;

    // Marks the heading of the column by which the rows are sorted; -1 marks none.
    void showOrder(int column, Qt::SortOrder order);

    // Widths in twips refer to the font that the windows were designed with, and grow with a wider font. A width of 0
    // hides the column, which keeps its texts. A column is never narrower than its heading, and a width set by the user
    // is kept.
    void setColumnTwips(int column, int twips);
    int columnTwips(int column) const;
    void setHeadingTwips(int twips); // height of the heading row, at least the height of its font; 0 hides the row
    int toTwips(int pixels) const;   // at the resolution of the screen and with the font of the grid, rounded
    int toPixels(int twips) const;
    // From then on the column takes the width that the other columns leave, and at least the width that was set.
    void setStretchColumn(int column);
    // The widths set by the user, in pixels, by column. They replace the widths set by the program.
    QMap<int, int> drawnWidths() const;
    void setDrawnWidths(const QMap<int, int> &widths);
    void setColumnAlignment(int column, Qt::Alignment alignment);
    void setHeadingAlignment(Qt::Alignment alignment);

    // Shows the rows of the source after the fixed rows and removes all other rows. The grid shares ownership of the
    // source. setRows() can then add empty rows after those of the source; rows that the source gains replace them.
    // bind(nullptr) unbinds and leaves no data rows.
    void bind(std::shared_ptr<const platform::TableSource> source);
    // Call these after the bound source has changed. Rows that the source gains at its end are shown at most once per
    // frame. When a row is inserted or removed, the backgrounds and texts set for the cells after it move with their
    // cells.
    void sourceHasGrown();
    void sourceInsertedRow(int row); // before the previous `row`
    void sourceRemovedRow(int row);
    void sourceChanged(int row, int column);

    // Returns the visible part of a cell in the coordinates of the grid's parent, for placing an editor over it, or the
    // whole cell if no part of it is visible.
    QRect cellRect(int row, int column) const;

Q_SIGNALS:
    void leaveCell();      // before the user changes the current row; row() is the old row
    void enterCell();      // after the user changed the current row; row() is the new row
    void gridClicked();    // any button was pressed and released, also below the last row
    void rightPressed();   // right button pressed anywhere; the current row does not change
    void menuKeyPressed(); // the menu key, for the current row
    void gridActivated();  // Enter, or a double click anywhere
    void headingClicked(int column);
    void keyReleased(int key); // a Qt::Key released while the grid had the focus

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int nearestRow(int row) const;
    int nearestShown(int from, int steps) const;
    int positionOf(int row) const;
    int rowAtPosition(int position) const;
    int shownColumn(int wanted) const;
    void select(int row, int rowSel, int column);
    void showSelection();
    void fitHeights();
    void copySelection() const;

    void moveByUser(int row, int column);
    void extendByUser(int row);
    void moveColumnByUser(int step, int most);
    std::optional<int> rowOfKey(const QKeyEvent *event) const;
    void settlePress();

    FlexGridModel *m_model;
    int m_fixedRows;
    int m_row = 0; // may be invalid after rows were removed; row() returns the nearest row
    int m_rowSel = 0;
    int m_column = 0;
    int m_headingTwips = -1; // -1: as high as the font needs
    std::unique_ptr<FlexGridColumns> m_columns;
    bool m_moving = false; // between leaveCell and enterCell
    Qt::MouseButton m_pressed = Qt::NoButton;
    bool m_drags = false;    // the press was on a row, so moving the mouse extends the selection
    int m_dragDirection = 0; // while dragging outside the viewport: -1 up, 1 down
    QBasicTimer m_dragTimer;
};

} // namespace widgets
