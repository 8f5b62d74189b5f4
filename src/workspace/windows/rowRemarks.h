// Checks the current record when it is shown and after each edit, marks its rows in the field grid, and reports the
// words about the current row.
#pragma once

#include "workspace/windows/fieldGrid.h"
#include "workspace/windows/workspaceWindows.h"

namespace workspace {

class RowRemarks final : public QObject {
    Q_OBJECT
public:
    // Returns the remarks about the rows of a record.
    using Check = std::function<std::vector<RowRemark>(const marc::FieldRows &rows)>;

    RowRemarks(FieldGrid &fields, EditedRecord &record, Check check);

    void renew();     // checks the record again
    void tellWords(); // call when another row of the grid is current

Q_SIGNALS:
    void told(const QString &words); // about the current row; empty if there are none

private:
    FieldGrid &m_fields;
    EditedRecord &m_record;
    Check m_check;
};

} // namespace workspace
