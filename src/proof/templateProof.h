// The second proof: the office's rules about subfields, read again at each use from the template "mobanJiaoDui.QVs" in
// the program's own folder. Only the first occurrence of a field is checked, and a field that the record does not have
// is skipped.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"
#include "proof/fault.h"

namespace proof {

struct TemplateProof {
    std::vector<Fault> faults; // each refers to its field
    QString complaint;         // the text of a box about a missing file, else empty
};

// `folder` is the program's own folder, with a separator at its end. Fails if the template cannot be opened.
platform::Result<TemplateProof> proofTemplate(const marc::FieldRows &rows, const QString &folder);

} // namespace proof
