// The boxes of an assistant in one row, each below its label and next to the button that opens its list. The row
// scrolls horizontally if the screen is too narrow.
#pragma once

#include "assist/codedBoxes.h"
#include "assist/windows/codeBox.h"
#include <QScrollArea>
#include <span>
#include <vector>

class QBoxLayout;
class QToolButton;

namespace assist {

// QFrame has a Box of its own, hence the qualified names.
class BoxStrip : public QScrollArea {
    Q_OBJECT
public:
    // `table` must outlive the object.
    BoxStrip(std::span<const assist::Box> table, QWidget *parent);

    std::vector<CodeBox *> boxes;       // one for each row of the table, in tab order
    std::vector<QWidget *> labels;      // several boxes may share one; clickable if its box takes codes from the list
    std::vector<QToolButton *> buttons; // of the boxes that take codes from the list

Q_SIGNALS:
    void listWanted(int box); // by its button or by a key

private:
    QLayout *layOut(std::span<const assist::Box> table);
    QWidget *makeLabel(const assist::Box &row, QWidget *box);
    QToolButton *makeButton(const assist::Box &row);
    void fit();
};

} // namespace assist
