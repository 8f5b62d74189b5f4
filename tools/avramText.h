// The schema of the format in the Avram schema language, built from the text of the format, the coded positions and the
// rules.
#pragma once

#include "tools/codesText.h"
#include <QByteArray>
#include <QJsonArray>

namespace tools {

// Returns the schema as indented JSON in UTF-8. Fails if a coded value belongs to no subfield of the format.
platform::Result<QByteArray> avramSchema(const Format &format, const QList<CodedValue> &values,
                                         const QJsonArray &rules);

} // namespace tools
