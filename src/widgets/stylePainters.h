// The painters of the style, one for each element that differs from Fusion.
#pragma once

#include <QStyle>
#include <QStyleOptionSlider>
#include <span>

class QPainter;

namespace widgets {

// An element to paint.
struct Work {
    const QStyle &style;
    const QStyleOption &option;
    QPainter &painter;
    const QWidget *widget; // may be null

    bool is(QStyle::StateFlag flag) const { return bool(option.state & flag); }
};
// Returns whether it painted the element; if not, Fusion paints it.
using Paint = bool (*)(const Work &work);
// Make a Paint from a painter that always paints the element, and from one that needs the option of the element.
template <void (*paint)(const Work &)>
bool always(const Work &work) {
    paint(work);
    return true;
}
template <class Option, void (*paint)(const Work &, const Option &)>
bool with(const Work &work) {
    const auto *option = qstyleoption_cast<const Option *>(&work.option);
    if (option)
        paint(work, *option);
    return option != nullptr;
}

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
void paintButton(const Work &work);
bool paintButtonLabel(const Work &work);
void paintPushButton(const Work &work);
void paintEdit(const Work &work);
void paintEditFrame(const Work &work);
void paintComboBox(const Work &work, const QStyleOptionComboBox &box);
void paintTick(const Work &work);
void paintRadio(const Work &work);
void paintToolButton(const Work &work);
QRect comboBoxPart(const QStyleOptionComplex &option, QStyle::SubControl part);

// styleFrames.cpp
void paintFrame(const Work &work);
void paintGroupFrame(const Work &work);
void paintFocusRect(const Work &work);
void paintPopup(const Work &work);
void paintItem(const Work &work, const QStyleOptionViewItem &item);
void paintTabFrame(const Work &work);
void paintTab(const Work &work);
void paintArrow(const Work &work, const QStyleOptionHeader &header);
void paintNothing(const Work &work);

// styleBars.cpp
void paintScrollBar(const Work &work, const QStyleOptionSlider &bar);
void paintGroove(const Work &work);
bool paintProgress(const Work &work);
void paintSplitter(const Work &work);
void paintBar(const Work &work);
void paintHeading(const Work &work);
bool paintHeadingText(const Work &work);
void paintSeparator(const Work &work);
QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part, int leastSlider);

// styleTitle.cpp
void paintTitleBar(const Work &work, const QStyleOptionTitleBar &bar);
void paintWindowFrame(const Work &work);

// styleMenus.cpp
void paintMenuItem(const Work &work, const QStyleOptionMenuItem &item);
void paintMenuBarItem(const Work &work, const QStyleOptionMenuItem &item);
QSize menuItemSize(const QStyleOption *option, const QSize &fusion);

} // namespace widgets
