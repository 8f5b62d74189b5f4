// The proof of a whole list and, after it, the search for its duplicates: a step at a time, with the words about both.
#pragma once

#include "batch/duplicates.h"
#include <map>

namespace batch {

class ProofRun {
public:
    ProofRun(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof, const database::SessionState &state);

    bool hasNext() const;
    std::vector<Remark> step();

    // How far the run has got, `found` remarks so far.
    QString progressText(int found) const;
    // What came of it, after its end or a stop. `inFile`: the records of the file, as far as is known.
    QString closingText(const RemarkList &found, qint64 inFile) const;
    // PreReadStore::replacements() at the proof of a record.
    int momentOf(int record) const;
    // Lets go of what only the steps need: the server, the records that were looked for.
    void end() { m_search.reset(); }

private:
    std::shared_ptr<const marc::PreReadStore> m_records;
    const database::SessionState &m_state;
    BatchProof m_proof;
    std::optional<DuplicateSearch> m_search; // begins after the last record
    std::map<int, int> m_moments;            // from a record on
};

} // namespace batch
