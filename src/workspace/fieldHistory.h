// The states that the current record went through, for undo and redo. Each state differs from the one before it in
// something that a user can see or that the built record holds.
#pragma once

#include "workspace/recordState.h"
#include <optional>
#include <vector>

namespace workspace {

class FieldHistory {
public:
    // Starts with the state of a record; earlier states are gone.
    void begin(const RecordState &state);
    // The state after a command. A state that differs from the current one in its marks alone replaces it.
    void note(const RecordState &state);
    // Every state counts as edited from now on: the list holds one of them, or a mark was set that no step sets.
    void markEdited();

    struct Step {
        RecordState state; // to be restored
        QString words;     // what the step did, as "修改 200$a"
    };
    std::optional<Step> back();    // nothing where there is nothing to undo
    std::optional<Step> forward(); // nothing where there is nothing to redo

private:
    std::vector<RecordState> m_states{1};
    std::size_t m_at = 0; // the current one
};

} // namespace workspace
