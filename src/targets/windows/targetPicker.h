// The list of targets, each with a tick if it is searched and with its state below its name. The ticks are kept between
// starts; at first there are none.
#pragma once

#include "platform/host.h"
#include "targets/targetShelf.h"
#include <QListWidget>

namespace targets {

class TargetPicker final : public QListWidget {
    Q_OBJECT
public:
    explicit TargetPicker(platform::Host &host, QWidget *parent = nullptr);

    // Lists the targets of the shelf, without states.
    void show(const TargetShelf &shelf);
    // The ticked targets, in the order of the list.
    TargetList chosen() const;
    // Locks the ticks during a search.
    void lock(bool locked);
    // Shows states, one for each target of chosen() at the time of the search.
    void beginStates();
    void setState(int index, const QString &words);
    // Ticks the chosen target or removes its tick by the keyboard or the mouse; for tests.
    void tick(int row, bool ticked);

private:
    void keep();
    QStringList chosenNames() const;

    platform::Host &m_host;
    TargetList m_targets;
    std::vector<int> m_asked; // rows of the running or last search
    bool m_filling = false;
};

} // namespace targets
