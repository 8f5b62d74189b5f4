// The start page of the empty frame: the three steps of the work, the recent files and the current database. If the
// frame is too low, first the margins shrink, then the page scrolls; no caption is cut off.
#pragma once

#include "platform/host.h"
#include "widgets/button.h"
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace app {

class StartPage final : public QScrollArea {
    Q_OBJECT
public:
    explicit StartPage(platform::Host &host, QWidget *parent);

    // Lists the recent files again.
    void refresh();
    // Returns the size of the page for the available space. Hides recent files that do not fit.
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
    QSize m_fittedTo; // the space of the last call of fittedTo(); invalid after refresh()
};

} // namespace app
