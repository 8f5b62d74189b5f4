// The start page of the empty frame: a card with the steps of the work and the recent files, side by side where there
// is room. If the frame is too low, first the margins shrink, then the page scrolls; no caption is cut off.
#pragma once

#include "app/windows/pageEntry.h"
#include "platform/host.h"
#include <QBoxLayout>
#include <QLabel>
#include <QScrollArea>

namespace app {

class StartPage final : public QScrollArea {
    Q_OBJECT
public:
    explicit StartPage(platform::Host &host, QWidget *parent);

    // Lists the recent files again.
    void refresh();
    // Returns the size of the page for the available space. Hides recent files that do not fit.
    QSize fittedTo(const QSize &room);

    std::array<PageEntry *, 3> steps;
    PageEntry *tidy;
    PageEntry *handbook;
    PageEntry *fetch;
    PageEntry *tasks;
    QLabel *recentTitle;
    QList<PageEntry *> recent;

Q_SIGNALS:
    void fileChosen(const QString &path);

protected:
    void paintEvent(QPaintEvent *event) override; // the card

private:
    QLayout *content() const { return widget()->layout(); }
    QSize sizeIn(const QSize &room) const;

    platform::Host &m_host;
    QBoxLayout *m_recentFiles;
    QBoxLayout *m_sides; // the steps and the recent files
    QSize m_fittedTo;    // the space of the last call of fittedTo(); invalid after refresh()
};

} // namespace app
