#include "tasks/stepCheck.h"
#include "marc/isoLayout.h"
#include "platform/boundedExpression.h"
#include "tasks/fieldTemplate.h"
#include "tasks/stepTables.h"
#include "tasks/tagSet.h"
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

using Reason = QString; // empty: no fault

Reason tagsFault(const QString &value) {
    return TagSet::parse(value) ? Reason() : u"应为字段号，如 200、6XX 或 701,702"_s;
}

Reason codesFault(const QString &value) {
    if (!std::ranges::all_of(value, isCode))
        return u"子字段代码应为字母或数字"_s;
    for (const QChar code : value) {
        if (value.count(code) > 1)
            return u"子字段代码“%1”重复"_s.arg(code);
    }
    return {};
}

Reason templateFault(const QString &value, bool isField) {
    const auto made = FieldTemplate::parse(value, isField);
    if (!made)
        return made.failure().description;
    return isField && made.value().needsCurrentField() ? u"“{$…}”前面应写字段号"_s : Reason();
}

// Returns whether "\1" or higher groups in the text stay within `groups`, and no other character follows a "\".
Reason replacementFault(const QString &value, int groups) {
    for (qsizetype i = value.indexOf(u'\\'); i >= 0; i = value.indexOf(u'\\', i + 2)) {
        const QChar next = i + 1 < value.size() ? value[i + 1] : QChar();
        if (next != u'\\' && (next < u'0' || next > u'9'))
            return u"“\\”后面应为组号或“\\”"_s;
        if (next != u'\\' && next.unicode() - u'0' > groups)
            return u"正则表达式没有第%1组"_s.arg(next);
    }
    return {};
}

Reason indicatorsFault(const QString &value) {
    const auto isIndicator = [](QChar c) { return isCode(c) || c == u'#' || c == u'.' || c == u'|'; };
    return value.size() == marc::indicatorCount && std::ranges::all_of(value, isIndicator)
               ? Reason()
               : u"应为两个字符：字母、数字、#（空格）或 .（不改）"_s;
}

Reason expressionFault(const QString &value) {
    const auto compiled = platform::boundedExpression(value);
    return compiled ? Reason() : compiled.failure().description;
}

Reason faultOf(const Use &use, const QString &value) {
    switch (use.kind) {
    case Kind::Tags:
        return tagsFault(value);
    case Kind::OwnTags:
        return value == leaderTag ? Reason() : tagsFault(value);
    case Kind::Tag:
        return isFieldTag(value) ? Reason() : u"应为三位字段号"_s;
    case Kind::FixedTag:
        return isFieldTag(value) || value == leaderTag ? Reason() : u"应为三位字段号或“LDR”"_s;
    case Kind::Code:
        return value.size() == 1 && isCode(value[0]) ? Reason() : u"应为一个字母或数字"_s;
    case Kind::Codes:
        return codesFault(value);
    case Kind::Positions:
        return parsePositions(value) ? Reason() : u"应为字符位，如 8 或 9-12"_s;
    case Kind::Template:
        return templateFault(value, false);
    case Kind::FieldTemplate:
        return templateFault(value, true);
    case Kind::Expression:
        return expressionFault(value);
    case Kind::Indicators:
        return indicatorsFault(value);
    case Kind::Choice:
        return std::ranges::count(use.choices, QStringView(value), &Choice::key) > 0 ? Reason()
                                                                                     : u"没有“%1”这种选择"_s.arg(value);
    default:
        return {};
    }
}

// Characters that separate records, fields, subfields or lines cannot be part of a value.
bool holdsControl(const QString &value) {
    return std::ranges::any_of(value, [](QChar c) { return c < u' ' || c == QChar(0x7F); });
}

std::optional<StepFault> firstFault(const Values &values, std::span<const Use> uses, bool inTest) {
    for (const Use &use : uses) {
        const QString &value = values[use.parameter];
        Reason reason;
        if (value.isEmpty())
            reason = use.required ? u"不能空着"_s : Reason();
        else if (value.size() > longestValue)
            reason = u"太长，最多%1个字符"_s.arg(longestValue);
        else
            reason = holdsControl(value) ? u"不能有控制字符"_s : faultOf(use, value);
        if (!reason.isEmpty())
            return StepFault{inTest, use.parameter, reason};
    }
    return std::nullopt;
}

