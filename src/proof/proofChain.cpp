#include "proof/proofChain.h"
#include "proof/isbn.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"
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
