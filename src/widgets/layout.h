// Layouts as one expression a window: column({row({label, box}), grid, row({stretch(), button})}).
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
// Label and control side by side; the label's access key leads to the control, which is named after the label.
QBoxLayout *labelled(QLabel *label, QWidget *control);

} // namespace widgets
