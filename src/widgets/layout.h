// Layouts as one expression a window: column({row({label, box}), grid, row({stretch(), button})}); and the names of the
// controls in them.
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

// An item with its share of the space.
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

QBoxLayout *row(std::initializer_list<Item> items);
QBoxLayout *column(std::initializer_list<Item> items);
// Puts the layout into the frame and gives the frame back.
QGroupBox *framed(QGroupBox *frame, QLayout *content);
// Names the control after its label, without the access key in parentheses, which leads there. Gives the label back.
QLabel *naming(QLabel *label, QWidget *control);
// Label and control side by side, the control named after the label.
QBoxLayout *labelled(QLabel *label, QWidget *control);
// What a control does beyond what its caption says, and its key: shown under the mouse and told to a screen reader.
struct Hint {
    QWidget *control;
    QStringView words;
};
void hint(std::initializer_list<Hint> hints);
// A text as it stands for a tool tip, which takes what looks like markup for that otherwise.
QString plainTip(const QString &text);
// Lets Tab go through the controls of the window as they stand in its layouts, whatever the order of their making.
void tabInReadingOrder(QWidget *window);
// A control that keeps its place when it is hidden, so that nothing jumps.
void keepPlace(QWidget *control);

// Gives the control its own name and, where it is not to speak for itself, the one that a screen reader says.
template <class Control>
Control *named(Control *control, const QString &objectName, const QString &accessibleName = {}) {
    control->setObjectName(objectName);
    if (!accessibleName.isEmpty())
        control->setAccessibleName(accessibleName);
    return control;
}

} // namespace widgets
