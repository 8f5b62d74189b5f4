// Buttons, fields, combo boxes and tick boxes.
#include "widgets/stylePaint.h"
#include "widgets/stylePainters.h"
#include <QApplication>
#include <QStyleOption>

namespace widgets {

namespace {

bool isPrimary(const Work &work) {
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&work.option);
    return (button && button->features & QStyleOptionButton::DefaultButton) ||
           (work.widget && work.widget->property("primary").toBool());
}

Surface buttonSurface(const Work &work) {
    if (!work.is(QStyle::State_Enabled))
        return Surface::DisabledButton;
    const bool primary = isPrimary(work);
    if (work.is(QStyle::State_Sunken) || work.is(QStyle::State_On))
        return primary ? Surface::PressedPrimary : Surface::PressedButton;
    if (work.is(QStyle::State_MouseOver))
        return primary ? Surface::HoveredPrimary : Surface::HoveredButton;
    return primary ? Surface::Primary : Surface::Button;
}

// A ring inside a gap in the window's colour, so that it is visible on an accent colour too.
void paintPrimaryFocus(const Work &work, const QRect &rect) {
    const QPalette &palette = work.option.palette;
    paintPanel(&work.painter, rect, colour(Colour::Window, palette), colour(Colour::Window, palette));
    paintFocusRing(&work.painter, rect, palette);
}

QColor fieldFill(const Work &work) {
    const QPalette &palette = work.option.palette;
    const QColor base = palette.color(QPalette::Base);
    const bool locked = work.is(QStyle::State_ReadOnly) && base == colour(Colour::Base, palette);
    return locked || (!work.is(QStyle::State_Enabled) && base == colour(Colour::Base, palette))
               ? colour(look(Surface::LockedField).fill, palette)
               : base;
}

void paintField(const Work &work, const QRect &rect, const QColor &fill) {
    const QPalette &palette = work.option.palette;
    const bool open = work.is(QStyle::State_Enabled) && !work.is(QStyle::State_ReadOnly);
    const SurfaceLook &looks = look(open ? Surface::Field : Surface::LockedField);
    paintPanel(&work.painter, rect, fill, colour(looks.edge, palette));
    if (work.is(QStyle::State_HasFocus))
        paintFocusRing(&work.painter, rect, palette);
}

void paintBox(const Work &work, const QRect &box, double radius) {
    const QPalette &palette = work.option.palette;
    const bool chosen = work.is(QStyle::State_On) || work.is(QStyle::State_NoChange);
    if (!work.is(QStyle::State_Enabled))
        paintPanel(&work.painter, box, colour(Colour::Window, palette), colour(Colour::Edge, palette), radius);
    else if (chosen)
        paintSurface(&work.painter, box, Surface::Primary, palette, radius);
    else
        paintSurface(&work.painter, box, buttonSurface(work), palette, radius);
    const bool ofItem = work.widget && work.widget->inherits("QAbstractItemView");
    if (work.is(QStyle::State_HasFocus) && !ofItem)
        paintFocusRing(&work.painter, work.option.rect, palette, radius + 2);
}

QRect boxOf(const Work &work) {
    return work.option.rect.adjusted(indicatorMargin, indicatorMargin, -indicatorMargin, -indicatorMargin);
}

QColor signInk(const Work &work) {
    return colour(work.is(QStyle::State_Enabled) ? look(Surface::Primary).ink : look(Surface::DisabledButton).ink,
                  work.option.palette);
}

} // namespace

void paintButton(const Work &work) {
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&work.option);
    const QRect &rect = work.option.rect;
    const bool focus = work.is(QStyle::State_HasFocus);
    const Surface surface = buttonSurface(work);
    const bool flat = button && button->features & QStyleOptionButton::Flat;
    const bool primary = isPrimary(work) && work.is(QStyle::State_Enabled);
    if (primary && focus) {
        constexpr int gap = focusWidth + 1;
        paintPrimaryFocus(work, rect);
        paintSurface(&work.painter, rect.adjusted(gap, gap, -gap, -gap), surface, work.option.palette,
                     cornerRadius - gap);
        return;
    }
    if (!flat || (surface != Surface::Button && surface != Surface::DisabledButton))
        paintSurface(&work.painter, rect, surface, work.option.palette);
    if (focus)
        paintFocusRing(&work.painter, rect, work.option.palette);
}

