// The definition that a finding refers to, as a text in Chinese.
#pragma once

#include "schema/finding.h"

namespace schema {

// Returns the definition, such as "100$a第8位“出版日期类型”，可用：a 现仍出版的连续出版物；b …": the label, whether it
// is required and repeatable, codes or the pattern; for a missing definition, the subfields of the field; for a rule,
// its condition. Returns an empty text if there is no definition. A long list of codes is cut off.
QString definitionOf(const Finding &finding, const Schema &schema);

} // namespace schema
