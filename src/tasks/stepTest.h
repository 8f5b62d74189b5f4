// The test of a step, prepared for many records.
#pragma once

#include "marc/fieldedRecord.h"
#include "tasks/tagSet.h"
#include "tasks/task.h"
#include <QRegularExpression>
#include <QSet>

namespace tasks {

enum class Answer { Yes, No, GivenUp }; // GivenUp: a regular expression needed too many steps

class StepTest {
public:
    // The values must be valid; see checkStep().
    StepTest(Test test, const Values &values);

    // Returns whether the test applies to each field on which the action works; otherwise it applies to the record.
    bool isOfField() const { return m_ofField; }
    // `remarks` are the names of the rules that the record violates.
    Answer askRecord(const marc::FieldedRecord &record, const QSet<QString> &remarks) const;
    Answer askField(const marc::Field &field) const;

private:
    Answer findIn(const marc::FieldedRecord &record) const;
    Answer findIn(const marc::Field &field) const;
    Answer findIn(QStringView text) const;

    Test m_test; // not a negated one
    bool m_negated = false;
    bool m_ofField = false;
    bool m_ofLeader = false;
    TagSet m_tags;
    QChar m_code; // null: any
    QString m_text;
    Positions m_positions;
    QRegularExpression m_expression;
    QStringList m_rules;
};

} // namespace tasks
