// Moving between the records of the list: what is done when a row of it stops being current and another one becomes so,
// by the user's hand in the list or by the two buttons; and a record's way into the field grid.
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
    void step(int by); // -1 and 1: the buttons

private:
    // Asks whether to keep the edits and builds the record; nothing where they are not to be kept. Tells a failure.
    QString rebuiltIfWanted();

    RecordList &m_list;
    EditedRecord &m_record;
    platform::Host &m_host;
    marc::DamagedDirectory m_damaged;
};

} // namespace workspace
