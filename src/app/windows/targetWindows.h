// Makes the window that searches other libraries' catalogues, and supplies the functions of other folders about a
// record: its card, its faults, and whether the library has it.
#pragma once

#include "database/sublib.h"
#include "targets/windows/frmSearch.h"

namespace app {

class TargetWindows {
public:
    // `open` shows a record file in the pre-read window.
    TargetWindows(platform::Host &host, const database::SessionState &state,
                  std::function<void(const QString &file, QWidget *owner)> open);

    // Returns when the window is closed.
    void search(QWidget *owner, const targets::Query &query = {}, const targets::CurrentRecord &current = {});

    // The functions for the window. Valid as long as this object.
    targets::Surroundings surroundings() const;

private:
    targets::HoldingSearch searchHoldings(const std::vector<marc::FieldedRecord> &records) const;
    targets::FoundRecords::Proof proof() const;

    platform::Host &m_host;
    const database::SessionState &m_state;
    std::function<void(const QString &file, QWidget *owner)> m_open;
};

} // namespace app
