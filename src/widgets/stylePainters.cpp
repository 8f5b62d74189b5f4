#include "widgets/stylePainters.h"
#include <array>

namespace widgets {

namespace {

constexpr auto primitives = std::to_array<PrimitivePainter>({
    {QStyle::PE_PanelButtonCommand, always<paintButton>},
    {QStyle::PE_PanelButtonTool, always<paintToolButton>},
    {QStyle::PE_FrameDefaultButton, always<paintNothing>},
    {QStyle::PE_PanelLineEdit, always<paintEdit>},
    {QStyle::PE_FrameLineEdit, always<paintEditFrame>},
    {QStyle::PE_IndicatorCheckBox, always<paintTick>},
    {QStyle::PE_IndicatorItemViewItemCheck, always<paintTick>},
    {QStyle::PE_IndicatorRadioButton, always<paintRadio>},
    {QStyle::PE_Frame, always<paintFrame>},
    {QStyle::PE_FrameGroupBox, always<paintGroupFrame>},
    {QStyle::PE_FrameFocusRect, always<paintFocusRect>},
    {QStyle::PE_PanelTipLabel, always<paintPopup>},
    {QStyle::PE_PanelMenu, always<paintPopup>},
    {QStyle::PE_FrameMenu, always<paintPopup>},
    {QStyle::PE_PanelItemViewRow, always<paintNothing>}, // paintItem() fills the whole cell
    {QStyle::PE_PanelItemViewItem, with<QStyleOptionViewItem, paintItem>},
    {QStyle::PE_FrameTabWidget, always<paintTabFrame>},
    {QStyle::PE_FrameTabBarBase, always<paintTabFrame>},
    {QStyle::PE_FrameWindow, always<paintWindowFrame>},
    {QStyle::PE_FrameStatusBarItem, always<paintNothing>},
    {QStyle::PE_PanelStatusBar, always<paintBar>},
    {QStyle::PE_IndicatorToolBarSeparator, always<paintSeparator>},
    {QStyle::PE_IndicatorHeaderArrow, with<QStyleOptionHeader, paintArrow>},
});

constexpr auto controls = std::to_array<ControlPainter>({
    {QStyle::CE_PushButton, always<paintPushButton>},
    {QStyle::CE_PushButtonBevel, always<paintButton>},
    {QStyle::CE_PushButtonLabel, paintButtonLabel},
    {QStyle::CE_TabBarTabShape, always<paintTab>},
    {QStyle::CE_ProgressBarGroove, always<paintGroove>},
    {QStyle::CE_ProgressBarContents, paintProgress},
    {QStyle::CE_Splitter, always<paintSplitter>},
    {QStyle::CE_ToolBar, always<paintBar>},
    {QStyle::CE_MenuBarEmptyArea, always<paintBar>},
    {QStyle::CE_MenuBarItem, with<QStyleOptionMenuItem, paintMenuBarItem>},
    {QStyle::CE_MenuItem, with<QStyleOptionMenuItem, paintMenuItem>},
    {QStyle::CE_HeaderSection, always<paintHeading>},
    {QStyle::CE_HeaderEmptyArea, always<paintHeading>},
    {QStyle::CE_HeaderLabel, paintHeadingText},
});

constexpr auto complexControls = std::to_array<ComplexPainter>({
    {QStyle::CC_ComboBox, with<QStyleOptionComboBox, paintComboBox>},
    {QStyle::CC_ScrollBar, with<QStyleOptionSlider, paintScrollBar>},
    {QStyle::CC_TitleBar, with<QStyleOptionTitleBar, paintTitleBar>},
});

} // namespace

std::span<const PrimitivePainter> primitivePainters() {
    return primitives;
}

std::span<const ControlPainter> controlPainters() {
    return controls;
}

std::span<const ComplexPainter> complexPainters() {
    return complexControls;
}

} // namespace widgets
