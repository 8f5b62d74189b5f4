// The user's choices about remarks, kept between starts: the silenced rules, and whether the current record is marked
// where it has remarks.
#pragma once

#include "batch/silencedRules.h"
#include "platform/deskState.h"
#include <QObject>

namespace batch {

class Reminders final : public QObject {
    Q_OBJECT
public:
    explicit Reminders(const platform::DeskState &state, QObject *parent = nullptr);

    const SilencedRules &silenced() const { return m_silenced; }
    void silence(const SilencedRule &rule);
    void takeBack(const SilencedRule &rule);
    bool marksRows() const { return m_marksRows; }
    void markRows(bool marks);

Q_SIGNALS:
    void changed();

private:
    void keepSilenced();

    const platform::DeskState &m_state;
    SilencedRules m_silenced;
    bool m_marksRows;
};

} // namespace batch
