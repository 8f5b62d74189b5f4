// Validates the records of one run against the schema in force.
#pragma once

#include "batch/remark.h"
#include "marc/fieldRows.h"
#include "schema/schemaChoice.h"
#include "schema/validator.h"
#include <utility>

namespace batch {

class FormatProof {
public:
    // Without a source, or if no schema can be read, no record has a finding.
    explicit FormatProof(schema::SchemaInForce *source);

    // Returns, at the first call, why the schema in force could not be read; empty if it was, or if there is no source.
    QString takeComplaint() { return std::exchange(m_complaint, {}); }

    // Returns the remarks about the rows, without record and title. What `others`, the remarks of the other proofs,
    // already report is left out: missing and repeated fields and subfields.
    std::vector<Remark> remarksOn(const marc::FieldRows &rows, const std::vector<Remark> &others);

private:
    Remark remarkOf(const schema::Finding &finding);

    std::optional<schema::Validator> m_validator;
    QString m_complaint;
    schema::RecordView m_view;
    std::vector<QString> m_tags; // by number; shared by all remarks
};

} // namespace batch
