#include "workspace/windows/recordCommands.h"
#include "platform/paths.h"
#include "proof/proofChain.h"

using namespace Qt::StringLiterals;

namespace workspace {

RecordCommands::RecordCommands(RecordList &list, EditedRecord &record, RecordMoving &moving, platform::Host &host,
                               const WorkspaceWindows &windows)
    : m_list(list)
    , m_record(record)
    , m_moving(moving)
    , m_host(host)
    , m_windows(windows) {}

void RecordCommands::showCard(const QString &mode) {
    m_windows.showCard(
        m_record.rebuilt(m_host.now()), mode, [this](int by) { return step(by); }, m_list.window());
}

// Never steps to an empty row of the list, which would show the previous record again.
std::optional<marc::RawRecord> RecordCommands::step(int by) {
    const int next = m_list.shownRow(m_list.row(), by);
    if (next < 0 || m_list.records().record(next).isEmpty())
        return std::nullopt;
    m_moving.step(by);
    return m_record.rebuilt(m_host.now());
}

void RecordCommands::proof() {
    const auto proofed = proof::proofRecord(m_record.rows(), platform::pathWithSlash(m_host.programFolder()));
    if (!proofed)
        return m_host.tell(proofed.failure().description);
    if (const QString &complaint = proofed.value().complaint; !complaint.isEmpty())
        m_host.tell(complaint);
    if (const QString &report = proofed.value().report; !report.isEmpty())
        m_windows.showReport(report, m_list.window());
    else
        m_host.tell(proof::proofPassed.toString());
}

void RecordCommands::takeEdits() {
    if (m_record.state().edited && m_host.insist(u"本条记录已经改变,是否确定改变该记录?\r\n"
                                                 u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s,
                                                 {})) {
        // The title in the list and the `edited` mark do not change.
        if (const marc::RawRecord record = m_record.rebuilt(m_host.now()); !record.isEmpty()) {
            m_list.take(m_list.row(), record);
            m_record.takenOver();
        }
    }
}

std::optional<ImportOutcome> RecordCommands::importRecords(ReadState state, const QString &count,
                                                           const std::vector<marc::RefusedRecord> &leaveOut) {
    if (rulesOf(state).running) {
        m_host.tell(u"正在预读或者正在导入！请先结束预读或者结束导入！"_s);
        return std::nullopt;
    }
    takeEdits();
    return m_windows.runImport(m_list.sharedRecords(), count, leaveOut, m_list.window());
}

} // namespace workspace
