// What the schema says about the place of a finding, in Chinese.
#pragma once

#include "schema/finding.h"

namespace schema {

// Returns what is defined there, as "100$a第8位“出版日期类型”，可用：a 现仍出版的连续出版物；b …": the label, whether
// it is required and repeatable, codes or the pattern; of a missing definition, the subfields of the field. Of a rule,
// its condition. An empty text if there is nothing to say. A long list of codes is cut off.
QString definitionOf(const Finding &finding, const Schema &schema);

} // namespace schema
