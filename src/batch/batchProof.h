// All records of a list, proved one after the other: what the proofs of one record say, and what shows only when it is
// looked at in numbers: check digits, and one ISBN on two records. Nothing is changed.
#pragma once

#include "batch/bookIdentity.h"
#include "batch/remark.h"
#include "marc/preReadStore.h"
#include "proof/proofChain.h"
#include <QHash>
#include <functional>
#include <memory>

namespace batch {

// The proofs of one record.
using ProofOne = std::function<proof::RecordFaults(const marc::FieldRows &rows)>;

// A record and what others of its kind are found by.
struct SoughtRecord {
    int record = 0; // row in the list, from 0
    QString listTitle;
    BookIdentity identity;
};

class BatchProof {
public:
    BatchProof(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof);

    // Whether a row of the list is left. The list may grow or be emptied between two steps.
    bool hasNext() const { return m_next < m_records->rowCount(); }
    // What is to be said of the next row; nothing of one where no record stands.
    std::vector<Remark> step();

    int next() const { return m_next; }     // row in the list of the next step
    int proved() const { return m_proved; } // records so far
    int total() const;                      // as the list stands now
    // The records seen so far that can be looked for elsewhere.
    std::vector<SoughtRecord> takeSought() { return std::move(m_sought); }

private:
    void remark(Kind kind, const QString &tag, int fieldRow, const QString &text);
    void takeFaults(const marc::FieldRows &rows);
    void checkNumbers(const marc::FieldRows &rows);
    void compare(BookIdentity identity);

    std::shared_ptr<const marc::PreReadStore> m_records;
    ProofOne m_proof;
    int m_next = 0;
    int m_proved = 0;
    QString m_complaint; // the one told last: what kept a proof from its work
    QHash<proof::IsbnKey, int> m_firstOf;
    std::vector<SoughtRecord> m_sought;
    std::vector<Remark> m_remarks; // of the record in hand
};

} // namespace batch
