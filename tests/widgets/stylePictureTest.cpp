// The painting of the style, element by element, as the tokens whose colours a picture has and their places. The scheme
// is the dark one, in which every token has a colour of its own.
#include "support/qtPrinters.h"
#include "support/showActive.h"
#include "widgets/deskStyle.h"
#include "widgets/flexGridColours.h"
#include <QTest>

using namespace widgets;

namespace {

using S = QStyle;
constexpr auto primary = QStyleOptionButton::DefaultButton, flat = QStyleOptionButton::Flat;
constexpr auto in = S::State_Sunken, ticked = S::State_On, locked = S::State_ReadOnly, chosen = S::State_Selected,
               flatTool = S::State_AutoRaise, mixed = S::State_NoChange, across = S::State_Horizontal;
constexpr auto slider = S::SC_ScrollBarSlider;
constexpr auto separator = S::PE_IndicatorToolBarSeparator;
using Header = QStyleOptionHeader;
using Menu = QStyleOptionMenuItem;
const QStyle::State off, on = S::State_Enabled, focus = on | S::State_HasFocus, over = S::State_MouseOver,
                         below = on | over;

// The tokens in a picture, each with the distances of its pixels from the left, top, right and bottom of the element:
// "NAME; NAME ALL; NAME LEFT,TOP,RIGHT,BOTTOM; …".
QString tokensIn(const QImage &picture, const QRect &element) {
    static const QStringList names = u"Frame Window Base Hover Pressed Hairline Edge Ink SecondInk FaintInk Accent "
                                     "AccentHover AccentDown OnAccent Tint QuietTint"_s.split(u' ');
    QMap<int, QRect> places;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            for (int name = 0; name < names.size(); ++name)
                if (picture.pixel(x, y) == colourOf(Colour(name), Scheme::Dark))
                    places[name] |= QRect(x, y, 1, 1);
    QStringList said;
    for (auto place = places.cbegin(); place != places.cend(); ++place) {
        QStringList away;
        for (const int distance : {place->left() - element.left(), place->top() - element.top(),
                                   element.right() - place->right(), element.bottom() - place->bottom()})
            away.append(QString::number(distance));
        const bool even = away.count(away[0]) == 4;
        said.append(names[place.key()] + (even && away[0] == u"0" ? u""_s : u' ' + (even ? away[0] : away.join(u','))));
    }
    return said.join(u"; "_s);
}

QString withoutPlaces(QString tokens) { // of elements whose signs and texts follow the font
    return tokens.remove(QRegularExpression(u"(?<=Ink|Accent) [^;]*"_s));
}

template <class... Pictures>
QString all(const Pictures &...pictures) {
    return QStringList{pictures...}.join(u" | "_s);
}

struct StylePicture : testing::Test {
    // Draws an element 40 wide and 20 high at 10,5.
    template <class Option, class Element>
    QString of(Element element, QStyle::State state, const std::function<void(Option &)> &change = {},
               const QWidget *widget = nullptr) {
        Option option;
        option.rect = QRect(10, 5, 40, 20);
        option.palette = schemePalette(Scheme::Dark);
        option.state = state;
        QFont small;
        small.setPixelSize(8);
        option.fontMetrics = QFontMetrics(small);
        if (change)
            change(option);
        QImage picture(option.rect.right() + 11, 30, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        if constexpr (std::is_invocable_v<Element, QPainter *, Option>)
            element(&painter, option);
        else if constexpr (std::is_same_v<Element, QStyle::PrimitiveElement>)
            style.drawPrimitive(element, &option, &painter, widget);
        else if constexpr (std::is_same_v<Element, QStyle::ControlElement>)
            style.drawControl(element, &option, &painter, widget);
        else
            style.drawComplexControl(element, &option, &painter, widget);
        painter.end();
        return tokensIn(picture, option.rect);
    }
    DeskStyle style;
};

TEST_F(StylePicture, ButtonsAndFields) {
    const auto button = [&](QStyle::State state, QStyleOptionButton::ButtonFeatures features = {}) {
        return of<QStyleOptionButton>(S::CE_PushButtonBevel, state, [&](auto &it) { it.features = features; });
    };
    const auto tool = [&](QStyle::State state) { return of<QStyleOptionToolButton>(S::PE_PanelButtonTool, state); };
    const auto edit = [&](QStyle::State state, int line = 1) {
        return of<QStyleOptionFrame>(S::PE_PanelLineEdit, state, [&](auto &it) { it.lineWidth = line; });
    };
    const auto outline = [&](QStyle::State state) { return of<QStyleOptionFrame>(S::PE_FrameLineEdit, state); };
    const auto box = [&](QStyle::State state, bool editable = false) {
        const auto change = [&](auto &it) { it.editable = editable; };
        return withoutPlaces(of<QStyleOptionComboBox>(S::CC_ComboBox, state, change));
    };
    const auto square = [](auto &it) { it.rect = QRect(10, 5, 21, 21); };
    const auto tick = [&](QStyle::State state, const QWidget *widget = nullptr) {
        return of<QStyleOptionButton>(S::PE_IndicatorCheckBox, state, square, widget);
    };
    const auto radio = [&](QStyle::State state) {
        return of<QStyleOptionButton>(S::PE_IndicatorRadioButton, state, square);
    };
    const QListWidget list;
    EXPECT_EQ(all(button(on), button(focus), button(below), button(on | in), button(on | ticked), button(off),
                  button(off, primary), button(on, primary), button(focus, primary), button(below, primary),
                  button(below | in, primary), button(on, flat), button(off, flat), button(focus | below, flat),
                  tool(on | flatTool), tool(focus | flatTool), tool(below | flatTool), tool(on | ticked | flatTool),
                  tool(over | flatTool), tool(on)),
              u"Base 1; Edge | Base 2; Accent | Hover 1; Edge | Pressed 1; Edge | Pressed 1; Edge | Window 1; "
              "Hairline | Window 1; Hairline | Accent | Window 2; Accent | AccentHover | AccentDown |  |  | Hover "
              "2; Accent |  | Accent | Hover | Pressed |  | Base 1; Edge"_s);
    EXPECT_EQ(all(edit(on), edit(focus), edit(on | locked), edit(off), edit(on, 0), edit(off, 0), outline(focus),
                  outline(off), box(on), box(focus), box(off), box(below), box(below | ticked), box(below, true),
                  box(focus, true), tick(on), tick(focus | ticked), tick(focus | ticked, &list), tick(below), tick(off),
                  tick(ticked), tick(on | mixed)),
              u"Base 1; Edge | Base 2; Accent | Window 1; Hairline | Window 1; Hairline | Base | Window | Accent | "
              "Hairline | Base 1; Edge; SecondInk | Base 2; SecondInk; Accent | Window 1; Hairline; FaintInk | "
              "Hover 1; Edge; SecondInk | Base 1; Edge; SecondInk | Base 1; Edge; SecondInk | Base 2; SecondInk; "
              "Accent | Base 4; Edge 3 | Accent; OnAccent 6,7,6,7 | Accent 3; OnAccent 6,7,6,7 | Hover 4; Edge 3 | "
              "Window 4; Edge 3 | Window 4; Edge 3; FaintInk 6,7,6,7 | Accent 3; OnAccent 6,10,6,10"_s);
    EXPECT_EQ(all(radio(on), radio(focus | ticked), radio(ticked)),
              u"Base 4 | Accent 1; OnAccent 8 | Window 4; FaintInk 8"_s);
}

TEST_F(StylePicture, FramesRowsAndBars) {
    const QStandardItemModel cells(1, 2);
    QListWidget list, focused;
    showActive(focused);
    focused.setFocus();
    QMenuBar menuBar;
    QToolBar toolBar;
    QToolButton toolButton;
    const QRect tall(20, 2, 8, 26);
    const auto frame = [&](QStyle::State state, const QWidget *widget) {
        return of<QStyleOptionFrame>(S::PE_Frame, state, {}, widget);
    };
    const auto plain = [&](QStyle::PrimitiveElement element, QStyle::State state = on, QWidget *widget = nullptr) {
        return of<QStyleOption>(element, state, {}, widget);
    };
    const auto bar = [&](QStyle::State state, QWidget *widget) {
        return of<QStyleOption>(S::CE_ToolBar, state, {}, widget);
    };
    const auto tab = [&](QStyle::State state) { return of<QStyleOptionTab>(S::CE_TabBarTabShape, state); };
    const auto splitter = [&](QStyle::State state, QRect rect = {10, 5, 40, 20}) {
        return of<QStyleOption>(S::CE_Splitter, state, [&](auto &it) { it.rect = rect; });
    };
    const auto item = [&](const QWidget &view, QStyle::State state, int column = 0) {
        return of<QStyleOptionViewItem>(
            S::PE_PanelItemViewItem, state,
            [&](auto &it) {
                it.index = cells.index(0, column);
                it.backgroundBrush = column < 0 ? QBrush(colour(Colour::Frame, it.palette)) : QBrush();
            },
            &view);
    };
    const auto scroll = [&](QStyle::State state, int position, QStyle::SubControls held = {}, int most = 90,
                            Qt::Orientation orientation = Qt::Horizontal) {
        return of<QStyleOptionSlider>(S::CC_ScrollBar, state, [&](auto &it) {
            it.orientation = orientation;
            it.maximum = most;
            it.pageStep = 90;
            it.sliderPosition = position;
            it.activeSubControls = held;
        });
    };
    const auto progress = [&](int minimum, int value) {
        return of<QStyleOptionProgressBar>(S::CE_ProgressBarContents, on, [&](auto &it) {
            it.minimum = minimum;
            it.maximum = 30;
            it.progress = value;
        });
    };
    const auto heading = [&](Header::SectionPosition position) {
        return of<QStyleOptionHeader>(S::CE_HeaderSection, on, [&](auto &it) { it.position = position; });
    };
    const auto arrow = [&](Header::SortIndicator order) {
        return of<QStyleOptionHeader>(S::PE_IndicatorHeaderArrow, on, [&](auto &it) { it.sortIndicator = order; });
    };
    const auto menu = [&](QStyle::State state, Menu::MenuItemType type, bool marked = false, bool open = false) {
        const auto change = [&](auto &it) {
            it.menuItemType = type;
            it.font.setPixelSize(8);
            it.checkType = marked ? Menu::NonExclusive : Menu::NotCheckable;
            it.checked = marked && !open;
            it.menuHasCheckableItems = marked;
            it.text = marked ? u"█\t█"_s : QString();
        };
        return withoutPlaces(of<QStyleOptionMenuItem>(S::CE_MenuItem, state, change));
    };
    const auto entry = [&](QStyle::State state) { return of<QStyleOptionMenuItem>(S::CE_MenuBarItem, state); };
    EXPECT_EQ(all(frame(on, nullptr), frame(on, &list), frame(off, &list), plain(S::PE_FrameGroupBox),
                  plain(S::PE_FrameFocusRect), plain(S::PE_FrameFocusRect, on, &toolButton), plain(S::PE_PanelTipLabel),
                  plain(S::PE_PanelMenu), plain(S::PE_FrameTabWidget), plain(S::PE_FrameWindow), item(list, on),
                  item(list, on | chosen), item(focused, on | chosen), item(focused, on | chosen, 1),
                  frame(on, &focused), item(list, on, -1)),
              u"Hairline | Edge | Hairline | Hairline | Accent |  | Base 1; Edge | Base 1; Edge | Hairline 0,0,0,19 "
              "| Edge |  | QuietTint | Accent 0,0,37,0; Tint 3,0,0,0 | Tint | Accent | Frame"_s);
    EXPECT_EQ(all(tab(below), tab(below | chosen), tab(focus | chosen), arrow(Header::SortUp), arrow(Header::SortDown),
                  scroll(on, 0), scroll(on, 45), scroll(below, 90, slider), scroll(on, 90, slider), scroll(on | in, 0),
                  scroll(off, 0), scroll(on, 45, {}, 90, Qt::Vertical), scroll(on, 0, {}, 0), progress(10, 20),
                  progress(10, 40), progress(10, 13)),
              u"Hover 1,1,1,3 | Accent 0,17,0,0 | Accent 0,1,0,0 | SecondInk 14,6,14,6 | SecondInk 14,6,14,7 | "
              "Window; Edge 4,4,24,4 | Window; Edge 14,4,14,4 | Window; SecondInk 24,4,4,4 | Window; Edge 24,4,4,4 "
              "| Window; SecondInk 4,4,24,4 | Window | Window; Edge 4,6,4,6 | Window | Accent 1,6,21,6 | Accent "
              "1,6,1,6 | "_s);
    EXPECT_EQ(
        all(of<QStyleOptionProgressBar>(S::CE_ProgressBarGroove, on), splitter(on), splitter(below, tall),
            splitter(on | in), bar(on, &toolBar), bar(on, &menuBar), plain(S::PE_PanelStatusBar), plain(separator),
            plain(separator, across), heading(Header::Middle), heading(Header::End), heading(Header::OnlyOneSection),
            menu(on, Menu::Separator), menu(on, Menu::Normal), menu(on | chosen, Menu::Normal),
            menu(chosen, Menu::SubMenu), menu(on, Menu::Normal, true), menu(off, Menu::Normal, true),
            menu(on, Menu::Normal, true, true)),
        u"Hairline 1,6,1,6 | Hairline 8,7,10,10 | Accent 1,1,4,3 | Accent 8,7,10,10 | Window 0,0,0,1; Hairline "
        "0,19,0,0 | Window | Window 0,1,0,0; Hairline 0,0,0,19 | Hairline 4,9,4,10 | Hairline 19,4,20,4 | "
        "Window 0,0,0,1; Hairline 0,4,0,0 | Window 0,0,0,1; Hairline 0,19,0,0 | Window 0,0,0,1; Hairline "
        "0,19,0,0 | Hairline 0,9,0,10 |  | Tint | SecondInk | Ink; FaintInk; Accent | FaintInk; Accent | Ink; FaintInk"_s);
    EXPECT_EQ(all(entry(on), entry(on | chosen), entry(on | in)), u"Window | Tint | Tint"_s);
}

TEST_F(StylePicture, TitleBars) {
    QPixmap icon(16, 16);
    icon.fill(colour(Colour::Tint, schemePalette(Scheme::Dark)));
    const auto bar = [&](bool active, QStyle::SubControls parts, QStyle::SubControls held = {}) {
        return of<QStyleOptionTitleBar>(S::CC_TitleBar, on, [&](auto &it) {
            it.rect.setWidth(140);
            QFont font;
            font.setPixelSize(11);
            it.fontMetrics = QFontMetrics(font);
            it.titleBarFlags = Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint;
            it.titleBarState = active ? int(S::State_Active) : 0;
            it.subControls = parts;
            it.activeSubControls = held;
            it.text = u"█"_s;
            it.icon = icon;
        });
    };
    EXPECT_EQ(all(bar(true, {}), bar(false, S::SC_TitleBarSysMenu)),
              u"Base 0,0,0,1; Hairline 0,19,0,0; Ink 16,3,115,3 | Base 0,0,0,1; Hairline 0,19,0,0; FaintInk "
              "24,3,107,3; Tint 6,3,121,4"_s);
    EXPECT_EQ(all(bar(true, S::SC_TitleBarMinButton, S::SC_TitleBarMinButton),
                  bar(true, S::SC_TitleBarMaxButton, S::SC_TitleBarMaxButton),
                  bar(true, S::SC_TitleBarCloseButton, S::SC_TitleBarCloseButton),
                  bar(true, S::SC_TitleBarMaxButton, S::SC_TitleBarMinButton)),
              u"Base 0,0,0,1; Pressed 88,3,38,3; Hairline 0,19,0,0; Ink 16,3,115,3 | Base 0,0,0,1; Pressed "
              "104,3,22,3; Hairline 0,19,0,0; Ink 16,3,115,3; SecondInk 108,7,26,7 | Base 0,0,0,1; Pressed "
              "120,3,6,3; Hairline 0,19,0,0; Ink 16,3,115,3 | Base 0,0,0,1; Hairline 0,19,0,0; Ink 16,3,115,3; "
              "SecondInk 108,7,26,7"_s);
}

TEST_F(StylePicture, CellsOfAGridAndLabels) {
    QStandardItemModel cells(2, 2);
    const QTableView quiet;
    const FlexGridDelegate delegate;
    const auto cell = [&](QStyle::State state, int row, int column, const QBrush &own = {}, const QWidget *view = {}) {
        const QModelIndex index = cells.index(row, column);
        cells.setData(index, own.style() == Qt::NoBrush ? QVariant() : own, Qt::BackgroundRole);
        const auto paint = [&](QPainter *painter, const QStyleOptionViewItem &option) {
            QStyleOptionViewItem seen = option;
            seen.widget = view;
            delegate.paint(painter, seen, index);
        };
        return of<QStyleOptionViewItem>(paint, state);
    };
    // The marks on a background of its own are those of the light scheme, which are not named below.
    const QColor own(colourOf(Colour::Ink, Scheme::Dark));
    EXPECT_EQ(
        all(cell(on, 0, 0), cell(on, 1, 0), cell(on | chosen, 0, 0), cell(on | chosen, 1, 1),
            cell(on | chosen, 0, 0, {}, &quiet), cell(on, 0, 0, own), cell(on | chosen, 0, 1, own),
            cell(on | chosen, 0, 0, own, &quiet), cell(focus, 0, 1), cell(focus, 0, 1, own)),
        u" | Hairline 0,0,0,19 | Accent 0,0,37,0; Tint 3,0,0,0 | Hairline 0,0,0,19; Tint 0,1,0,0 | QuietTint | Ink | "
        "Ink 0,2,0,2 | Ink 0,2,0,2 | Accent | Ink 3"_s);
    const auto label = [&](QStyle::State state, QStyleOptionButton::ButtonFeatures features = {}) {
        return withoutPlaces(of<QStyleOptionButton>(S::CE_PushButton, state, [&](auto &it) {
            it.features = features;
            it.text = u"█"_s;
        }));
    };
    const auto headingText = [](QStyleOptionHeader &it) { it.text = u"█"_s; };
    EXPECT_EQ(all(label(on), label(off), label(on, primary),
                  withoutPlaces(of<QStyleOptionHeader>(S::CE_HeaderLabel, on, headingText))),
              u"Base 1; Edge; Ink | Window 1; Hairline; FaintInk | Accent; OnAccent | SecondInk"_s);
}

} // namespace