// Checks values that have to agree with each other in a test or an action with positions.
std::optional<StepFault> positionFault(const Values &values, bool inTest) {
    const Positions positions = *parsePositions(values[Parameter::At]);
    if (values[Parameter::Text].size() != positions.count())
        return StepFault{inTest, Parameter::Text, u"应为%1个字符"_s.arg(positions.count())};
    const QString &tag = values[Parameter::Tag];
    const bool isFlat = tag == leaderTag || isControlTag(tag);
    if (isFlat != values[Parameter::Code].isEmpty() && !tag.isEmpty())
        return StepFault{inTest, Parameter::Code, isFlat ? u"这里没有子字段"_s : u"不能空着"_s};
    if (inTest || tag != leaderTag)
        return std::nullopt;
    if (!std::ranges::all_of(values[Parameter::Text], [](QChar c) { return c >= u' ' && c <= u'~'; }))
        return StepFault{inTest, Parameter::Text, u"头标区里只能是 ASCII 字符"_s};
    // The other positions are lengths and addresses, or describe the exchange format.
    const bool isFree =
        (positions.first >= 5 && positions.last <= 9) || (positions.first >= 17 && positions.last <= 19);
    return isFree ? std::nullopt
                  : std::optional(StepFault{inTest, Parameter::At, u"头标区只能改第 5 至 9 位和第 17 至 19 位"_s});
}

std::optional<StepFault> contentFault(const Values &values) {
    const QString &content = values[Parameter::Content];
    const bool isControl = isControlTag(values[Parameter::Tag]);
    const qsizetype sign = content.indexOf(u'$');
    const auto fault = [](const QString &reason) { return StepFault{false, Parameter::Content, reason}; };
    if (isControl)
        return std::nullopt;
    if (sign != marc::indicatorCount || content.first(sign).contains(u'{'))
        return fault(u"应为两位指示符（# 是空格）和“$”开头的子字段"_s);
    for (qsizetype at = sign; at >= 0; at = content.indexOf(u'$', at + 1)) {
        const bool inVariable = content.lastIndexOf(u'{', at) > content.lastIndexOf(u'}', at);
        if (!inVariable && (at + 1 >= content.size() || !isCode(content[at + 1])))
            return fault(u"“$”后面不是子字段代码"_s);
    }
    return std::nullopt;
}

std::optional<StepFault> actionFault(const Step &step) {
    const Values &values = step.values;
    switch (step.action) {
    case Action::AddField:
        return contentFault(values);
    case Action::SetPosition:
        return positionFault(values, false);
    case Action::ReplaceMatches: {
        const auto expression = platform::boundedExpression(values[Parameter::Find]);
        const Reason reason = replacementFault(values[Parameter::With], expression.value().captureCount());
        return reason.isEmpty() ? std::nullopt : std::optional(StepFault{false, Parameter::With, reason});
    }
    case Action::CopyField:
    case Action::MoveField:
        return TagSet::parse(values[Parameter::Tag])->mixes(values[Parameter::ToTag])
                   ? std::optional(StepFault{false, Parameter::ToTag, u"控制字段（00X）和数据字段不能互换"_s})
                   : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<StepFault> checkStep(const Step &step) {
    const TestRow &test = rowOf(step.test);
    const ActionRow &action = rowOf(step.action);
    if (auto fault = firstFault(step.testValues, test.uses, true))
        return fault;
    if (auto fault = firstFault(step.values, action.uses, false))
        return fault;
    const Use *tested = useOf(test.uses, Parameter::Tag);
    if (tested && step.testValues[Parameter::Tag].isEmpty() && !action.byField)
        return StepFault{true, Parameter::Tag, u"不能空着，“%1”不是逐个字段做的"_s.arg(action.caption.toString())};
    if (useOf(test.uses, Parameter::At))
        if (auto fault = positionFault(step.testValues, true))
            return fault;
    return actionFault(step);
}

} // namespace tasks
