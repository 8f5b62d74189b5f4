// The second proof: the office's rules about subfields, from the template "mobanJiaoDui.QVs" in the program's own
// folder. Only the first occurrence of a field is checked, and a field that the record does not have is skipped.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"
#include "proof/fault.h"
#include <array>

namespace proof {

struct TemplateProof {
    std::vector<Fault> faults; // each refers to its field
    QString complaint;         // the text of a box about a missing file, else empty
};

// The rules of the template, read from the file once.
class TemplateRules {
public:
    // `folder` is the program's own folder, with a separator at its end. Fails if the template cannot be opened.
    static platform::Result<TemplateRules> read(const QString &folder);

    std::vector<Fault> proof(const marc::FieldRows &rows) const;

private:
    struct Reference {
        QString tag;
        QChar code;
    };
    std::array<std::vector<Reference>, 2> m_references; // by kind of section
};

// Returns the box about a missing field list, without which the proof reports nothing; empty if there is one.
QString templateComplaint(const QString &folder);

// Reads the template and checks the rows against it. Fails if the template cannot be opened.
platform::Result<TemplateProof> proofTemplate(const marc::FieldRows &rows, const QString &folder);

} // namespace proof
