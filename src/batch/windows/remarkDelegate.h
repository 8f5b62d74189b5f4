// Paints the table of remarks, with a mark before the level of each.
#pragma once

#include "batch/remarkList.h"
#include "widgets/flexGridColours.h"

namespace batch {

widgets::Mark markOf(schema::Level level);

class RemarkDelegate final : public widgets::FlexGridDelegate {
public:
    RemarkDelegate(const std::shared_ptr<RemarkList> &list, QObject *parent)
        : FlexGridDelegate(parent)
        , m_list(list) {}

protected:
    std::optional<CellMark> markOf(const QModelIndex &index) const override;

private:
    const std::shared_ptr<RemarkList> &m_list; // the table replaces it
};

} // namespace batch
