// A frame in the highlight colour around a widget that is laid over others: an open editor, a list to choose from. It
// is shown, hidden and moved with that widget and lets the mouse through.
#pragma once

#include <QWidget>

namespace widgets {

class AccentFrame final : public QWidget {
    Q_OBJECT
public:
    static constexpr int width = 2; // pixels

    // A sibling of `framed`, which outlives it or takes it along.
    explicit AccentFrame(QWidget *framed);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();

    QWidget *m_framed;
};

} // namespace widgets
