// A record while a task changes it. Every change goes through this class, which lists it, refuses those that the caller
// excludes, keeps the original record, and stops a task that makes the record grow without limit.
#pragma once

#include "marc/fieldedRecord.h"
#include "tasks/fieldTemplate.h"
#include <QVarLengthArray>

namespace tasks {

// One change of one field. Contents have indicators and delimiters of subfields, as marc::Field::content.
struct Change {
    int step = -1;      // index in the task
    QString tag;        // "LDR" for the leader; empty if fields were put in another order
    int occurrence = 1; // among the fields with that tag, when the step begins; 0 for a new field
    QString toTag;      // the new tag of a field; empty if it keeps its tag
    QString before;     // empty for a new field; for another order, the tags separated by blanks
    QString after;      // empty for a deleted field
    QString doubt;      // why the result should be checked; empty if it need not be
    friend bool operator==(const Change &, const Change &) = default;
};

// Returns whether both make the same change to fields of the same content. The occurrence is not compared: it depends
// on whether the previous changes were made.
bool isSame(const Change &a, const Change &b);

// How changes are treated.
struct Wishes {
    bool list = false;                    // in RecordWork::changes()
    const std::vector<Change> *without{}; // changes that are not made, compared by isSame(); null: none
};

using FieldIndexes = QVarLengthArray<size_t, 32>;

class RecordWork {
public:
    RecordWork(marc::FieldedRecord &record, const RunFacts &facts, const Wishes &wishes)
        : m_record(record)
        , m_facts(facts)
        , m_wishes(wishes) {}
    RecordWork(const RecordWork &) = delete;
    RecordWork &operator=(const RecordWork &) = delete;

    const marc::FieldedRecord &record() const { return m_record; }
    const marc::Field &field(size_t index) const { return m_record.fields[index]; }
    const RunFacts &facts() const { return m_facts; }

    void beginStep(int step) { m_step = step; }
    // Each of these makes one change, unless nothing would be different. Returns whether it was made.
    bool setLeader(const QString &leader);
    bool setContent(size_t field, QString content, const QString &doubt = {});
    bool insert(marc::Field field);                              // at its place among the tags
    bool moveTo(const FieldIndexes &fields, const QString &tag); // ascending; one change each
    bool remove(const FieldIndexes &fields);                     // ascending; one change each
    // Puts the fields into these places, which have them in another order.
    bool reorder(const FieldIndexes &places, const std::vector<marc::Field> &fields);

    // Stops the task: the record stays as it was. Keeps the first reason.
    void fail(const QString &why);
    bool failed() const { return !m_why.isEmpty(); }
    const QString &why() const { return m_why; }

    // The number of the record was used in a text.
    void useNumber() { m_numberUsed = true; }
    bool numberUsed() const { return m_numberUsed; }

    qint64 changesOfStep() const { return m_changesOfStep; }
    void resetStep() { m_changesOfStep = 0; }
    bool isChanged() const { return m_before.has_value(); }
    // The record as it was before its first change; only if it is changed.
    const marc::FieldedRecord &before() const { return *m_before; }
    void restore();
    std::vector<Change> takeChanges() { return std::move(m_changes); }

private:
    struct Proposal {
        QStringView tag;
        int field; // its index, to count its occurrence; -1: a new one, or none
        QStringView toTag;
        QStringView before;
        QStringView after;
        QStringView doubt;
    };
    bool admits(const Proposal &proposal);
    void erase(const FieldIndexes &fields);

    marc::FieldedRecord &m_record;
    const RunFacts &m_facts;
    const Wishes &m_wishes;
    int m_step = -1;
    qint64 m_changesOfStep = 0;
    qsizetype m_grown = 0; // characters
    bool m_numberUsed = false;
    QString m_why;
    std::optional<marc::FieldedRecord> m_before;
    std::vector<Change> m_changes;
};

} // namespace tasks
