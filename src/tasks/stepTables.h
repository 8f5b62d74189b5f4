// The tests and actions of a step as tables: their keys in a file, their words, their parameters. A form is built from
// these rows.
#pragma once

#include "tasks/task.h"
#include <QStringView>
#include <span>

namespace tasks {

// The kind of value that a parameter takes.
enum class Kind {
    Tags,          // several fields; empty: all data fields
    OwnTags,       // fields or the leader; empty: the field on which the action works
    Tag,           // one field
    FixedTag,      // one field or the leader
    Code,          // one subfield
    Codes,         // subfields, each once
    Positions,     // "8" or "9-12"
    Text,          // "#" is not special
    PositionText,  // "#" is a blank
    Template,      // text with variables
    FieldTemplate, // indicators and subfields with variables
    Expression,    // regular expression
    Replacement,   // of a match, with groups
    Indicators,    // two characters
    Rules,         // names of rules
    Choice         // one of `choices`; empty: the first of them
};

struct Choice {
    QStringView key;     // in the file
    QStringView caption; // in a list
    QStringView words;   // in the sentence of the step
};

struct Use {
    Parameter parameter;
    Kind kind;
    bool required;
    QStringView caption; // of the box in a form
    std::span<const Choice> choices;
};

// In a sentence "{key}" stands for the value of a parameter; a part in "[…]" is left out if one of its values is empty.
struct TestRow {
    Test test;
    QStringView key;
    QStringView caption;
    QStringView sentence;
    std::span<const Use> uses;
};

struct ActionRow {
    Action action;
    QStringView key;
    QStringView caption;
    QStringView sentence;
    bool byField; // works on one field after the other, so that a test may have an empty tag
    std::span<const Use> uses;
};

// The rows are in the order of the enumeration, in which a list shows them.
std::span<const TestRow> testRows();
std::span<const ActionRow> actionRows();
const TestRow &rowOf(Test test);
const ActionRow &rowOf(Action action);

QStringView keyOf(Parameter parameter);

// Returns the chosen row of choices; the first one if the value is empty or unknown.
const Choice &choiceOf(const Use &use, const QString &value);
// Returns the use of a parameter in a row; null if there is none.
const Use *useOf(std::span<const Use> uses, Parameter parameter);

// Removes the values of parameters that the test and the action do not have.
void dropUnused(Step &step);

inline constexpr QStringView leaderTag = u"LDR";

} // namespace tasks
