// The findings of a validation, as values; their texts are made when they are shown.
#pragma once

#include "schema/schema.h"
#include <bitset>

namespace schema {

// The validation rules of Avram 0.9 that concern records, in the order of its text, and two of this program.
enum class Check : quint8 {
    UndefinedField,
    DeprecatedField,
    NonrepeatableField,
    MissingField,
    InvalidFieldValue, // with this check off, values of flat fields are not checked at all
    InvalidIndicator,
    UndefinedSubfield,
    DeprecatedSubfield,
    NonrepeatableSubfield,
    MissingSubfield,
    InvalidSubfieldValue, // with this check off, values of subfields are not checked at all
    PatternMismatch,
    InvalidPosition,
    RecordTypes, // with this check off, definitions for record types do not apply
    UndefinedCode,
    DeprecatedCode,
    UndefinedCodelist,
    InvalidFlag,
    ExternalRule, // a rule across fields
    GivenUp,      // a rule or pattern that takes too long on this record
};
inline constexpr size_t checkCount = 20;
using Checks = std::bitset<checkCount>;
inline const Checks allChecks = Checks().set();

QStringView nameOf(Check check);  // as in Avram, "undefinedField"
QStringView labelOf(Check check); // in Chinese
Level levelOf(Check check);

struct Finding {
    Level level = Level::Error;
    Check check = Check::UndefinedField;
    qint16 rule = -1; // index in Schema::rules; -1: a check of the schema
    qint16 tag = unknownTag;
    qint16 occurrence = 0;  // of the field among those of its tag, counted from 1; 0: none, or the field is missing
    qint8 indicator = 0;    // 1 or 2; 0: none
    char16_t code = noCode; // of the subfield
    qint16 start = -1;      // position in the value, counted from 0; -1: the whole value
    qint16 end = -1;
    int element = -1; // index in the rows of the record; -1: none
    QString value;    // the beginning of the value; for an unknown tag, the tag
};

// Returns the field and place, such as "200", "200$a" or "100$a/8".
QString placeOf(const Finding &finding);
// Returns the fault, in Chinese, without the place.
QString wordsOf(const Finding &finding, const Schema &schema);

} // namespace schema
