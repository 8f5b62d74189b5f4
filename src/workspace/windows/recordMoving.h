// Moves between the records of the list: leaves the current row and enters another one, by the list or by the two
// buttons, and shows a record in the field grid.
#pragma once

#include "platform/host.h"
#include "workspace/editedRecord.h"
#include "workspace/windows/recordList.h"

namespace workspace {

class RecordMoving {
public:
    RecordMoving(RecordList &list, EditedRecord &record, platform::Host &host, marc::DamagedDirectory damaged);

    void showRecord(const marc::RawRecord &record);
    void enterStep();
    void leaveStep();
    void step(int by); // -1 or 1, for the buttons

private:
    // Asks whether to keep the edits and builds the record. Returns an empty text if they are not to be kept, or on a
    // failure, which is reported.
    QString rebuiltIfWanted();

    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    marc::DamagedDirectory m_damaged;
};

} // namespace workspace
