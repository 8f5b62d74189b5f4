#include "widgets/deskStyle.h"
#include "widgets/lineIcon.h"
#include "widgets/stylePainters.h"
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QMessageBox>
#include <QStyleOption>
#include <algorithm>

namespace widgets {

namespace {

// Sizes that depend on the height of the font.
struct SpaceMetric {
    QStyle::PixelMetric metric;
    Space space;
};
constexpr auto spaceMetrics = std::to_array<SpaceMetric>({
    {QStyle::PM_LayoutLeftMargin, Space::Medium},
    {QStyle::PM_LayoutTopMargin, Space::Medium},
    {QStyle::PM_LayoutRightMargin, Space::Medium},
    {QStyle::PM_LayoutBottomMargin, Space::Medium},
    {QStyle::PM_LayoutHorizontalSpacing, Space::Small},
    {QStyle::PM_LayoutVerticalSpacing, Space::Small},
    {QStyle::PM_HeaderMargin, Space::Tight},
    {QStyle::PM_MenuHMargin, Space::Tight},
    {QStyle::PM_MenuVMargin, Space::Tight},
    {QStyle::PM_ToolBarItemMargin, Space::Tight},
    {QStyle::PM_ToolBarItemSpacing, Space::Tight},
    {QStyle::PM_ToolTipLabelFrameWidth, Space::Tight},
    {QStyle::PM_CheckBoxLabelSpacing, Space::Tight},
    {QStyle::PM_RadioButtonLabelSpacing, Space::Tight},
    {QStyle::PM_ButtonMargin, Space::Medium},
    {QStyle::PM_ScrollBarExtent, Space::Medium},
    {QStyle::PM_ScrollBarSliderMin, Space::Wide},
    {QStyle::PM_TabBarTabHSpace, Space::Wide},
    {QStyle::PM_TabBarTabVSpace, Space::Medium},
    {QStyle::PM_MenuBarItemSpacing, Space::Tight},
});

struct FixedMetric {
    QStyle::PixelMetric metric;
    int pixels;
};
constexpr auto fixedMetrics = std::to_array<FixedMetric>({
    {QStyle::PM_DefaultFrameWidth, focusWidth},
    {QStyle::PM_ComboBoxFrameWidth, focusWidth},
    {QStyle::PM_SpinBoxFrameWidth, focusWidth},
    {QStyle::PM_MenuPanelWidth, 1},
    {QStyle::PM_SplitterWidth, 7},
    {QStyle::PM_ButtonShiftHorizontal, 0},
    {QStyle::PM_ButtonShiftVertical, 0},
    {QStyle::PM_TabBarTabShiftVertical, 0},
    {QStyle::PM_TabBarBaseOverlap, 0},
    {QStyle::PM_ToolBarFrameWidth, 0},
    {QStyle::PM_FocusFrameHMargin, 6}, // between the edge of a cell and its text, less one
    {QStyle::PM_ScrollView_ScrollBarSpacing, 0},
});

struct Hint {
    QStyle::StyleHint hint;
    int value;
};
constexpr auto hints = std::to_array<Hint>({
    {QStyle::SH_DialogButtonBox_ButtonsHaveIcons, 0},
    {QStyle::SH_EtchDisabledText, 0},
    {QStyle::SH_DitherDisabledText, 0},
    {QStyle::SH_ItemView_ShowDecorationSelected, 1},
    {QStyle::SH_ComboBox_Popup, 0},
    {QStyle::SH_ComboBox_UseNativePopup, 0},
    {QStyle::SH_ScrollBar_Transient, 0},
    {QStyle::SH_ToolTipLabel_Opacity, 255},
    {QStyle::SH_Widget_Animation_Duration, 0},
    {QStyle::SH_UnderlineShortcut, 1},
    {QStyle::SH_Header_ArrowAlignment, int(Qt::AlignRight) | int(Qt::AlignVCenter)},
    {QStyle::SH_MessageBox_CenterButtons, 0},
    {QStyle::SH_TabBar_PreferNoArrows, 0},
});

template <class Row, class Key>
const Row *found(const auto &table, Key Row::*key, Key wanted) {
    const auto at = std::ranges::find(table, wanted, key);
    return at == table.end() ? nullptr : &*at;
}

} // namespace

DeskStyle::DeskStyle()
    : QProxyStyle(QStringLiteral("fusion")) {}

void DeskStyle::polish(QPalette &palette) {
    palette = schemePalette(m_scheme.value_or(schemeOf(palette)));
}

int DeskStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    const QFontMetrics metrics = option ? option->fontMetrics : widget ? widget->fontMetrics() : QFontMetrics(QFont());
    if (metric >= PM_LayoutLeftMargin && metric <= PM_LayoutBottomMargin && qobject_cast<const QMessageBox *>(widget))
        return (space(Space::Large, metrics) + space(Space::Wide, metrics)) / 2;
    if (const auto *row = found(spaceMetrics, &SpaceMetric::metric, metric))
        return space(row->space, metrics);
    if (const auto *row = found(fixedMetrics, &FixedMetric::metric, metric))
        return row->pixels;
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return metrics.ascent() + 2 * indicatorMargin;
    case PM_MessageBoxIconSize:
    case PM_LargeIconSize:
        return 2 * metrics.height();
    case PM_SmallIconSize:
    case PM_ListViewIconSize:
    case PM_ButtonIconSize:
    case PM_TitleBarButtonIconSize:
        return metrics.height();
    case PM_TitleBarHeight:
        return metrics.height() + space(Space::Medium, metrics);
    case PM_MdiSubWindowFrameWidth:
        return 3;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int DeskStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                         QStyleHintReturn *more) const {
    if (const auto *row = found(hints, &Hint::hint, hint))
        return row->value;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

QSize DeskStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                                  const QWidget *widget) const {
    const QFontMetrics &metrics = option->fontMetrics;
    const int tight = space(Space::Tight, metrics), small = space(Space::Small, metrics);
    const bool narrow = widget && widget->property("narrow").toBool();
    switch (type) {
    case CT_PushButton:
        return contents + QSize(2 * space(Space::Medium, metrics), 2 * tight + 2);
    case CT_LineEdit:
        return contents + QSize(2 * focusWidth + 2, 2 * tight);
    case CT_ComboBox:
        return contents + QSize(2 * small + metrics.height() + tight, 2 * tight + 2);
    case CT_ItemViewItem:
        return QProxyStyle::sizeFromContents(type, option, contents, widget) + QSize(tight, tight);
    case CT_MenuItem:
        return menuItemSize(option, QProxyStyle::sizeFromContents(type, option, contents, widget));
    case CT_MenuBarItem:
        return contents + QSize(2 * (narrow ? tight / 2 : small), 2 * tight);
    case CT_ToolButton:
        return contents + QSize((narrow ? 0 : 2 * tight) + 2 * focusWidth, 2 * tight);
    case CT_HeaderSection:
        return QProxyStyle::sizeFromContents(type, option, contents, widget) + QSize(tight, 0);
    default:
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QRect DeskStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const {
    switch (element) {
    case SE_CheckBoxFocusRect: // the ring is part of the indicator
    case SE_RadioButtonFocusRect:
        return {};
    case SE_LineEditContents:
        return option->rect.adjusted(focusWidth + 1, focusWidth, -focusWidth - 1, -focusWidth);
    case SE_ProgressBarGroove:
    case SE_ProgressBarContents:
        return option->rect;
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect DeskStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                                const QWidget *widget) const {
    if (control == CC_ScrollBar)
        if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option))
            return scrollBarPart(*bar, part, pixelMetric(PM_ScrollBarSliderMin, option, widget));
    if (control == CC_ComboBox)
        return visualRect(option->direction, option->rect, comboBoxPart(*option, part));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void DeskStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const {
    const auto *row = found(primitivePainters(), &PrimitivePainter::element, element);
    if (!row || !row->paint({*this, *option, *painter, widget}))
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void DeskStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const {
    const auto *row = found(controlPainters(), &ControlPainter::element, element);
    if (!row || !row->paint({*this, *option, *painter, widget}))
        QProxyStyle::drawControl(element, option, painter, widget);
}

void DeskStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                   const QWidget *widget) const {
    const auto *row = found(complexPainters(), &ComplexPainter::control, control);
    if (!row || !row->paint({*this, *option, *painter, widget}))
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QIcon DeskStyle::standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const {
    return lineIcon(icon).value_or(QProxyStyle::standardIcon(icon, option, widget));
}

QPixmap DeskStyle::standardPixmap(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const {
    const int side = pixelMetric(PM_SmallIconSize, option, widget);
    const auto own = lineIcon(icon);
    return own ? own->pixmap(side) : QProxyStyle::standardPixmap(icon, option, widget);
}

} // namespace widgets
