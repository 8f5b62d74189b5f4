// Checks all records of a list one after the other, and reports ISBNs that two records share. Changes nothing.
#pragma once

#include "batch/recordCheck.h"
#include "batch/soughtBooks.h"
#include "marc/preReadStore.h"
#include <memory>

namespace batch {

class BatchProof {
public:
    // Records are also validated against the schema in force, if there is a source of one.
    BatchProof(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof,
               schema::SchemaInForce *schema = nullptr);

    // Returns whether a row of the list is left. The list may grow or be cleared between two steps.
    bool hasNext() const { return m_next < m_records->rowCount(); }
    // Returns the remarks about the next row, or none if the row is empty.
    std::vector<Remark> step();

    // Returns the schema in force, or null.
    const std::shared_ptr<const schema::Schema> &schema() const { return m_check.schema(); }
    schema::Checks checks() const { return m_check.checks(); }

    int next() const { return m_next; }     // row of the list for the next step
    int proved() const { return m_proved; } // records checked so far
    int total() const;                      // records currently in the list, without empty rows at its end
    // Moves out the books of the records checked so far.
    SoughtBooks takeBooks() { return std::move(m_books); }

private:
    void remark(Kind kind, const QString &tag, int fieldRow, const QString &text);
    void compare(const BookIdentity &identity);

    std::shared_ptr<const marc::PreReadStore> m_records;
    RecordCheck m_check;
    int m_next = 0;
    int m_proved = 0;
    SoughtBooks m_books;
    marc::ShownRecord m_shown;     // the current record
    std::vector<Remark> m_remarks; // on it
};

} // namespace batch
