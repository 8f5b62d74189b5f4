// The types of a record, by positions 06 and 07 of its leader. A schema refers to a type by its Chinese or its English
// name; the English names are those of MARC 21.
#pragma once

#include <QStringView>
#include <optional>

namespace schema {

using RecordTypes = unsigned; // one bit per type

RecordTypes recordTypes(QStringView leader);

// Returns the bit of the type, or std::nullopt if no type has this name.
std::optional<RecordTypes> recordType(QStringView name);

} // namespace schema
