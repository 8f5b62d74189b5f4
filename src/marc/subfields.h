// Splits a field into subfields.
#pragma once

#include <QStringView>

namespace marc {

// Iterates over the subfields of a field, whose terminator must be removed before.
class SubfieldWalk {
public:
    explicit SubfieldWalk(QStringView field)
        : m_rest(field) {}

    bool next();                                  // returns false if no delimiter is left
    QStringView code() const { return m_code; }   // one character; empty if nothing follows the delimiter
    QStringView value() const { return m_value; } // empty if its length is negative
    // Returns whether the computed length of the value is below 0: the delimiter is directly followed by the next one,
    // or is the only one in the field and its last character.
    bool negativeLength() const { return m_negativeLength; }
    // Returns the text after the last delimiter that was read; the whole field before the first step.
    QStringView rest() const { return m_rest; }

private:
    QStringView m_rest;
    QStringView m_code;
    QStringView m_value;
    bool m_negativeLength = false;
    bool m_first = true;
};

} // namespace marc
