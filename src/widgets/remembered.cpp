#include "widgets/remembered.h"
#include <QEvent>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

class PlaceKeeper final : public QObject {
public:
    PlaceKeeper(QWidget *window, const platform::DeskState &state)
        : QObject(window)
        , m_window(*window)
        , m_state(state)
        , m_key(window->objectName() + u"/geometry") {
        window->restoreGeometry(state.read(m_key).toByteArray());
        window->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Close)
            m_state.keep(m_key, m_window.saveGeometry());
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget &m_window;
    const platform::DeskState &m_state;
    QString m_key;
};

QString columnsOf(const QString &window) {
    return window + u"/columns";
}

} // namespace

void rememberPlace(QWidget *window, const platform::DeskState &state) {
    new PlaceKeeper(window, state);
}

void keepColumns(const FlexGrid &grid, const platform::DeskState &state, const QString &window) {
    QVariantMap widths;
    const QMap<int, int> drawn = grid.drawnWidths();
    for (auto width = drawn.begin(); width != drawn.end(); ++width)
        widths.insert(QString::number(width.key()), width.value());
    state.keep(columnsOf(window), widths);
}

void recallColumns(FlexGrid &grid, const platform::DeskState &state, const QString &window) {
    QMap<int, int> drawn;
    const QVariantMap widths = state.read(columnsOf(window)).toMap();
    for (auto width = widths.begin(); width != widths.end(); ++width)
        drawn.insert(width.key().toInt(), width.value().toInt());
    grid.setDrawnWidths(drawn);
}

} // namespace widgets
