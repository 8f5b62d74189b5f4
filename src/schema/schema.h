// A schema compiled to tables: the definitions of a format, in the terms of the Avram schema language, family "marc".
#pragma once

#include "schema/codeList.h"
#include "schema/pattern.h"
#include "schema/recordTypes.h"
#include "schema/recordView.h"
#include "schema/rule.h"
#include <memory>
#include <optional>

namespace schema {

// A code list; std::nullopt instead of a list: one that is referred to by name and that the schema does not have.
using CodeListUse = std::optional<std::shared_ptr<const CodeList>>;

struct PositionRules;

// The rules that a value must conform to. A rule that is absent is not checked.
struct ValueRules {
    std::shared_ptr<const Pattern> pattern;
    CodeListUse codes = std::shared_ptr<const CodeList>();
    CodeListUse flags = std::shared_ptr<const CodeList>(); // of positions only
    std::vector<PositionRules> positions;
};

struct PositionRules : ValueRules {
    int start = 0; // counted from 0
    int end = 0;   // inclusive
    QString label;
};

struct SubfieldRules : ValueRules {
    char16_t code = 0;
    QString label;
    bool required = false;
    bool repeatable = false;
    bool deprecated = false;
};

struct TypedRules : ValueRules {
    RecordTypes types = 0; // 0: the name is not a type; never applies
};

struct FieldRules : ValueRules { // the values are those of a flat field
    int tag = 0;
    QString label;
    bool required = false;
    bool repeatable = false;
    bool deprecated = false;
    bool hasSubfields = false; // false: subfields are not checked
    std::optional<ValueRules> indicators[2];
    std::vector<SubfieldRules> subfields;
    std::array<qint16, 128> byCode{}; // index of the subfield by its code, or -1
    std::vector<TypedRules> byType;   // apply in addition, to records of the type

    const SubfieldRules *subfield(char16_t code) const {
        return code < byCode.size() && byCode[code] >= 0 ? &subfields[size_t(byCode[code])] : nullptr;
    }
};

struct Schema {
    QString title;
    std::vector<FieldRules> fields;
    std::array<qint16, tagCount> byTag{}; // index of the field, or -1
    std::vector<int> required;            // indexes of required fields
    std::vector<Rule> rules;              // across fields
    QStringList ignored;                  // keys of rules that are not in this program's language

    const FieldRules *field(int tag) const {
        return tag >= 0 && byTag[size_t(tag)] >= 0 ? &fields[size_t(byTag[size_t(tag)])] : nullptr;
    }
};

} // namespace schema
