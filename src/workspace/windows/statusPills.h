// The line below the grids: each fact of its text is painted as a tinted pill, a warning in the colours of a warning.
// The keys without a caption are shown at the right if there is space.
#pragma once

#include "widgets/pacedLabel.h"

namespace workspace {

class StatusPills final : public widgets::PacedLabel {
    Q_OBJECT
public:
    using PacedLabel::PacedLabel;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace workspace
