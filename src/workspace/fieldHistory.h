// The undo history of the current record. Each state differs from the previous one in something that the user can see
// or that is part of the built record.
#pragma once

#include "workspace/recordState.h"
#include <optional>
#include <vector>

namespace workspace {

class FieldHistory {
public:
    // Starts a new history with the state of a record.
    void begin(const RecordState &state);
    // Adds the state after a command. A state that differs from the current one only in its marks replaces it.
    void note(const RecordState &state);
    // Marks every state as edited, because the list holds one of them or because a mark was set without an undo step.
    void markEdited();

    struct Step {
        RecordState state; // to be restored
        QString words;     // the change that the step made, such as "修改 200$a"
    };
    std::optional<Step> back();    // std::nullopt if there is nothing to undo
    std::optional<Step> forward(); // std::nullopt if there is nothing to redo

private:
    std::vector<RecordState> m_states{1};
    size_t m_at = 0; // index of the current state
};

} // namespace workspace
