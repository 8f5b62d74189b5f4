#include "workspace/recordCommands.h"
#include "platform/paths.h"
#include "proof/proofChain.h"
#include "workspace/fieldGrid.h"
#include "workspace/frmDaoru.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

const QString boxTitle = u"操作提示"_s;

} // namespace

RecordCommands::RecordCommands(frmDaoru &form, platform::Host &host, const WorkspaceWindows &windows)
    : m_form(form)
    , m_host(host)
    , m_windows(windows) {}

void RecordCommands::showCard(const QString &mode) {
    m_windows.showCard(m_form.madeMyMarc(), mode, &m_form);
}

void RecordCommands::proof() {
    const auto proofed = proof::proofRecord(fieldRows(*m_form.Grid1), platform::pathWithSlash(m_host.programFolder()));
    if (!proofed)
        return m_host.tell(proofed.failure().description, boxTitle);
    if (const QString &complaint = proofed.value().complaint; !complaint.isEmpty())
        m_host.tell(complaint, boxTitle);
    if (const QString &report = proofed.value().report; !report.isEmpty())
        m_windows.showReport(report, &m_form);
    else
        m_host.tell(proof::proofPassed.toString(), boxTitle);
}

void RecordCommands::importRecords() {
    const QString state = m_form.labJinDu->text();
    if (!m_form.labJinDu->isHidden() && state != u"导入结束" && state != u"预读结束")
        return m_host.tell(u"正在预读或者正在导入！请先结束预读或者结束导入！"_s, boxTitle);
    if (m_form.recordChanged == u"yes" &&
        m_host.insist(u"本条记录已经改变,是否确定改变该记录?\r\n"
                      u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s,
                      {})) {
        // The title in the list and the mark of a change stay as they are.
        if (const marc::RawRecord record = m_form.madeMyMarc(); !record.isEmpty())
            m_form.records().setRecord(m_form.Grid2->row(), record);
    }
    m_windows.runImport(m_form.sharedRecords(), m_form.Text3->pacedText(), &m_form);
}

} // namespace workspace
