// The painting of the style and of small parts, checked by the colours of pixels and their places in their widgets.
#include "support/qtPrinters.h"
#include "widgets/choiceList.h"
#include "widgets/clickLabel.h"
#include "widgets/deskStyle.h"
#include "widgets/flexGridColours.h"
#include "widgets/keyLine.h"
#include "widgets/layout.h"
#include "widgets/stylePaint.h"
#include <QTest>

using namespace widgets;

namespace {

const QColor red(255, 0, 0);

// Returns the rectangle around the pixels that have the colour.
QRect placeOf(const QColor &colour, const QImage &picture) {
    QRect place;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == colour)
                place |= QRect(x, y, 1, 1);
    return place;
}

QIcon redIcon() {
    QPixmap pixmap(16, 16);
    pixmap.fill(red);
    return pixmap;
}

TEST(PaintedParts, EachMarkFillsItsSquareInItsColour) {
    const QPalette palette = schemePalette(Scheme::Light);
    for (const auto &[mark, ink] : {std::pair(Mark::Error, Colour::ErrorInk),
                                    {Mark::Warning, Colour::WarningInk},
                                    {Mark::Hint, Colour::Accent}}) {
        QImage picture(60, 40, QImage::Format_ARGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        paintMark(&painter, picture.rect(), mark, palette);
        painter.end();
        const QRect place = placeOf(colour(ink, palette), picture);
        EXPECT_TRUE(QRect(10, 0, 40, 40).contains(place) && place.width() > 24 && place.height() > 24) << int(mark);
    }
}

TEST(PaintedParts, ButtonsAndHeadingsShowTheirIcons) {
    DeskStyle style;
    QPushButton button(redIcon(), u"名"_s);
    button.setStyle(&style);
    EXPECT_FALSE(placeOf(red, button.grab().toImage()).isEmpty());
    EXPECT_TRUE(button.testAttribute(Qt::WA_Hover)) << "it is painted when the pointer enters";
    QStandardItemModel model(1, 1);
    model.setHeaderData(0, Qt::Horizontal, redIcon(), Qt::DecorationRole);
    QHeaderView header(Qt::Horizontal);
    header.setStyle(&style);
    header.setModel(&model);
    EXPECT_FALSE(placeOf(red, header.grab().toImage()).isEmpty());
}

// The delegate of a grid of remarks, with a mark before or after the text.
struct Marking final : FlexGridDelegate {
    explicit Marking(bool atEnd)
        : end(atEnd) {}
    bool end;
    std::optional<CellMark> markOf(const QModelIndex &) const override { return CellMark{Mark::Error, end}; }
};

TEST(PaintedParts, AMarkIsNextToTheTextOfItsCell) {
    for (const bool atEnd : {false, true}) {
        QStandardItemModel model(1, 1);
        model.setData(model.index(0, 0), QString(200, u'█'));
        model.setData(model.index(0, 0), QBrush(Qt::white), Qt::BackgroundRole);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 200, 30);
        option.palette = schemePalette(Scheme::Light);
        option.state = QStyle::State_Enabled;
        QImage picture(200, 30, QImage::Format_ARGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        const Marking delegate(atEnd);
        delegate.paint(&painter, option, model.index(0, 0));
        painter.end();
        const QRect mark = placeOf(colour(Colour::ErrorInk, option.palette), picture);
        EXPECT_FALSE(mark.isEmpty());
        EXPECT_TRUE(atEnd ? mark.left() > 170 : mark.right() < 30) << mark.left() << ' ' << mark.right();
    }
}

TEST(PaintedParts, MenusHaveLowSeparatorsAndNarrowBarsAreNarrow) {
    DeskStyle style;
    QMenu menu;
    menu.setStyle(&style);
    QAction *entry = menu.addAction(u"打开"_s), *line = menu.addSeparator();
    menu.addAction(u"退出"_s);
    EXPECT_LT(menu.actionGeometry(line).height(), menu.fontMetrics().height());
    EXPECT_GT(menu.actionGeometry(entry).height(), menu.fontMetrics().height());
    for (const auto type : {QStyle::CT_MenuBarItem, QStyle::CT_ToolButton}) {
        QWidget part;
        QStyleOptionMenuItem option;
        option.initFrom(&part);
        const auto width = [&] { return style.sizeFromContents(type, &option, {50, 20}, &part).width(); };
        const int usual = width();
        part.setProperty("narrow", true);
        EXPECT_TRUE(width() < usual && width() > 50);
    }
}

TEST(PaintedParts, TheLineOfKeysIsBelowTheEntries) {
    QWidget window;
    ChoiceList list(u"list"_s, u"列表"_s, &window);
    list.tellKeys(u"回车选用"_s);
    list.fill({u"甲"_s, u"乙"_s}, 0);
    list.resize(200, 150);
    window.show();
    const auto *line = list.findChild<KeyLine *>();
    const QRect entries = list.viewport()->geometry();
    EXPECT_EQ(line->geometry(),
              QRect(entries.left(), entries.bottom() + 1, entries.width(), line->sizeHint().height()));
    EXPECT_TRUE(list.rect().contains(line->geometry()));
    EXPECT_EQ(line->palette().color(QPalette::WindowText), colour(Colour::FaintInk, list.palette()));
    EXPECT_EQ(line->palette().color(QPalette::Window), colour(Colour::Base, list.palette()));
    EXPECT_TRUE(line->cursor().shape() == Qt::ArrowCursor && line->margin() > 0);
    list.setStyleSheet(u"QListWidget { background: red }"_s);
    EXPECT_EQ(list.grab().toImage().pixelColor(line->geometry().bottomRight()), colour(Colour::Base, line->palette()));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
    EXPECT_EQ(list.currentRow(), 1) << "the line takes no events from the list";
}

TEST(PaintedParts, ALabelToClickHasTheInkOfLabels) {
    QPalette colours;
    colours.setColor(QPalette::ButtonText, red);
    colours.setColor(QPalette::WindowText, Qt::blue);
    ClickLabel label(u"label"_s, u"名"_s, ClickLabel::Look::Underlined);
    label.setPalette(colours);
    const QImage picture = label.grab().toImage();
    EXPECT_TRUE(placeOf(red, picture).isEmpty() && !placeOf(Qt::blue, picture).isEmpty());
}

// A cross on an error, an exclamation mark on a warning.
TEST(PaintedParts, MarksHaveTheirSigns) {
    const QPalette palette = schemePalette(Scheme::Light);
    const std::tuple<Mark, Colour, QList<QPoint>, QPoint> marks[] = {
        {Mark::Error, Colour::ErrorInk, {{24, 24}, {40, 24}, {24, 40}, {40, 40}}, {32, 12}},
        {Mark::Warning, Colour::WarningInk, {{32, 26}, {32, 36}, {32, 50}}, {20, 50}}};
    for (const auto &[mark, ink, sign, ground] : marks) {
        QImage picture(64, 64, QImage::Format_ARGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        paintMark(&painter, picture.rect(), mark, palette);
        painter.end();
        for (const QPoint &place : sign)
            EXPECT_EQ(picture.pixelColor(place), colour(Colour::Base, palette)) << place.x() << ' ' << place.y();
        EXPECT_EQ(picture.pixelColor(ground), colour(ink, palette));
    }
}

TEST(PaintedParts, ACellIsPaintedInItsFont) {
    struct Large final : FlexGridDelegate {
        QFont cellFont(const QFont &plain, const QModelIndex &index) const override {
            QFont font = plain;
            font.setPixelSize(index.row() == 0 ? 10 : 20);
            return font;
        }
    };
    QStandardItemModel model(2, 1);
    QList<int> heights;
    for (int row = 0; row < 2; ++row) {
        model.setData(model.index(row, 0), QString(u'█'));
        model.setData(model.index(row, 0), QBrush(Qt::white), Qt::BackgroundRole);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 60, 40);
        option.palette = schemePalette(Scheme::Light);
        QImage picture(60, 40, QImage::Format_ARGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        Large().paint(&painter, option, model.index(row, 0));
        painter.end();
        heights.append(placeOf(legibleOn(Qt::white), picture).height());
    }
    EXPECT_TRUE(heights[0] > 0 && heights[1] > heights[0] * 3 / 2) << heights[0] << ' ' << heights[1];
}

TEST(PaintedParts, AMessageBoxHasWideMargins) {
    const DeskStyle style;
    const QMessageBox box;
    const QWidget window;
    for (const auto side : {QStyle::PM_LayoutLeftMargin, QStyle::PM_LayoutTopMargin, QStyle::PM_LayoutRightMargin,
                            QStyle::PM_LayoutBottomMargin})
        EXPECT_GT(style.pixelMetric(side, nullptr, &box), style.pixelMetric(side, nullptr, &window)) << side;
    EXPECT_EQ(style.pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, &box),
              style.pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, &window));
}

