// What the list windows of the frame have in common: a grid that fills the window, its heading, the columns that follow
// its size, and the way rows come into it.
#pragma once

#include "catalogue/columnWidths.h"
#include "widgets/flexGrid.h"
#include "widgets/window.h"
#include <QLabel>
#include <memory>

namespace catalogue {

class ListWindow : public widgets::Window {
    Q_OBJECT
public:
    // `headings` as the grid takes them, separated by "|".
    ListWindow(const QString &objectName, const QString &caption, const QString &headings, QWidget *parent);

    // Sets the column widths; called on each change of the grid's size.
    virtual void gridFix() = 0;
    QSize sizeHint() const override; // the size it starts with

    widgets::FlexGrid *Grid1;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

    // The grid as designed: headings, one empty row, everything centred, the first row selected.
    void gridInit();
    // Binds the rows; where there are none the grid gets one empty row.
    void showRows(std::shared_ptr<const platform::TableSource> rows);
    // What follows on new rows: widths, alignment, the first row selected.
    void settleGrid();
    bool firstCellIsEmpty() const;
    int dataRows() const { return Grid1->rows() - 1; }
    GridRoom gridRoom() const;
    void setWidths(const QList<int> &twips);

private:
    QString m_headings;
};

} // namespace catalogue
