#include "tasks/windows/differencePaint.h"
#include "support/qtPrinters.h"
#include "widgets/styleTokens.h"

using namespace tasks;

// The difference is visible in a cell that is too narrow for the text; the line through it or below it is as wide.
TEST(DifferenceDelegate, ShowsTheDifferenceInANarrowCell) {
    constexpr int before = 1, after = 2;
    QStandardItemModel model(0, 3);
    const auto add = [&](const QString &shown, const QString &prefix) {
        model.appendRow(
            {new QStandardItem(shown), new QStandardItem(prefix + u"iiii一"), new QStandardItem(prefix + u"jjjj一")});
    };
    const auto rows = std::to_array<std::pair<int, int>>({{0, 0}, {6, 6}, {7, 7}, {8, 8}, {9, 9}, {40, 9}});
    for (const auto &[prefix, shown] : rows)
        add(u"✓"_s, QString(prefix, u'字'));
    add({}, u"字"_s); // left out
    QTableView view;
    view.setModel(&model);
    view.setItemDelegate(new DifferenceDelegate(before, after, &view));
    const int character = view.fontMetrics().horizontalAdvance(u'字');
    view.resize(80 * character, 40 * character);
    for (const int column : {before, after})
        view.setColumnWidth(column, 15 * character);
    const QImage picture = view.viewport()->grab().toImage();
    for (const int column : {before, after}) {
        const widgets::SurfaceLook &look =
            widgets::look(column == before ? widgets::Surface::Error : widgets::Surface::Done);
        const QColor fill = widgets::colour(look.fill, view.palette()), ink = widgets::colour(look.ink, view.palette());
        const auto placeOf = [&](int row) {
            QRect place;
            const QRect cell = view.visualRect(model.index(row, column));
            for (int y = cell.top(); y <= cell.bottom(); ++y)
                for (int x = cell.left(); x <= cell.right(); ++x)
                    if (picture.pixelColor(x, y) == fill)
                        place |= QRect(x, y, 1, 1);
            return place;
        };
        const QRect first = placeOf(0);
        int line = -1;
        for (int y = first.top(); y <= first.bottom(); ++y) {
            int pixels = 0;
            for (int x = first.left(); x <= first.right(); ++x)
                pixels += picture.pixelColor(x, y) == ink;
            if (pixels > first.width() * 9 / 10)
                line = y;
        }
        ASSERT_GT(line, 0) << column;
        EXPECT_EQ(line > first.center().y() + first.height() / 5, column == after) << "through the text or below it";
        for (size_t row = 0; row < rows.size(); ++row)
            EXPECT_NEAR(placeOf(int(row)).left(), first.left() + rows[row].second * character, character / 2)
                << column << row;
        EXPECT_TRUE(placeOf(int(rows.size())).isEmpty()) << "left out";
    }
}

// The width of a part is a whole number of dots, that of its letters is not.
TEST(DifferenceDelegate, LeavesNothingOutInAWideCell) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"cell.pdf"_s), after = u"7-111-83133-0CNY19.00年27册i1j2l3f4t5r6"_s;
    QStandardItemModel model(1, 3);
    model.setData(model.index(0, 0), u"✓"_s);
    model.setData(model.index(0, 1), u"711183133019.00年２７册ijlftr"_s);
    model.setData(model.index(0, 2), after);
    {
        QPdfWriter writer(file);
        QPainter painter(&writer);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, writer.width(), 1000);
        DifferenceDelegate(1, 2, nullptr).paint(&painter, option, model.index(0, 2));
    }
    QProcess reader;
    reader.start(u"pdftotext"_s, {file, u"-"_s});
    ASSERT_TRUE(reader.waitForFinished());
    EXPECT_EQ(QString::fromUtf8(reader.readAllStandardOutput()).simplified().remove(u' '), after);
}
