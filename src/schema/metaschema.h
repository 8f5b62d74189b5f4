// The keys of each kind of object in a schema, with the kinds of their values.
#pragma once

#include <QJsonObject>
#include <QString>

namespace schema {

enum class Part { Root, Field, Subfield, Indicator, Position, TypedField, Code, CodeListEntry, Rule };

struct KeyFault {
    QString key; // empty if there is no fault
    QString reason;
};

// Returns the first key of the object that its kind does not have, or whose value is of another kind.
KeyFault checkKeys(const QJsonObject &object, Part part);

// Returns whether the text is a range as "05" or "00-07", and its numbers.
bool parseRange(const QString &range, int &start, int &end);

} // namespace schema
