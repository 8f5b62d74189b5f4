// The rules that remarks are about: the kinds of the proofs other than the schema's, then the checks of the schema's
// validation, then the rules across fields, numbered in this order from 0. The numbers are valid with one schema.
#pragma once

#include "batch/remark.h"
#include <memory>

namespace batch {

// Returns the number of the rule that the remark is about.
int ruleOf(const Remark &remark);

class RuleBook {
public:
    // Without a schema there are no rules across fields.
    explicit RuleBook(std::shared_ptr<const schema::Schema> schema = nullptr);

    int count() const;
    // Returns a key such as "isbn", "undefinedField" or "rule:出版年颠倒", which does not change between starts.
    QString keyOf(int rule) const;
    QString labelOf(int rule) const;              // in Chinese
    QString labelOfKey(const QString &key) const; // of a rule that the schema may not have
    // Returns the fault, in Chinese, in one line.
    QString wordsOf(const Remark &remark) const;
    // Returns the requirement of the rule at the place of the remark, and advice, in one line.
    QString explanationOf(const Remark &remark) const;

private:
    std::shared_ptr<const schema::Schema> m_schema;
};

} // namespace batch
