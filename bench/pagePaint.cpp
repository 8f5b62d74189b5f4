// Measures the painting of the grids: presses Page Down 100 times in a list of 200,000 titles and in a grid of 200,000
// rows with grey cells, and prints the milliseconds of one page. Usage: pagePaint [STYLE-OF-THE-TOOLKIT]
#include "platform/deskState.h"
#include "platform/tableSource.h"
#include "widgets/appearance.h"
#include "widgets/flexGrid.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsOfTable = 200000, pages = 100;

class Titles final : public platform::TableSource {
public:
    explicit Titles(int columns)
        : m_columns(columns) {}
    int rowCount() const override { return rowsOfTable; }
    int columnCount() const override { return m_columns; }
    QString text(int row, int column) const override { return u"第 %1 种书的题名与责任说明 %2"_s.arg(row).arg(column); }

private:
    int m_columns;
};

double pageMilliseconds(widgets::FlexGrid &grid) {
    grid.resize(900, 700);
    grid.show();
    if (!QTest::qWaitForWindowExposed(&grid))
        return 0;
    grid.setFocus();
    QElapsedTimer clock;
    clock.start();
    for (int page = 0; page < pages; ++page) {
        QTest::keyClick(&grid, Qt::Key_PageDown);
        grid.viewport()->repaint();
    }
    return double(clock.nsecsElapsed()) / 1e6 / pages;
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    const platform::DeskState state(QDir::tempPath());
    std::optional<widgets::Appearance> appearance;
    if (argc > 1)
        QApplication::setStyle(QString::fromLocal8Bit(argv[1]));
    else
        appearance.emplace(state);
    widgets::FlexGrid list(u"list"_s, 3, 0);
    list.bind(std::make_shared<Titles>(3));
    widgets::FlexGrid fields(u"fields"_s, 5, 1);
    fields.bind(std::make_shared<Titles>(5));
    for (int row = 1; row < 5000; ++row)
        for (const int column : {1, 2, 3})
            fields.setCellBackground(row, column, 12632256);
    std::printf("a page of the list %.2f ms, of the grid %.2f ms\n", pageMilliseconds(list), pageMilliseconds(fields));
    return 0;
}
