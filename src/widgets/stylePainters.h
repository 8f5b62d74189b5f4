// The painters of the style, one for each element that differs from Fusion.
#pragma once

#include <QStyle>
#include <QStyleOptionSlider>
#include <span>

class QPainter;

namespace widgets {

// What a style is asked to paint. The style paints the parts that a painter leaves to Fusion.
struct Work {
    const QStyle &style;
    const QStyleOption &option;
    QPainter &painter;
    const QWidget *widget; // may be null

    bool is(QStyle::StateFlag flag) const { return bool(option.state & flag); }
};
// Returns whether it painted the element; if not, Fusion paints it.
using Paint = bool (*)(const Work &work);

struct PrimitivePainter {
    QStyle::PrimitiveElement element;
    Paint paint;
};
struct ControlPainter {
    QStyle::ControlElement element;
    Paint paint;
};
struct ComplexPainter {
    QStyle::ComplexControl control;
    Paint paint;
};
std::span<const PrimitivePainter> primitivePainters();
std::span<const ControlPainter> controlPainters();
std::span<const ComplexPainter> complexPainters();

constexpr int indicatorMargin = 3; // around a tick box, where the focus ring is drawn
constexpr int slimBar = 8;         // height of a progress bar

// styleControls.cpp
bool paintButton(const Work &work);
bool paintButtonLabel(const Work &work);
bool paintPushButton(const Work &work);
bool paintEdit(const Work &work);
bool paintEditFrame(const Work &work);
bool paintComboBox(const Work &work);
bool paintTick(const Work &work);
bool paintRadio(const Work &work);
bool paintToolButton(const Work &work);
QRect comboBoxPart(const QStyleOptionComplex &option, QStyle::SubControl part);

// styleFrames.cpp
bool paintFrame(const Work &work);
bool paintGroupFrame(const Work &work);
bool paintFocusRect(const Work &work);
bool paintTip(const Work &work);
bool paintMenuPanel(const Work &work);
bool paintRow(const Work &work);
bool paintItem(const Work &work);
bool paintTabFrame(const Work &work);
bool paintTab(const Work &work);
bool paintArrow(const Work &work);
bool paintNothing(const Work &work);

// styleBars.cpp
bool paintScrollBar(const Work &work);
bool paintGroove(const Work &work);
bool paintProgress(const Work &work);
bool paintSplitter(const Work &work);
bool paintBar(const Work &work);
bool paintHeading(const Work &work);
bool paintHeadingText(const Work &work);
bool paintSeparator(const Work &work);
QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part, int leastSlider);

// styleTitle.cpp
bool paintTitleBar(const Work &work);
bool paintWindowFrame(const Work &work);

// styleMenus.cpp
bool paintMenuItem(const Work &work);
bool paintMenuBarItem(const Work &work);
QSize menuItemSize(const QStyleOption *option, const QSize &fusion);

} // namespace widgets
