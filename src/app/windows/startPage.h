// What the empty frame shows: the three steps of the work, the files used last, the database in use. Where the frame is
// too low for that, the margins give way first, then it scrolls: no caption is cut.
#pragma once

#include "platform/host.h"
#include "widgets/window.h"
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace app {

class StartPage final : public QScrollArea {
    Q_OBJECT
public:
    explicit StartPage(platform::Host &host, QWidget *parent);

    // The files used last may be other ones.
    void refresh();
    // The size it takes in so much room; of the last files those that have none are hidden.
    QSize fittedTo(const QSize &room);

    std::array<widgets::Button *, 3> steps;
    widgets::Button *tidy;
    widgets::Button *handbook;
    QLabel *recentTitle;
    QList<widgets::Button *> recent;
    QLabel *databaseWords;

Q_SIGNALS:
    void fileChosen(const QString &path);

private:
    QLayout *content() const { return widget()->layout(); }
    QSize sizeIn(const QSize &room) const;

    platform::Host &m_host;
    QVBoxLayout *m_recentFiles;
    QSize m_fittedTo; // the room that the last files were fitted to; none since they changed
};

} // namespace app
