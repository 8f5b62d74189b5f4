// A row of groups of controls. If the row is too narrow for all groups side by side, each group gets a line of its own.
#pragma once

#include "widgets/layout.h"

namespace widgets {

class FoldingRow final : public QBoxLayout {
public:
    explicit FoldingRow(std::initializer_list<Item> groups);

    QSize sizeHint() const override;    // of one line
    QSize minimumSize() const override; // as narrow as the widest group, and with the current height of the row
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override { return heightForWidth(width); }
    void setGeometry(const QRect &place) override;

private:
    enum class Lines { One, OneForEach };
    Lines linesFor(int width) const;
    QSize sizeOf(Lines lines, QSize (QLayoutItem::*size)() const) const;
};

} // namespace widgets
