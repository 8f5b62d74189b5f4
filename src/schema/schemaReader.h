// Reads a schema in the Avram schema language and compiles it. See docs/schema.md for what is supported.
#pragma once

#include "platform/result.h"
#include "schema/schema.h"
#include <QByteArray>

namespace schema {

// Fails with the key and the reason if the text is not JSON, if a key is unknown or its value of the wrong kind, if the
// family of formats is not "marc", or if a pattern or a rule is malformed.
platform::Result<Schema> readSchema(const QByteArray &json);

inline constexpr qint64 largestSchema = 32 * 1024 * 1024; // bytes

// The same for a file, which the failure names.
platform::Result<Schema> readSchemaFile(const QString &path);

} // namespace schema
