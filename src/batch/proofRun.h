// Checks a whole list and then searches for duplicates, in steps, and composes the texts about both.
#pragma once

#include "batch/duplicates.h"
#include "batch/proofFacts.h"
#include "batch/remarkList.h"
#include <map>

namespace batch {

class ProofRun {
public:
    ProofRun(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof, const database::SessionState &state,
             schema::SchemaInForce *schema = nullptr);

    bool hasNext() const;
    std::vector<Remark> step();

    // Returns the progress text; `found` is the number of remarks so far.
    QString progressText(int found) const;
    // Returns the result text, after end(). `inFile` is the number of records in the file as far as known.
    QString closingText(const RemarkList &found, qint64 inFile) const;
    // Completes the facts with those of the run, after its end or a stop.
    ProofFacts facts(ProofFacts known) const;
    // Returns the list for the remarks of this run, without remarks.
    RemarkList emptyList() const { return RemarkList(m_records, RuleBook(m_proof.schema())); }
    // Returns the value of PreReadStore::replacements() when the record was checked.
    int momentOf(int record) const;
    // Ends the run and closes the database connection.
    void end();
    // After end(): releases a part of the data that only the steps need; returns whether there is more.
    bool dropSome();

private:
    std::shared_ptr<const marc::PreReadStore> m_records;
    const database::SessionState &m_state;
    BatchProof m_proof;
    std::optional<DuplicateSearch> m_search; // created after the last record
    bool m_stopped = false;                  // before the end
    std::map<int, int> m_moments;            // by the first record checked with that value
};

} // namespace batch
