// A grid in a window that logs its signals, each with the current row.
#pragma once

#include "support/qtPrinters.h"
#include "widgets/flexGrid.h"
#include <QTest>

struct FlexGridTest : testing::Test {
    FlexGridTest() {
        window.resize(420, 300);
        grid.setGeometry(10, 20, 400, 260);
        grid.setFormat(u"号|^题名|>标识|说明"_s);
        grid.setRows(7);
        for (int row = 1; row < 7; ++row)
            for (int column = 0; column < 4; ++column)
                grid.setText(row, column, QString::number(row * 10 + column));
        grid.setColumnTwips(0, 0);
        for (const auto &[signal, name] : {std::pair(&widgets::FlexGrid::leaveCell, u"leave"_s),
                                           {&widgets::FlexGrid::enterCell, u"enter"_s},
                                           {&widgets::FlexGrid::gridClicked, u"click"_s},
                                           {&widgets::FlexGrid::rightPressed, u"right"_s},
                                           {&widgets::FlexGrid::menuKeyPressed, u"menu"_s},
                                           {&widgets::FlexGrid::gridActivated, u"activated"_s}})
            QObject::connect(&grid, signal, [this, name = name] { note(name); });
        window.show();
    }
    void note(const QString &what) { log.append(what + QString::number(grid.row())); }
    QString taken() { return std::exchange(log, {}).join(u' '); }
    QString place() const {
        return QString::number(grid.row()) + u'-' + QString::number(grid.rowSel()) + u'/' +
               QString::number(grid.column());
    }
    QPoint at(int row, int column) { // in viewport coordinates
        return grid.viewport()->mapFrom(&window, grid.cellRect(row, column).center());
    }
    void press(Qt::MouseButton button, int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(grid.viewport(), button, modifiers, at(row, 1));
    }
    void release(Qt::MouseButton button, int row) { QTest::mouseRelease(grid.viewport(), button, {}, at(row, 1)); }

    QWidget window;
    widgets::FlexGrid grid{u"Grid1"_s, 4, 1, &window};
    QStringList log;
};
