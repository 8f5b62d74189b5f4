// Checks one record at a time: the proofs of a single record, check digits, and the schema in force.
#pragma once

#include "batch/formatProof.h"
#include "proof/proofChain.h"
#include <functional>
#include <optional>

namespace batch {

// Runs the proofs of one record.
using ProofOne = std::function<proof::RecordFaults(const marc::FieldRows &rows)>;

class RecordCheck {
public:
    // Without a source, records are not validated.
    explicit RecordCheck(ProofOne proof, schema::SchemaInForce *source = nullptr);

    // Returns the remarks about the rows of the record. A reason why a check could not run is a remark about the whole
    // batch; it is returned once.
    std::vector<Remark> remarksOn(int record, const marc::FieldRows &rows);
    // Takes the schema that is in force now.
    void renew();
    bool isUpToDate() const { return !m_source || (m_source->schema() == schema() && m_source->checks() == m_checks); }

    // Returns the schema in force, or null.
    const std::shared_ptr<const schema::Schema> &schema() const { return m_format->schema(); }
    schema::Checks checks() const { return m_checks; }

private:
    void remark(Kind kind, const QString &tag, int fieldRow, const QString &text);
    void takeFaults(const marc::FieldRows &rows);
    void checkNumbers(const marc::FieldRows &rows);

    ProofOne m_proof;
    schema::SchemaInForce *m_source;
    schema::Checks m_checks = schema::allChecks; // enabled in m_format
    std::optional<FormatProof> m_format;         // always present
    QString m_complaint;                         // the last reported reason why a proof could not run
    int m_record = -1;
    std::vector<Remark> m_remarks; // of the current record
};

} // namespace batch
