#include "widgets/remembered.h"
#include <QEvent>

namespace widgets {

namespace kept = platform::kept;

namespace {

class PlaceKeeper final : public QObject {
public:
    PlaceKeeper(QWidget *window, const platform::DeskState &state)
        : QObject(window)
        , m_window(*window)
        , m_state(state) {
        window->restoreGeometry(state.value(kept::geometry, window->objectName()));
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Close)
            m_state.keep(kept::geometry, m_window.objectName(), m_window.saveGeometry());
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget &m_window;
    const platform::DeskState &m_state;
};

} // namespace

void rememberPlace(QWidget *window, const platform::DeskState &state) {
    new PlaceKeeper(window, state);
}

void keepColumns(const FlexGrid &grid, const platform::DeskState &state, const QString &window) {
    QVariantMap widths;
    const QMap<int, int> drawn = grid.drawnWidths();
    for (auto width = drawn.begin(); width != drawn.end(); ++width)
        widths.insert(QString::number(width.key()), width.value());
    state.keep(kept::columns, window, widths);
}

void recallColumns(FlexGrid &grid, const platform::DeskState &state, const QString &window) {
    QMap<int, int> drawn;
    const QVariantMap widths = state.value(kept::columns, window);
    for (auto width = widths.begin(); width != widths.end(); ++width)
        drawn.insert(width.key().toInt(), width.value().toInt());
    grid.setDrawnWidths(drawn);
}

} // namespace widgets
