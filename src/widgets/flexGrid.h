// The flexible grid: cells of text addressed by row and column, with fixed heading rows, as the windows' event
// procedures think of it. Rows count from 0 and include the fixed ones. It holds its own cells, or shows a bound
// TableSource without copying it: a million rows cost no object each. Only what the user does is reported by signals;
// changes made by the program are not.
#pragma once

#include "platform/tableSource.h"
#include <QBasicTimer>
#include <QMap>
#include <QTableView>
#include <memory>
#include <optional>
#include <vector>

namespace widgets {

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
    void clear(); // empties all data cells and backgrounds, unbinds; rows stay as many, headings and widths stay

    // The current cell and the other end of the selected rows; setRow() selects that row alone and scrolls to it. The
    // numbers stay when rows are inserted or removed; without data rows row() is 0.
    int row() const;
    int column() const;
    void setRow(int row);
    void setColumn(int column);
    int rowSel() const;
    void setRowSel(int row);
    // As a click of the user on the row does it, with all that follows.
    void clickRow(int row);
    // Into sight, no further than needed; the current cell stays.
    void scrollToRow(int row);
    void scrollToCell(int row, int column);

    // Backgrounds are 24-bit numbers with red in the low byte; the text colour on them stays legible.
    void setCellBackground(int row, int column, quint32 colour);
    std::optional<quint32> cellBackground(int row, int column) const;

    // Twips are those of the face that the widths were chosen for; they grow with a wider one. 0 hides the column; it
    // still holds its texts. Never narrower than its heading; a width that the user has drawn stays.
    void setColumnTwips(int column, int twips);
    int columnTwips(int column) const;
    void setHeadingTwips(int twips); // height of the heading row; never lower than its font needs, 0 hides it
    int toTwips(int pixels) const;   // at the resolution of the grid's screen and its font, rounded
    int toPixels(int twips) const;
    // From now on that column takes the room that the others leave, and is never narrower than was set.
    void setStretchColumn(int column);
    // The widths that the user has drawn, in pixels, by column; they replace those that were set.
    QMap<int, int> drawnWidths() const;
    void setDrawnWidths(const QMap<int, int> &widths);
    void setColumnAlignment(int column, Qt::Alignment alignment);
    void setHeadingAlignment(Qt::Alignment alignment);

    // Shows the source's rows behind the fixed ones, in place of all rows that were there; the grid keeps the source
    // alive. setRows() then adds empty rows behind the source's, which the source's growth takes up.
    // bind(nullptr) unbinds and leaves no data rows.
    void bind(std::shared_ptr<const platform::TableSource> source);
    // What became of the bound source, told behind it. Growth at its end reaches the view at screen pace, once a frame
    // at most. With a row that came or went, the backgrounds and texts given to the cells behind it move along.
    void sourceHasGrown();
    void sourceInsertedRow(int row); // it stands in front of what was `row`
    void sourceRemovedRow(int row);
    void sourceChanged(int row, int column);

    // The place of a cell, as far as it is in sight, in the coordinates of the grid's parent, where an editor can be
    // laid over it. Of a cell out of sight: its whole place.
    QRect cellRect(int row, int column) const;

Q_SIGNALS:
    void leaveCell();          // before another row becomes current by the user's doing; row() is still the old one
    void enterCell();          // after it; row() is the new one
    void gridClicked();        // a press and release of any button, below the last row too
    void rightPressed();       // right button down, wherever; the current row does not move
    void menuKeyPressed();     // the menu key, for the current row
    void gridActivated();      // Enter or a double click, wherever
    void keyReleased(int key); // Qt::Key of a key released on the grid

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
    struct Width {
        int twips = -1;
        int pixels = -1; // what came of it; another width was drawn by the user
    };

    bool isDrawn(int column) const; // the user gave it its width
    double fontScale() const;
    void stretch();

    int nearestRow(int row) const;
    int shownColumn(int wanted) const;
    void select(int row, int rowSel, int column);
    void showSelection();
    void fitColumn(int column);
    void fitHeights();
    void copySelection() const;

    void moveByUser(int row, int column);
    void extendByUser(int row);
    void moveColumnByUser(int step, int most);
    std::optional<int> rowOfKey(const QKeyEvent *event) const;
    void settlePress();

    FlexGridModel *m_model;
    int m_fixedRows;
    int m_row = 0; // may lie outside after rows went; row() tells the nearest
    int m_rowSel = 0;
    int m_column = 0;
    int m_headingTwips = -1;     // as high as the font needs
    std::vector<Width> m_widths; // the columns' widths as they were set
    int m_stretched = -1;        // the column that takes what is left
    bool m_moving = false;       // between leaveCell and enterCell
    Qt::MouseButton m_pressed = Qt::NoButton;
    bool m_drags = false;    // the press was on a row, so that moving the mouse extends the selection
    int m_dragDirection = 0; // while the mouse drags outside: -1 up, 1 down
    QBasicTimer m_dragTimer;
};

} // namespace widgets
