#include "tasks/stepTables.h"
#include <algorithm>

namespace tasks {

namespace {

using enum Parameter;

constexpr auto keys =
    std::to_array<QStringView>({u"tag", u"code", u"at", u"text", u"rules", u"find", u"with", u"content", u"indicators",
                                u"toTag", u"toCode", u"after", u"order", u"what", u"when", u"which"});
static_assert(keys.size() == parameterCount);

constexpr auto which = std::to_array<Choice>({
    {u"all", u"全部", u""},
    {u"first", u"第一个", u"第一个"},
    {u"last", u"最后一个", u"最后一个"},
});
constexpr auto addingField = std::to_array<Choice>({
    {u"absent", u"没有时", u"（没有时）"},
    {u"always", u"总是", u""},
    {u"replace", u"替换已有的", u"，替换已有的"},
});
constexpr auto addingSubfield = std::to_array<Choice>({
    {u"absent", u"没有时", u"（没有时）"},
    {u"always", u"总是", u""},
});
constexpr auto settingSubfield = std::to_array<Choice>({
    {u"existing", u"只改已有的", u""},
    {u"add", u"没有时添加", u"，没有时添加"},
});
constexpr auto copyingSubfield = std::to_array<Choice>({
    {u"absent", u"没有时", u"（没有时）"},
    {u"always", u"总是", u""},
    {u"replace", u"替换已有的", u"，替换已有的"},
});
constexpr auto writingPinyin = std::to_array<Choice>({
    {u"absent", u"没有时", u"（没有时）"},
    {u"replace", u"替换已有的", u"，替换已有的"},
});
constexpr auto readingAs = std::to_array<Choice>({
    {u"title", u"题名等", u"拼音"},
    {u"name", u"姓名（第一个字读姓）", u"姓名拼音"},
});
constexpr auto doubled = std::to_array<Choice>({
    {u"field", u"重复的字段", u"中重复的"},
    {u"subfield", u"同一字段里重复的子字段", u"里重复的子字段"},
});
constexpr auto tidying = std::to_array<Choice>({
    {u"halfWidth", u"全角字母和数字改成半角", u"全角字母和数字改成半角"},
    {u"fullPunctuation", u"汉字旁的标点改成全角", u"汉字旁的半角标点改成全角"},
    {u"blanks", u"整理空格", u"去掉首尾和多余的空格"},
    {u"hanBlanks", u"去掉汉字之间的空格", u"去掉汉字之间的空格"},
    {u"halfBrackets", u"括号改成半角", u"括号改成半角"},
    {u"fullBrackets", u"括号改成全角", u"括号改成全角"},
    {u"price", u"人民币价格写成 CNY28.00", u"人民币价格写成“CNY28.00”的样子"},
    {u"isbnHyphens", u"ISBN 加连字符", u"给 ISBN 加连字符"},
    {u"isbnPlain", u"ISBN 去连字符", u"去掉 ISBN 的连字符"},
    {u"isbn13", u"ISBN 改成 13 位", u"ISBN 改成 13 位"},
    {u"isbn10", u"ISBN 改成 10 位", u"978 开头的 ISBN 改成 10 位"},
});

constexpr Use fields{Tag, Kind::Tags, true, u"字段"};
constexpr Use anyFields{Tag, Kind::Tags, false, u"字段"};
constexpr Use tested{Tag, Kind::OwnTags, false, u"字段"};
constexpr Use code{Code, Kind::Code, true, u"子字段"};
constexpr Use anyCode{Code, Kind::Code, false, u"子字段"};
constexpr Use whichFields{Which, Kind::Choice, false, u"哪些", which};
constexpr Use position{At, Kind::Positions, true, u"字符位"};

constexpr auto presence = std::to_array<Use>({tested, anyCode});
constexpr auto comparison = std::to_array<Use>({tested, anyCode, {Text, Kind::Text, true, u"文字"}});
constexpr auto match = std::to_array<Use>({tested, anyCode, {Text, Kind::Expression, true, u"正则表达式"}});
constexpr auto atPosition =
    std::to_array<Use>({tested, anyCode, position, {Text, Kind::PositionText, true, u"字符（# 是空格）"}});
constexpr auto remarks = std::to_array<Use>({{Rules, Kind::Rules, true, u"规则名（多个用 | 隔开）"}});

constexpr auto tests = std::to_array<TestRow>({
    {Test::Always, u"always", u"不设条件", u"", {}},
    {Test::Present, u"present", u"有字段或子字段", u"有{tag}[的 {code}]", presence},
    {Test::Absent, u"absent", u"没有字段或子字段", u"没有{tag}[的 {code}]", presence},
    {Test::Equals, u"equals", u"等于", u"{tag}[的 {code} ]等于“{text}”", comparison},
    {Test::Differs, u"differs", u"不等于", u"{tag}[的 {code} ]不等于“{text}”", comparison},
    {Test::Contains, u"contains", u"含有", u"{tag}[的 {code} ]含有“{text}”", comparison},
    {Test::Lacks, u"lacks", u"不含", u"{tag}[的 {code} ]不含“{text}”", comparison},
    {Test::Matches, u"matches", u"符合正则表达式", u"{tag}[的 {code} ]符合正则表达式“{text}”", match},
    {Test::Mismatches, u"mismatches", u"不符合正则表达式", u"{tag}[的 {code} ]不符合正则表达式“{text}”", match},
    {Test::PositionIs, u"position", u"字符位是", u"{tag}[的 {code} ]第 {at} 位是“{text}”", atPosition},
    {Test::PositionIsNot, u"notPosition", u"字符位不是", u"{tag}[的 {code} ]第 {at} 位不是“{text}”", atPosition},
    {Test::Remark, u"remark", u"校对有提示", u"校对提示“{rules}”", remarks},
    {Test::NoRemark, u"noRemark", u"校对没有提示", u"校对没有提示“{rules}”", remarks},
});

constexpr auto addField = std::to_array<Use>({
    {Tag, Kind::Tag, true, u"字段"},
    {Content, Kind::FieldTemplate, true, u"内容"},
    {When, Kind::Choice, false, u"何时添加", addingField},
});
constexpr auto someFields = std::to_array<Use>({fields, whichFields});
constexpr auto toField = std::to_array<Use>({fields, {ToTag, Kind::Tag, true, u"新字段"}, whichFields});
constexpr auto addSubfield = std::to_array<Use>({
    fields,
    code,
    {Text, Kind::Template, true, u"内容"},
    {After, Kind::Code, false, u"放在哪个子字段之后"},
    {When, Kind::Choice, false, u"何时添加", addingSubfield},
    whichFields,
});
constexpr auto setSubfield = std::to_array<Use>({
    fields,
    code,
    {Text, Kind::Template, true, u"内容"},
    {When, Kind::Choice, false, u"没有这个子字段时", settingSubfield},
    whichFields,
});
constexpr auto deleteSubfield = std::to_array<Use>({fields, {Code, Kind::Codes, true, u"子字段"}, whichFields});
constexpr auto toSubfield = std::to_array<Use>({
    fields,
    code,
    {ToTag, Kind::Tag, false, u"到字段（空着：同一字段）"},
    {ToCode, Kind::Code, true, u"到子字段"},
    {When, Kind::Choice, false, u"何时写入", copyingSubfield},
});
constexpr auto replacing = std::to_array<Use>({
    anyFields,
    anyCode,
    {Find, Kind::Text, true, u"查找"},
    {With, Kind::Text, false, u"换成"},
    whichFields,
});
constexpr auto replacingMatches = std::to_array<Use>({
    anyFields,
    anyCode,
    {Find, Kind::Expression, true, u"正则表达式"},
    {With, Kind::Replacement, false, u"换成（\\1 是第一组）"},
    whichFields,
});
constexpr auto indicators =
    std::to_array<Use>({fields, {Indicators, Kind::Indicators, true, u"指示符（# 是空格，. 不改）"}, whichFields});
constexpr auto setPosition = std::to_array<Use>({
    {Tag, Kind::FixedTag, true, u"字段"},
    anyCode,
    position,
    {Text, Kind::PositionText, true, u"字符（# 是空格）"},
});
constexpr auto onlyFields = std::to_array<Use>({anyFields});
constexpr auto sortSubfields = std::to_array<Use>({fields, {Order, Kind::Codes, true, u"子字段的次序"}, whichFields});
constexpr auto dropDoubled = std::to_array<Use>({anyFields, {What, Kind::Choice, false, u"删除", doubled}});
constexpr auto tidyText = std::to_array<Use>({anyFields, anyCode, {What, Kind::Choice, true, u"怎样整理", tidying}});
constexpr auto pinyin = std::to_array<Use>({
    fields,
    code,
    {ToCode, Kind::Code, true, u"拼音写进"},
    {When, Kind::Choice, false, u"何时写入", writingPinyin},
    {What, Kind::Choice, false, u"是什么", readingAs},
});

constexpr auto actions = std::to_array<ActionRow>({
    {Action::AddField, u"addField", u"添加字段", u"添加{tag}“{content}”{when}", false, addField},
    {Action::DeleteField, u"deleteField", u"删除字段", u"删除{which}{tag}", true, someFields},
    {Action::CopyField, u"copyField", u"复制字段", u"把{which}{tag}复制成{toTag}", true, toField},
    {Action::MoveField, u"moveField", u"移动字段（改字段号）", u"把{which}{tag}改成{toTag}", true, toField},
    {Action::AddSubfield, u"addSubfield", u"添加子字段", u"在{which}{tag}[的 {after} 后面]添加 {code}“{text}”{when}",
     true, addSubfield},
    {Action::SetSubfield, u"setSubfield", u"改写子字段", u"把{which}{tag}的 {code} 改成“{text}”{when}", true,
     setSubfield},
    {Action::DeleteSubfield, u"deleteSubfield", u"删除子字段", u"删除{which}{tag}的 {code}", true, deleteSubfield},
    {Action::CopySubfield, u"copySubfield", u"复制子字段", u"把{tag}的 {code} 复制到[{toTag}的] {toCode}{when}", true,
     toSubfield},
    {Action::MoveSubfield, u"moveSubfield", u"移动子字段", u"把{tag}的 {code} 移到[{toTag}的] {toCode}{when}", true,
     toSubfield},
    {Action::Replace, u"replace", u"替换文字", u"在{which}{tag}[的 {code} ]里，把“{find}”换成“{with}”", true,
     replacing},
    {Action::ReplaceMatches, u"replaceMatches", u"按正则表达式替换",
     u"在{which}{tag}[的 {code} ]里，把符合正则表达式“{find}”的换成“{with}”", true, replacingMatches},
    {Action::SetIndicators, u"setIndicators", u"改指示符", u"把{which}{tag}的指示符改成“{indicators}”", true,
     indicators},
    {Action::SetPosition, u"setPosition", u"改字符位", u"把{tag}[的 {code} ]第 {at} 位改成“{text}”", true, setPosition},
    {Action::SortFields, u"sortFields", u"字段排序", u"把{tag}按字段号排序", false, onlyFields},
    {Action::SortSubfields, u"sortSubfields", u"子字段排序", u"把{which}{tag}的子字段按 {order} 的次序排", true,
     sortSubfields},
    {Action::DropEmpty, u"dropEmpty", u"删除空的", u"删除{tag}里的空子字段和空字段", true, onlyFields},
    {Action::DropDoubled, u"dropDoubled", u"删除重复的", u"删除{tag}{what}", true, dropDoubled},
    {Action::TidyText, u"tidyText", u"整理文字", u"在{tag}[的 {code} ]里，{what}", true, tidyText},
    {Action::Pinyin, u"pinyin", u"加拼音", u"把{tag}的 {code} 的{what}写进 {toCode}{when}", true, pinyin},
});

// The rows are found by their place.
template <class Rows, class Value>
constexpr bool areInOrder(const Rows &rows, Value Rows::value_type::*value) {
    for (size_t i = 0; i < rows.size(); ++i) {
        if (size_t(rows[i].*value) != i)
            return false;
    }
    return true;
}
static_assert(areInOrder(tests, &TestRow::test) && areInOrder(actions, &ActionRow::action));

void dropUnused(Values &values, std::span<const Use> uses) {
    Values kept;
    for (const Use &use : uses)
        kept[use.parameter] = values[use.parameter];
    values = std::move(kept);
}

} // namespace

std::span<const TestRow> testRows() {
    return tests;
}

std::span<const ActionRow> actionRows() {
    return actions;
}

const TestRow &rowOf(Test test) {
    return tests[size_t(test)];
}

const ActionRow &rowOf(Action action) {
    return actions[size_t(action)];
}

QStringView keyOf(Parameter parameter) {
    return keys[size_t(parameter)];
}

const Choice &choiceOf(const Use &use, const QString &value) {
    const auto found = std::ranges::find(use.choices, QStringView(value), &Choice::key);
    return found == use.choices.end() ? use.choices.front() : *found;
}

const Use *useOf(std::span<const Use> uses, Parameter parameter) {
    const auto found = std::ranges::find(uses, parameter, &Use::parameter);
    return found == uses.end() ? nullptr : &*found;
}

void dropUnused(Step &step) {
    dropUnused(step.testValues, rowOf(step.test).uses);
    dropUnused(step.values, rowOf(step.action).uses);
}

} // namespace tasks
