// Common behaviour of the list windows: a grid that fills the window, its headings, columns that follow its size, and
// showing rows in it.
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
    // `headings` are separated by "|".
    ListWindow(const QString &objectName, const QString &caption, const QString &headings, QWidget *parent);

    // Sets the column widths; called whenever the size of the grid changes.
    virtual void gridFix() = 0;
    QSize sizeHint() const override; // the initial size

    widgets::FlexGrid *Grid1;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

    // Resets the grid to one empty row.
    void gridInit();
    // Binds the rows, sets the column widths and selects the first row; without rows the grid gets one empty row.
    void showRows(std::shared_ptr<const platform::TableSource> rows);
    bool firstCellIsEmpty() const;
    int dataRows() const { return Grid1->rows() - 1; }
    GridRoom gridRoom() const;
    void setWidths(const QList<int> &twips);
};

} // namespace catalogue
