#include "proof/proofChain.h"
#include "marc/configurationFiles.h"
#include "proof/isbn.h"
#include "proof/structuralProof.h"
#include <QFileInfo>
#include <utility>

namespace proof {

namespace {

// The first two proofs end every line with CR LF; one more CR LF makes an empty line between the reports.
void join(QString &report, const QString &next) {
    report += report.isEmpty() ? next : QString(u"\r\n" + next);
}

} // namespace

RecordFaults faultsOf(const marc::FieldRows &rows, const QString &folder) {
    RecordFaults found{.structural = proofFields(rows), .isbn = proofISBN(rows)};
    if (auto byTemplate = proofTemplate(rows, folder)) {
        found.byTemplate = std::move(byTemplate.value().faults);
        found.complaint = byTemplate.value().complaint;
    } else {
        found.unread = byTemplate.failure();
    }
    return found;
}

RecordProofs::RecordProofs(QString folder, std::chrono::milliseconds interval)
    : m_folder(std::move(folder))
    , m_interval(interval) {}

RecordFaults RecordProofs::faultsOf(const marc::FieldRows &rows) {
    if (!m_looked.isValid() || m_looked.elapsed() >= m_interval.count())
        lookAtFiles();
    RecordFaults found{.structural = proofFields(rows), .isbn = proofISBN(rows), .complaint = m_complaint};
    if (!found.complaint.isEmpty())
        return found;
    if (m_rules->ok())
        found.byTemplate = m_rules->value().proof(rows);
    else
        found.unread = m_rules->failure();
    return found;
}

void RecordProofs::lookAtFiles() {
    m_looked.start();
    m_complaint = templateComplaint(m_folder);
    if (!m_complaint.isEmpty())
        return;
    const QFileInfo file(m_folder + marc::templateFile);
    const QDateTime changed = file.lastModified();
    if (m_rules && *m_rules && changed == m_changed && file.size() == m_size)
        return;
    m_changed = changed;
    m_size = file.size();
    m_rules = TemplateRules::read(m_folder);
}

platform::Result<RecordProof> proofRecord(const marc::FieldRows &rows, const QString &folder) {
    const RecordFaults found = faultsOf(rows, folder);
    if (found.unread)
        return *found.unread;
    RecordProof result{report(found.structural), found.complaint};
    if (!found.byTemplate.empty())
        join(result.report, report(found.byTemplate));
    if (!found.isbn.empty())
        join(result.report, u"【010$a】" + report(found.isbn));
    return result;
}

} // namespace proof
