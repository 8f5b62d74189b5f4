#include "proof/proofChain.h"
#include "proof/isbn.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"

namespace proof {

namespace {

// The first two proofs end every line with CR LF, and one more goes between: an empty line parts their reports.
void join(QString &report, const QString &next) {
    report += report.isEmpty() ? next : QString(u"\r\n" + next);
}

} // namespace

platform::Result<RecordProof> proofRecord(const marc::FieldRows &rows, const QString &folder) {
    RecordProof result{proofFields(rows), {}};
    const auto byTemplate = proofTemplate(rows, folder);
    if (!byTemplate)
        return byTemplate.failure();
    result.complaint = byTemplate.value().complaint;
    if (!byTemplate.value().report.isEmpty())
        join(result.report, byTemplate.value().report);
    if (const auto isbn = proofISBN(rows))
        join(result.report, u"【010$a】" + *isbn);
    return result;
}

} // namespace proof
