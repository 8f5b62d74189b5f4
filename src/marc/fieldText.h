// Fields of a record as text, one line each: tag, a blank, and the content as the grid shows it: "200
// 1#$a红楼梦$f曹雪芹". In a value "{dollar}" is the dollar sign, which otherwise begins a subfield.
#pragma once

#include "marc/fieldRows.h"
#include "platform/result.h"

namespace marc {

// Returns the text of the rows, which must begin with the row of a field. The leader and fields without a numeric tag
// give no line.
QString fieldText(const FieldRows &rows);

// Returns the rows of the fields in a text, without descriptions. Blanks and "\" are accepted for "#" in indicators.
// Fails, with the reason and the line, if there is no line, or if a line is not a field or is field 001, which is
// written new in each rebuilt record.
platform::Result<FieldRows> fieldsOfText(const QString &text);

} // namespace marc
