// A rule across fields, compiled: "if" one condition holds, "then" the other must hold. The language of conditions is
// described in docs/handbook/rules.md.
#pragma once

#include "schema/pattern.h"
#include "schema/recordTypes.h"
#include <memory>
#include <vector>

namespace schema {

enum class Level : quint8 { Error, Warning, Hint };
inline constexpr size_t levelCount = 3;
QStringView nameOf(Level level); // 错误, 警告, 提示

// Places in a record: fields by tag, and of them the whole field, an indicator or subfields, or positions in these.
struct Path {
    enum class Part { Field, Indicator, Subfield, AnySubfield };
    // The lowest and the highest tag. Each digit of a tag between them is in the range of its own two digits, so that
    // 0 to 990 are the tags "XX0".
    int firstTag = 0;
    int lastTag = 0;
    Part part = Part::Field;
    int indicator = 0; // 0 or 1
    char16_t code = 0;
    int start = -1; // positions in the value, counted from 0; -1: the whole value
    int end = -1;
    bool ofCurrentField = false; // refers to the field of "each" that is being checked

    bool isOneTag() const { return firstTag == lastTag; }
    bool matchesTag(int number) const {
        return number >= firstTag && number <= lastTag && isBetween(number / 10 % 10, firstTag / 10, lastTag / 10) &&
               isBetween(number % 10, firstTag, lastTag);
    }

private:
    static bool isBetween(int digit, int first, int last) { return digit >= first % 10 && digit <= last % 10; }
};

using Paths = std::vector<Path>;

// A side of a comparison: the values of paths, a text, or a number computed from paths.
struct Operand {
    enum class Kind { Values, Text, Count, Length, Year, Isbn, Isbns, Today, ThisYear };
    Kind kind = Kind::Values;
    Paths paths;
    QString text;
};

using Predicate = bool (*)(QStringView value);

struct Condition {
    enum class Kind {
        And,
        Or,
        Not,
        Present,
        Equal,
        NotEqual,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Matches,
        In,
        Is
    };
    Kind kind = Kind::Present;
    bool every = false;   // of comparisons: holds for every value on the left, else for at least one
    bool negated = false; // of Matches: holds for values that do not match
    Operand left;         // of comparisons and Present
    Operand right;
    std::shared_ptr<const Pattern> pattern; // of Matches
    Predicate predicate = nullptr;          // of Is
    std::vector<Condition> parts;           // of And, Or, Not
};

struct Rule {
    QString name; // key "class"
    QString description;
    QString ifText, thenText; // the keys "if" and "then" as they are written
    Level level = Level::Warning;
    RecordTypes types = ~0U;          // the record must have one of them
    std::vector<Path> each;           // at most one path: the rule is checked for each of these fields
    std::vector<Condition> condition; // key "if": at most one; none always holds
    Condition consequence;            // key "then"
};

} // namespace schema
