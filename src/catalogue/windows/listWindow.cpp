#include "catalogue/windows/listWindow.h"
#include "widgets/twips.h"
#include <QEvent>
#include <QHeaderView>
#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

int columnsIn(const QString &headings) {
    return int(headings.count(u'|')) + 1;
}

} // namespace

ListWindow::ListWindow(const QString &objectName, const QString &caption, const QString &headings, QWidget *parent)
    : Window(objectName, caption, parent)
    , Grid1(new widgets::FlexGrid(u"Grid1"_s, columnsIn(headings), 1, this)) {
    Grid1->setAccessibleName(caption);
    Grid1->setRows(2);
    Grid1->setHeadingTwips(headingTwips);
    Grid1->setFormat(headings);
    Grid1->setHeadingAlignment(Qt::AlignCenter);
    for (int column = 0; column < Grid1->columns(); ++column)
        Grid1->setColumnAlignment(column, Qt::AlignCenter);
    Grid1->installEventFilter(this);
}

bool ListWindow::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Grid1 && event->type() == QEvent::Resize)
        gridFix();
    return Window::eventFilter(watched, event);
}

void ListWindow::gridInit() {
    showRows(nullptr);
}

void ListWindow::showRows(std::shared_ptr<const platform::TableSource> rows) {
    if (rows && rows->rowCount() > 0) {
        Grid1->bind(std::move(rows));
    } else {
        Grid1->clear();
        Grid1->setRows(2);
    }
    gridFix(); // the number of rows decides whether there is a scroll bar
    Grid1->setColumn(0);
}

bool ListWindow::firstCellIsEmpty() const {
    return Grid1->text(1, 0).isEmpty();
}

GridRoom ListWindow::gridRoom() const {
    const auto twips = [this](int pixels) { return Grid1->toTwips(pixels); };
    return {.width = twips(Grid1->width()),
            .height = twips(Grid1->height()),
            .rows = Grid1->rows(),
            .headingHeight = twips(Grid1->horizontalHeader()->height())};
}

void ListWindow::setWidths(const QList<int> &twips) {
    for (int column = 0; column < Grid1->columns(); ++column)
        Grid1->setColumnTwips(column, twips[column]);
}

QSize ListWindow::sizeHint() const {
    return {listWidthTwips * logicalDpiX() / widgets::twipsPerInch,
            listHeightTwips * logicalDpiY() / widgets::twipsPerInch};
}

} // namespace catalogue
