// A frame in the accent colour around a widget that overlaps others, such as an open editor or a list of choices. It
// is shown, hidden and moved with that widget and is transparent to the mouse.
#pragma once

#include "widgets/styleTokens.h"
#include <QWidget>

namespace widgets {

class AccentFrame final : public QWidget {
    Q_OBJECT
public:
    static constexpr int width = focusWidth; // pixels

    // Becomes a sibling of `framed`, and is deleted when `framed` is destroyed.
    explicit AccentFrame(QWidget *framed);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();

    QWidget *m_framed;
};

} // namespace widgets
