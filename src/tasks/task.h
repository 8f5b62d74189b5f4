// A task: a named list of steps that change a record. Every parameter of a step is a text, so that a form can show it
// and a file can contain it; stepTables.h lists the parameters of each test and action, and stepCheck.h checks values.
#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <vector>

namespace tasks {

enum class Parameter {
    Tag,        // fields: "200", "6XX", "701,702"; "LDR" is the leader
    Code,       // of a subfield, or several codes
    At,         // positions counted from 0: "8", "9-12"
    Text,       // to compare with, or to write; in an action a template (see fieldTemplate.h)
    Rules,      // names of rules, separated by "|"
    Find,       // text or regular expression
    With,       // replacement; of an expression with groups: "\1"
    Content,    // of a field, as the grid shows it: "#0$aCN$b{文件名}", a template
    Indicators, // two characters; "#": blank, ".": unchanged
    ToTag,
    ToCode,
    After, // the code of the subfield after which another is added
    Order, // of subfields: "afg"
    What,  // a choice of the action
    When,
    Which
};
inline constexpr size_t parameterCount = 16;

class Values {
public:
    QString &operator[](Parameter parameter) { return m_texts[size_t(parameter)]; }
    const QString &operator[](Parameter parameter) const { return m_texts[size_t(parameter)]; }
    friend bool operator==(const Values &, const Values &) = default;

private:
    std::array<QString, parameterCount> m_texts;
};

// The condition of a step. Tests with an empty tag are applied to each field on which the action works; all others to
// the record. A negated test is true if the plain one is false.
enum class Test {
    Always,
    Present,
    Absent,
    Equals,
    Differs,
    Contains,
    Lacks,
    Matches,
    Mismatches,
    PositionIs,
    PositionIsNot,
    Remark,
    NoRemark
};

enum class Action {
    AddField,
    DeleteField,
    CopyField,
    MoveField,
    AddSubfield,
    SetSubfield,
    DeleteSubfield,
    CopySubfield,
    MoveSubfield,
    Replace,
    ReplaceMatches,
    SetIndicators,
    SetPosition,
    SortFields,
    SortSubfields,
    DropEmpty,
    DropDoubled,
    TidyText,
    Pinyin
};

struct Step {
    Test test = Test::Always;
    Values testValues;
    Action action = Action::Replace;
    Values values;
    bool on = true;
    friend bool operator==(const Step &, const Step &) = default;
};

struct Task {
    QString name;
    QString description;
    std::vector<Step> steps;
    friend bool operator==(const Task &, const Task &) = default;
};

} // namespace tasks
