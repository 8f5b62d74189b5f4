// The walk that all formatters of the card share: through the subfields of one field, each taken by the rule of its
// code into one of the formatter's accumulators.
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <span>

namespace card {

// A piece of card text.
struct Piece {
    QString text;
    QStringList boxes;   // boxes that came up on the way, in order
    bool failed = false; // the field could not be taken apart: the machine's fault, which ends the card
};

// What a value does where its accumulator has text, and where it is empty.
enum class Manner {
    Join,             // text + joiner + value; opening + value
    Replace,          // opening + value in both cases: the last one wins
    DropFirst,        // as Join; nothing
    ComplainAndDrop,  // as Join; a box, and nothing
    ComplainAndStart, // as Join; a box, then as Join
};

struct Rule {
    char16_t code; // compared exactly; a code without a rule is skipped
    QStringView joiner = {};
    QStringView opening = {};
    QStringView closing = {}; // behind the value in all cases
    Manner manner = Manner::Join;
    size_t part = 0; // the accumulator
};

using Parts = std::array<QString, 4>;

// `field` is what the directory points at: two indicators, subfields, and one character at its end that is dropped as
// the terminator. The walk uses `field` up: what is left is the last subfield's code and value, without a delimiter, so
// that a second walk over it finds nothing. An empty field fails, as do two delimiters side by side, and a delimiter at
// the very end if it is the only one. `finish` makes the text out of the accumulators.
Piece walk(QString &field, std::span<const Rule> rules, QString (*finish)(Parts &));

} // namespace card
