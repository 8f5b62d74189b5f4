// Reads rules and their conditions. The language is described in docs/handbook/rules.md.
#pragma once

#include "platform/result.h"
#include "schema/rule.h"
#include <QJsonObject>

namespace schema {

// Parses a condition such as "101^1 = '1' and not 101$c". Fails with the reason and the position, counted from 1.
// `each` is the field of the rule's key "each", or null.
platform::Result<Condition> parseCondition(const QString &text, const Path *each = nullptr);

// Reads a rule whose keys have values of the right kinds. A failure names the key.
platform::Result<Rule> readRule(const QJsonObject &object);

// Returns the function that "is NAME" calls, or null.
Predicate predicateNamed(QStringView name);

} // namespace schema
