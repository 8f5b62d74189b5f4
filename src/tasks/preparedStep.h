// A step of a task, prepared for many records, and the functions that do the actions.
#pragma once

#include "tasks/pinyin.h"
#include "tasks/recordWork.h"
#include "tasks/stepTest.h"
#include "tasks/textTidying.h"
#include <functional>
#include <memory>

namespace tasks {

enum class When { Absent, Always, Replace, Existing, Add };
enum class Which { All, First, Last };

struct PreparedStep;
using DoAction = void (*)(RecordWork &, const PreparedStep &);

struct PreparedStep {
    int index; // in the task
    Action action;
    StepTest test;
    DoAction run;
    TagSet tags;
    bool anyTag;   // no tag is given
    QChar code;    // null: none is given
    QString codes; // of several subfields
    QString tag;   // if there is only one
    QString toTag; // empty: the same field
    QChar toCode;
    QChar after;
    QString find;
    QString with;
    QString order;
    QString what; // key of the choice
    Tidying tidying;
    QString indicators;
    Positions positions;
    QString characters; // for these positions
    FieldTemplate text;
    std::shared_ptr<PinyinReader> pinyin; // of Action::Pinyin; shared by all steps
    QRegularExpression expression;
    When when;
    Which which;
};

// The values must be valid; see checkStep().
PreparedStep prepare(const Step &step, int index);

// Returns the indexes of the fields on which the step works, in ascending order. Without a tag these are the data
// fields except the coded ones (1XX), whose values are read by position.
FieldIndexes chosenFields(RecordWork &work, const PreparedStep &step);

// Returns whether a field contains embedded fields in subfields $1, so that some of its subfields belong to those.
bool hasEmbedded(const marc::Field &field);

// Returns the content that results if `change` returns another text for subfields with that code (null: all except an
// embedded field's $1) or for the whole of a control field; std::nullopt if it always returns std::nullopt.
using ChangeText = std::function<std::optional<QString>(QStringView text)>;
std::optional<QString> withTexts(const marc::Field &field, QChar code, const ChangeText &change);

// fieldActions.cpp
void addField(RecordWork &work, const PreparedStep &step);
void deleteField(RecordWork &work, const PreparedStep &step);
void copyField(RecordWork &work, const PreparedStep &step);
void moveField(RecordWork &work, const PreparedStep &step);
void setIndicators(RecordWork &work, const PreparedStep &step);
void setPosition(RecordWork &work, const PreparedStep &step);
void sortFields(RecordWork &work, const PreparedStep &step);

// subfieldActions.cpp
void addSubfield(RecordWork &work, const PreparedStep &step);
void setSubfield(RecordWork &work, const PreparedStep &step);
void deleteSubfield(RecordWork &work, const PreparedStep &step);
void copySubfield(RecordWork &work, const PreparedStep &step);
void moveSubfield(RecordWork &work, const PreparedStep &step);
void sortSubfields(RecordWork &work, const PreparedStep &step);
void dropEmpty(RecordWork &work, const PreparedStep &step);
void dropDoubled(RecordWork &work, const PreparedStep &step);

// textActions.cpp
void replaceText(RecordWork &work, const PreparedStep &step);
void replaceMatches(RecordWork &work, const PreparedStep &step);
void tidyText(RecordWork &work, const PreparedStep &step);
void writePinyin(RecordWork &work, const PreparedStep &step);

} // namespace tasks
