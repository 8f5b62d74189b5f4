#include "batch/reminders.h"

namespace batch {

namespace kept = platform::kept;

Reminders::Reminders(const platform::DeskState &state, QObject *parent)
    : QObject(parent)
    , m_state(state)
    , m_silenced(state.value(kept::silencedRules))
    , m_marksRows(state.value(kept::rowsMarked)) {}

void Reminders::silence(const SilencedRule &rule) {
    m_silenced.add(rule);
    keepSilenced();
}

void Reminders::takeBack(const SilencedRule &rule) {
    m_silenced.remove(rule);
    keepSilenced();
}

void Reminders::keepSilenced() {
    m_state.keep(kept::silencedRules, m_silenced.toTexts());
    Q_EMIT changed();
}

void Reminders::markRows(bool marks) {
    m_marksRows = marks;
    m_state.keep(kept::rowsMarked, marks);
    Q_EMIT changed();
}

} // namespace batch
