#include "widgets/stylePainters.h"
#include <array>

namespace widgets {

namespace {

constexpr auto primitives = std::to_array<PrimitivePainter>({
    {QStyle::PE_PanelButtonCommand, paintButton},
    {QStyle::PE_PanelButtonTool, paintToolButton},
    {QStyle::PE_FrameDefaultButton, paintNothing},
    {QStyle::PE_PanelLineEdit, paintEdit},
    {QStyle::PE_FrameLineEdit, paintEditFrame},
    {QStyle::PE_IndicatorCheckBox, paintTick},
    {QStyle::PE_IndicatorItemViewItemCheck, paintTick},
    {QStyle::PE_IndicatorRadioButton, paintRadio},
    {QStyle::PE_Frame, paintFrame},
    {QStyle::PE_FrameGroupBox, paintGroupFrame},
    {QStyle::PE_FrameFocusRect, paintFocusRect},
    {QStyle::PE_PanelTipLabel, paintTip},
    {QStyle::PE_PanelMenu, paintMenuPanel},
    {QStyle::PE_FrameMenu, paintMenuPanel},
    {QStyle::PE_PanelItemViewRow, paintRow},
    {QStyle::PE_PanelItemViewItem, paintItem},
    {QStyle::PE_FrameTabWidget, paintTabFrame},
    {QStyle::PE_FrameTabBarBase, paintTabFrame},
    {QStyle::PE_FrameWindow, paintWindowFrame},
    {QStyle::PE_FrameStatusBarItem, paintNothing},
    {QStyle::PE_PanelStatusBar, paintBar},
    {QStyle::PE_IndicatorToolBarSeparator, paintSeparator},
    {QStyle::PE_IndicatorArrowUp, paintArrow},
    {QStyle::PE_IndicatorArrowDown, paintArrow},
    {QStyle::PE_IndicatorArrowLeft, paintArrow},
    {QStyle::PE_IndicatorArrowRight, paintArrow},
    {QStyle::PE_IndicatorHeaderArrow, paintArrow},
});

constexpr auto controls = std::to_array<ControlPainter>({
    {QStyle::CE_PushButton, paintPushButton},
    {QStyle::CE_PushButtonBevel, paintButton},
    {QStyle::CE_PushButtonLabel, paintButtonLabel},
    {QStyle::CE_TabBarTabShape, paintTab},
    {QStyle::CE_ProgressBarGroove, paintGroove},
    {QStyle::CE_ProgressBarContents, paintProgress},
    {QStyle::CE_Splitter, paintSplitter},
    {QStyle::CE_ToolBar, paintBar},
    {QStyle::CE_MenuBarEmptyArea, paintBar},
    {QStyle::CE_MenuBarItem, paintMenuBarItem},
    {QStyle::CE_MenuItem, paintMenuItem},
    {QStyle::CE_HeaderSection, paintHeading},
    {QStyle::CE_HeaderEmptyArea, paintHeading},
    {QStyle::CE_HeaderLabel, paintHeadingText},
});

constexpr auto complexControls = std::to_array<ComplexPainter>({
    {QStyle::CC_ComboBox, paintComboBox},
    {QStyle::CC_ScrollBar, paintScrollBar},
    {QStyle::CC_TitleBar, paintTitleBar},
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
