#include "tour/cutTexts.h"
#include "widgets/clickLabel.h"
#include "widgets/pacedLabel.h"
#include <QAbstractButton>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QMdiArea>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

// Returns the size that the label's text needs at the label's current width.
QSize needed(const QLabel &label) {
    const QMargins edges = label.contentsMargins();
    if (label.wordWrap())
        return {0, label.heightForWidth(label.width())};
    if (label.textFormat() == Qt::RichText || Qt::mightBeRichText(label.text()))
        return label.minimumSizeHint();
    const QSize text = label.fontMetrics().size(Qt::TextShowMnemonic, label.text());
    return QSize(text.width() + 2 * label.margin(), text.height() + 2 * label.margin()).grownBy(edges);
}

// Returns the size that the button's text needs, including its indicator and its icon.
QSize needed(const QAbstractButton &button) {
    const QSize text = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
    if (qobject_cast<const widgets::ClickLabel *>(&button) && text.width() > button.width() + 1) // the text may wrap
        return button.fontMetrics().boundingRect(0, 0, button.width(), 0, Qt::TextWordWrap, button.text()).size();
    const auto *tool = qobject_cast<const QToolButton *>(&button);
    if (tool && tool->toolButtonStyle() == Qt::ToolButtonTextUnderIcon)
        return {text.width(), text.height() + tool->iconSize().height()};
    int beside = 0;
    if (qobject_cast<const QCheckBox *>(&button) || qobject_cast<const QRadioButton *>(&button))
        beside = button.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &button) +
                 button.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &button);
    else if (!button.icon().isNull())
        beside = button.iconSize().width();
    return {text.width() + beside, text.height()};
}

// Allows one pixel less than needed, because some sizes are rounded up to whole pixels.
bool isSquashed(const QWidget &widget, const QSize &needed) {
    return widget.width() + 1 < needed.width() || widget.height() + 1 < needed.height();
}

QString told(const QWidget &widget, const QString &text, const QSize &needed) {
    const auto spelled = [](const QSize &size) -> QString { return u"%1x%2"_s.arg(size.width()).arg(size.height()); };
    return u"%1 \"%2\" has %3 and needs %4"_s.arg(widget.objectName(), text.left(30), spelled(widget.size()),
                                                  spelled(needed));
}

// The columns of a grid have headings that fit, unless a user narrows them.
void addHeadings(QStringList &cut, const QHeaderView &header) {
    for (int section = 0; section < header.count(); ++section) {
        const QString text = header.model()->headerData(section, header.orientation()).toString();
        const int wide = header.fontMetrics().horizontalAdvance(text), has = header.sectionSize(section);
        if (!header.isSectionHidden(section) && wide > has)
            cut.append(u"heading \"%1\" has %2 and needs %3"_s.arg(text).arg(has).arg(wide));
    }
}

// One pixel is allowed for rounding. A moment may pass before the window manager places a frame, and until then the
// frame is as large as the window.
void addWindow(QStringList &cut, const QWidget &window) {
    const QRect frame = window.frameGeometry();
    if (!frame.isEmpty() && !window.screen()->geometry().adjusted(-1, -1, 1, 1).contains(frame))
        cut.append(u"window %1: %2x%3 at %4,%5 exceeds the screen"_s.arg(window.objectName())
                       .arg(frame.width())
                       .arg(frame.height())
                       .arg(frame.x())
                       .arg(frame.y()));
}

// The sign that a menu bar or toolbar shows if not all of its items fit.
bool hidesItems(const QWidget &widget) {
    return widget.objectName() == u"qt_menubar_ext_button" || widget.objectName() == u"qt_toolbar_ext_button";
}

// A layout that has too little space places its labels over each other.
void addOverlaps(QStringList &cut, const QList<QWidget *> &widgets) {
    QList<const QLabel *> labels;
    for (const QWidget *widget : widgets)
        if (const auto *label = qobject_cast<const QLabel *>(widget);
            label && label->isVisible() && !label->text().isEmpty())
            labels.append(label);
    for (const QLabel *one : labels)
        for (const QLabel *other : labels)
            if (one < other && one->parent() == other->parent() && one->geometry().intersects(other->geometry()))
                cut.append(u"\"%1\" lies over \"%2\""_s.arg(one->text().left(30), other->text().left(30)));
}

} // namespace

QStringList cutTexts(const QWidget *window) {
    QStringList cut;
    addWindow(cut, *window);
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    addOverlaps(cut, widgets);
    for (const QWidget *widget : widgets) {
        if (!widget->isVisible())
            continue;
        if (const auto *header = qobject_cast<const QHeaderView *>(widget);
            header && header->orientation() == Qt::Horizontal && header->model())
            addHeadings(cut, *header);
        if (hidesItems(*widget))
            cut.append(widget->parentWidget()->objectName() + u" hides some of its items");
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        const bool shortens =
            qobject_cast<const widgets::PacedLabel *>(widget) && widget->height() >= needed(*label).height();
        if (text.isEmpty() || shortens)
            continue;
        const auto *tool = qobject_cast<const QToolButton *>(widget);
        if (tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly)
            continue;
        const QSize size = label ? needed(*label) : needed(*button);
        if (isSquashed(*widget, size))
            cut.append(told(*widget, text, size));
    }
    return cut;
}

} // namespace tour
