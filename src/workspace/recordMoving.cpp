#include "workspace/recordMoving.h"
#include "marc/fieldLookup.h"
#include "workspace/fieldGrid.h"
#include "workspace/frmDaoru.h"

using namespace Qt::StringLiterals;

namespace workspace {

RecordMoving::RecordMoving(frmDaoru &form, platform::Host &host)
    : m_form(form)
    , m_host(host) {}

void RecordMoving::markCurrent() {
    const int row = m_form.Grid2->row();
    m_form.Text2->setText(m_form.records().number(row));
    m_form.Grid2->setColumn(titleColumn);
    m_form.Grid2->setCellBackground(row, titleColumn, currentRecordColour);
}

void RecordMoving::clickStep() {
    if (m_form.Grid2->rowSel() != m_form.Grid2->row())
        m_form.Grid2->setRowSel(m_form.Grid2->row());
    markCurrent();
}

void RecordMoving::keyStep(int key) {
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        markCurrent();
}

void RecordMoving::enterStep() {
    markCurrent();
    const marc::RawRecord record = m_form.records().record(m_form.Grid2->row());
    if (record.isEmpty())
        return; // the field grid keeps the record before it
    m_form.showRecord(record);
    // What was edited is no longer in the grid, whatever road led here: nothing may be asked about it again.
    m_form.recordChanged.clear();
}

QString RecordMoving::rebuiltIfWanted() {
    if (!m_host.insist(u"本条记录已经改变,是否确定暂时改变该记录?\r\n"
                       u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s,
                       {}))
        return {};
    const marc::RawRecord record = m_form.madeMyMarc();
    if (record.isEmpty())
        m_host.tell(u"修改失败!"_s, u"操作提示"_s);
    return record;
}

void RecordMoving::leaveStep() {
    const int row = m_form.Grid2->row();
    m_form.Grid2->setCellBackground(row, titleColumn, visitedRecordColour);
    if (m_form.recordChanged != u"yes")
        return;
    if (const marc::RawRecord record = rebuiltIfWanted(); !record.isEmpty()) {
        m_form.records().setRecord(row, record);
        const QString title = marc::readZd(record, u"200a", m_form.damagedDirectory()).value_or(QString());
        if (!title.isEmpty())
            m_form.setTitle(row, title);
    }
    m_form.recordChanged.clear();
}

void RecordMoving::step(int by) {
    const int row = m_form.Grid2->row();
    const int next = row + by;
    if (row < 0 || next < 0 || next >= m_form.records().rowCount())
        return;
    if (m_form.recordChanged == u"yes") {
        // The title in the list stays as it is, and the mark of a change stands until the next record is entered.
        if (const marc::RawRecord record = rebuiltIfWanted(); !record.isEmpty())
            m_form.records().setRecord(row, record);
    }
    m_form.Grid2->setCellBackground(row, titleColumn, visitedRecordColour);
    m_form.Grid2->setRow(next);
    enterStep();
}

} // namespace workspace
