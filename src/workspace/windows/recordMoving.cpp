#include "workspace/windows/recordMoving.h"
#include "platform/paths.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

RecordMoving::RecordMoving(RecordList &list, EditedRecord &record, platform::Host &host, marc::DamagedDirectory damaged)
    : m_list(list)
    , m_record(record)
    , m_host(host)
    , m_damaged(std::move(damaged)) {}

void RecordMoving::showRecord(const marc::RawRecord &record) {
    const QString complaint = m_record.show(record, platform::pathWithSlash(m_host.programFolder()), m_damaged);
    if (!complaint.isEmpty())
        m_host.tell(complaint);
}

void RecordMoving::enterStep() {
    m_list.markCurrent();
    const marc::RawRecord record = m_list.records().record(m_list.row());
    if (record.isEmpty())
        return; // the field grid keeps the previous record
    showRecord(record);
}

QString RecordMoving::rebuiltIfWanted() {
    if (!m_host.insist(u"本条记录已经改变,是否确定暂时改变该记录?\r\n"
                       u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s,
                       {}))
        return {};
    const marc::RawRecord record = m_record.rebuilt(m_host.now());
    if (record.isEmpty())
        m_host.tell(u"修改失败!"_s);
    return record;
}

void RecordMoving::leaveStep() {
    const int row = m_list.row();
    m_list.markVisited();
    if (!m_record.state().edited)
        return m_record.leave(EditedRecord::Mark::Goes);
    if (const marc::RawRecord record = rebuiltIfWanted(); !record.isEmpty()) {
        m_list.take(row, record);
        const QString title = marc::readZd(record, u"200a", m_damaged).value_or(QString());
        if (!title.isEmpty())
            m_list.setTitle(row, title);
    }
    m_record.leave(EditedRecord::Mark::Goes);
}

void RecordMoving::step(int by) {
    const int row = m_list.row();
    const int next = m_list.shownRow(row, by);
    if (row < 0 || next < 0)
        return;
    if (m_record.state().edited) {
        // The title in the list does not change, and the `edited` mark remains until a record is shown.
        if (const marc::RawRecord record = rebuiltIfWanted(); !record.isEmpty())
            m_list.take(row, record);
    }
    m_record.leave(EditedRecord::Mark::Stays);
    m_list.markVisited();
    m_list.setRow(next);
    enterStep();
}

} // namespace workspace
