// The second proof: what an office demands of subfields, read afresh from the template "mobanJiaoDui.QVs" beside the
// program. Only the first occurrence of a field is looked at, and a field that the record does not have is passed over.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"
#include "proof/fault.h"

namespace proof {

struct TemplateProof {
    std::vector<Fault> faults; // each stands at its field
    QString complaint;         // the text of a box about a missing file, else empty
};

// `folder` is the program's own, with a separator at its end. Fails where the template cannot be opened.
platform::Result<TemplateProof> proofTemplate(const marc::FieldRows &rows, const QString &folder);

} // namespace proof
