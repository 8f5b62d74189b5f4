// Builds the layout of a window in one expression, such as column({row({label, box}), grid, row({stretch(), button})}),
// and names the controls in it.
#pragma once

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QWidget>
#include <initializer_list>
#include <variant>

namespace widgets {

struct Stretch {
    int factor = 1;
};
inline Stretch stretch(int factor = 1) {
    return Stretch{factor};
}

// An item of a layout with its stretch factor.
struct Item {
    std::variant<QWidget *, QLayout *, Stretch> content;
    int share = 0;
    Item(QWidget *widget, int share = 0)
        : content(widget)
        , share(share) {}
    Item(QLayout *layout, int share = 0)
        : content(layout)
        , share(share) {}
    Item(Stretch gap)
        : content(gap) {}
};

// Adds the items to the layout. Returns the layout.
QBoxLayout *fill(QBoxLayout *box, std::initializer_list<Item> items);
QBoxLayout *row(std::initializer_list<Item> items);
QBoxLayout *column(std::initializer_list<Item> items);
// Sets the layout of the frame. Returns the frame.
QGroupBox *framed(QGroupBox *frame, QLayout *content);
// Names the control after its label, without the access key in parentheses, and makes the access key focus the control.
// Returns the label.
QLabel *naming(QLabel *label, QWidget *control);
// Returns a row with the label and the control, which is named after the label.
QBoxLayout *labelled(QLabel *label, QWidget *control);
// The key of a control and what it does beyond its caption: shown as a tool tip and read by a screen reader.
struct Hint {
    QWidget *control;
    QStringView words;
};
void hint(std::initializer_list<Hint> hints);
// Returns the text as rich text, so that a tool tip does not interpret markup in it.
QString plainTip(const QString &text);
// Sets the tab order of the window to the order of the controls in its layouts, regardless of the order of their
// creation.
void tabInReadingOrder(QWidget *window);
// Gives the control a minimum width, but not more than three fifths of the screen.
void giveWidth(QWidget *control, int pixels);
// Returns a line that separates groups of controls.
QFrame *hairline(QWidget *parent);
// Makes a hidden control keep its space, so that other controls do not move.
void keepPlace(QWidget *control);

// Sets the name of the control for a screen reader. For a combo box, a screen reader reads the current entry as the
// name, so the name also becomes its description and that of its open list.
void nameForReader(QWidget *control, const QString &name);
// Sets the text that a screen reader reads after the name, such as a hint or a fault. Call it after nameForReader().
void describeForReader(QWidget *control, const QString &words);
// Sets the object name of the control and, if given, its accessible name. Returns the control.
template <class Control>
Control *named(Control *control, const QString &objectName, const QString &accessibleName = {}) {
    control->setObjectName(objectName);
    if (!accessibleName.isEmpty())
        nameForReader(control, accessibleName);
    return control;
}

} // namespace widgets
