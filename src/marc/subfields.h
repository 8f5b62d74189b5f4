// What a field is made of.
#pragma once

#include <QStringView>

namespace marc {

// Walks the subfields of a field whose terminator has been taken off.
class SubfieldWalk {
public:
    explicit SubfieldWalk(QStringView field)
        : m_rest(field) {}

    bool next();                                  // false when no delimiter is left
    QStringView code() const { return m_code; }   // one character; empty where nothing stands behind the delimiter
    QStringView value() const { return m_value; } // empty where its length is negative
    // A delimiter side by side with the next one, or the field's only delimiter as its last character: the length of
    // the value comes out below 0.
    bool negativeLength() const { return m_negativeLength; }
    // What stands behind the last delimiter that was passed; before the first step the whole field.
    QStringView rest() const { return m_rest; }

private:
    QStringView m_rest;
    QStringView m_code;
    QStringView m_value;
    bool m_negativeLength = false;
    bool m_first = true;
};

} // namespace marc
