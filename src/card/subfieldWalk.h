// The loop that all formatters of the card share. It adds each subfield of a field to one of the formatter's
// accumulators by the rule of its code.
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <span>

namespace card {

// A piece of card text.
struct Piece {
    QString text;
    QStringList boxes;   // messages from the formatter, in order
    bool failed = false; // the field could not be split into subfields; ends the card
};

// The effect of a value if its accumulator has text; and if it is empty.
enum class Manner {
    Join,             // text + joiner + value; opening + value
    Replace,          // opening + value in both cases: the last value wins
    DropFirst,        // as Join; drops the value
    ComplainAndDrop,  // as Join; adds a message and drops the value
    ComplainAndStart, // as Join; adds a message, then as Join
};

struct Rule {
    char16_t code; // compared exactly; a subfield without a rule is skipped
    QStringView joiner = {};
    QStringView opening = {};
    QStringView closing = {}; // after the value in all cases
    Manner manner = Manner::Join;
    size_t part = 0; // index of the accumulator
};

using Parts = std::array<QString, 4>;

// `field` is the text that the directory refers to: two indicators, the subfields, and one last character that is
// dropped as the terminator. walk() consumes `field`: code and value of the last subfield remain, without a delimiter,
// so that a second call finds nothing. Fails if the field is empty, has two adjacent delimiters, or has its only
// delimiter at the very end. `finish` makes the text from the accumulators.
Piece walk(QString &field, std::span<const Rule> rules, QString (*finish)(Parts &));

} // namespace card