TEST(PaintedParts, AGivenWidthLeavesRoomOnASmallScreen) {
    QPushButton button;
    for (const int wanted : {100, 100'000}) {
        giveWidth(&button, wanted);
        EXPECT_LE(button.minimumWidth(), button.screen()->availableSize().width() * 3 / 5);
        EXPECT_GE(button.minimumWidth(), 100);
    }
}

TEST(PaintedParts, AScreenReaderGetsTheNameOfAChoiceAndOfItsEntries) {
    QComboBox box;
    nameForReader(&box, u"编码"_s);
    EXPECT_EQ((QStringList{box.accessibleName(), box.accessibleDescription(), box.view()->accessibleName()}),
              (QStringList{u"编码"_s, u"编码"_s, u"编码"_s}));
    describeForReader(&box, u"不对"_s);
    EXPECT_EQ(box.accessibleDescription(), u"编码：不对"_s);
    describeForReader(&box, {});
    EXPECT_EQ(box.accessibleDescription(), u"编码"_s);
    QLineEdit edit;
    QLabel label(u"&ISBN(10):"_s);
    naming(&label, &edit);
    describeForReader(&edit, u"不对"_s);
    EXPECT_EQ(edit.accessibleName() + edit.accessibleDescription(), u"ISBN(10)不对"_s);
}

} // namespace
