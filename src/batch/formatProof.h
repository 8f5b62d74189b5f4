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

    // Adds the remarks about the rows of the record. Faults that `remarks`, those of the other proofs, already report
    // are left out: missing and repeated fields and subfields, wrong ISBNs and ISSNs. A repeated field that the schema
    // does not allow either becomes an error.
    void addRemarks(int record, const marc::FieldRows &rows, std::vector<Remark> &remarks);

    // Returns the schema, or null if there is none.
    const std::shared_ptr<const schema::Schema> &schema() const { return m_schema; }

private:
    bool isReportedBy(const Remark &remark, const Remark &finding) const;

    std::shared_ptr<const schema::Schema> m_schema;
    std::optional<schema::Validator> m_validator;
    QString m_complaint;
    schema::RecordView m_view;
};

} // namespace batch