void paintPushButton(const Work &work) {
    work.style.drawControl(QStyle::CE_PushButtonBevel, &work.option, &work.painter, work.widget);
    work.style.drawControl(QStyle::CE_PushButtonLabel, &work.option, &work.painter, work.widget);
}

bool paintButtonLabel(const Work &work) {
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&work.option);
    if (!button || !button->icon.isNull())
        return false;
    QPalette palette = button->palette;
    palette.setColor(QPalette::ButtonText, colour(look(buttonSurface(work)).ink, palette));
    const int flags = int(Qt::AlignCenter) | int(Qt::TextShowMnemonic) | int(Qt::TextSingleLine);
    work.style.drawItemText(&work.painter, button->rect, flags, palette, true, button->text, QPalette::ButtonText);
    return true;
}

void paintToolButton(const Work &work) {
    if (!work.is(QStyle::State_AutoRaise))
        return paintButton(work);
    const Surface surface = buttonSurface(work);
    if (surface == Surface::HoveredButton || surface == Surface::PressedButton) {
        const QColor fill = colour(look(surface).fill, work.option.palette);
        paintPanel(&work.painter, work.option.rect, fill, fill);
    }
    if (work.is(QStyle::State_HasFocus))
        paintFocusRing(&work.painter, work.option.rect, work.option.palette);
}

void paintEdit(const Work &work) {
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&work.option);
    if (frame && frame->lineWidth > 0)
        paintField(work, work.option.rect, fieldFill(work));
    else
        work.painter.fillRect(work.option.rect, fieldFill(work));
}

void paintEditFrame(const Work &work) {
    paintField(work, work.option.rect, Qt::transparent);
}

void paintComboBox(const Work &work, const QStyleOptionComboBox &box) {
    const QPalette &palette = box.palette;
    if (box.editable) {
        paintField(work, box.rect, palette.color(QPalette::Base));
    } else {
        paintSurface(&work.painter, box.rect, work.is(QStyle::State_On) ? Surface::Button : buttonSurface(work),
                     palette);
        if (work.is(QStyle::State_HasFocus))
            paintFocusRing(&work.painter, box.rect, palette);
    }
    const Colour ink = work.is(QStyle::State_Enabled) ? Colour::SecondInk : Colour::FaintInk;
    const QRect arrow = work.style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, work.widget);
    const int side = box.fontMetrics.ascent();
    paintSign(&work.painter, QRect(arrow.center() - QPoint(side, side) / 2, QSize(side, side)), Sign::Down,
              colour(ink, palette));
}

QRect comboBoxPart(const QStyleOptionComplex &option, QStyle::SubControl part) {
    const QRect &rect = option.rect;
    const int arrow = option.fontMetrics.height() + space(Space::Tight, option.fontMetrics);
    const int left = space(Space::Small, option.fontMetrics) - 1;
    switch (part) {
    case QStyle::SC_ComboBoxArrow:
        return {rect.right() + 1 - arrow - focusWidth, rect.top(), arrow, rect.height()};
    case QStyle::SC_ComboBoxEditField:
        return rect.adjusted(left, focusWidth, -arrow - focusWidth, -focusWidth);
    default:
        return rect;
    }
}

void paintTick(const Work &work) {
    paintBox(work, boxOf(work), cornerRadius / 2.0);
    if (work.is(QStyle::State_On))
        paintSign(&work.painter, boxOf(work), Sign::Tick, signInk(work));
    else if (work.is(QStyle::State_NoChange))
        paintSign(&work.painter, boxOf(work), Sign::Dash, signInk(work));
}

void paintRadio(const Work &work) {
    const QRect box = boxOf(work);
    paintBox(work, box, box.width() / 2.0);
    if (!work.is(QStyle::State_On))
        return;
    constexpr int ring = 4;
    const QRect dot = box.adjusted(ring, ring, -ring, -ring);
    paintPanel(&work.painter, dot, signInk(work), signInk(work), dot.width() / 2.0);
}

} // namespace widgets
