#include "tasks/preparedStep.h"
#include "platform/boundedExpression.h"
#include "tasks/stepTables.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

struct Doing {
    Action action;
    DoAction run;
};
constexpr auto doings = std::to_array<Doing>({
    {Action::AddField, addField},
    {Action::DeleteField, deleteField},
    {Action::CopyField, copyField},
    {Action::MoveField, moveField},
    {Action::AddSubfield, addSubfield},
    {Action::SetSubfield, setSubfield},
    {Action::DeleteSubfield, deleteSubfield},
    {Action::CopySubfield, copySubfield},
    {Action::MoveSubfield, moveSubfield},
    {Action::Replace, replaceText},
    {Action::ReplaceMatches, replaceMatches},
    {Action::SetIndicators, setIndicators},
    {Action::SetPosition, setPosition},
    {Action::SortFields, sortFields},
    {Action::SortSubfields, sortSubfields},
    {Action::DropEmpty, dropEmpty},
    {Action::DropDoubled, dropDoubled},
    {Action::TidyText, tidyText},
    {Action::Pinyin, writePinyin},
});

template <class Value>
struct Key {
    QStringView key;
    Value value;
};
constexpr auto whens = std::to_array<Key<When>>({{u"absent", When::Absent},
                                                 {u"always", When::Always},
                                                 {u"replace", When::Replace},
                                                 {u"existing", When::Existing},
                                                 {u"add", When::Add}});
constexpr auto whiches =
    std::to_array<Key<Which>>({{u"all", Which::All}, {u"first", Which::First}, {u"last", Which::Last}});

// Returns the value of the chosen key, or the default of the row.
QStringView chosen(const Step &step, Parameter parameter) {
    const Use *use = useOf(rowOf(step.action).uses, parameter);
    return use && !use->choices.empty() ? choiceOf(*use, step.values[parameter]).key : QStringView();
}

template <class Value, size_t size>
Value valueOf(const std::array<Key<Value>, size> &keys, QStringView key) {
    const auto row = std::ranges::find(keys, key, &Key<Value>::key);
    return row == keys.end() ? keys[0].value : row->value;
}

QChar codeOf(const QString &value) {
    return value.isEmpty() ? QChar() : value[0];
}

QString withBlanks(QString text) {
    return text.replace(u'#', u' ');
}

FieldTemplate templateOf(const Step &step) {
    const bool isField = step.action == Action::AddField;
    if (!isField)
        return FieldTemplate::parse(step.values[Parameter::Text], false).value();
    QString content = step.values[Parameter::Content];
    if (isControlTag(step.values[Parameter::Tag]))
        return FieldTemplate::parse(content, false).value();
    for (qsizetype i = 0; i < marc::indicatorCount; ++i)
        content[i] = content[i] == u'#' ? QChar(u' ') : content[i];
    return FieldTemplate::parse(content, true).value();
}

bool isTemplated(Action action) {
    return action == Action::AddField || action == Action::AddSubfield || action == Action::SetSubfield;
}

} // namespace

PreparedStep prepare(const Step &step, int index) {
    using enum Parameter;
    const Values &values = step.values;
    const bool isExpression = step.action == Action::ReplaceMatches;
    PreparedStep made{
        .index = index,
        .action = step.action,
        .test = StepTest(step.test, step.testValues),
        .run = std::ranges::find(doings, step.action, &Doing::action)->run,
        .tags = TagSet::parse(values[Tag]).value_or(TagSet()),
        .anyTag = values[Tag].isEmpty(),
        .code = codeOf(values[Code]),
        .codes = values[Code],
        .tag = values[Tag],
        .toTag = values[ToTag],
        .toCode = codeOf(values[ToCode]),
        .after = codeOf(values[After]),
        .find = values[Find],
        .with = values[With],
        .order = values[Order],
        .what = chosen(step, What).toString(),
        .tidying = tidyingOf(chosen(step, What)),
        .indicators = withBlanks(values[Indicators]),
        .positions = parsePositions(values[At]).value_or(Positions()),
        .characters = withBlanks(values[Text]),
        .text = isTemplated(step.action) ? templateOf(step) : FieldTemplate(),
        .expression = isExpression ? platform::boundedExpression(values[Find]).value() : QRegularExpression(),
        .when = valueOf(whens, chosen(step, When)),
        .which = valueOf(whiches, chosen(step, Which)),
    };
    if (isExpression)
        made.expression.optimize();
    return made;
}

FieldIndexes chosenFields(RecordWork &work, const PreparedStep &step) {
    FieldIndexes chosen;
    const std::vector<marc::Field> &fields = work.record().fields;
    const bool backwards = step.which == Which::Last;
    for (size_t i = 0; i < fields.size(); ++i) {
        const size_t index = backwards ? fields.size() - 1 - i : i;
        const marc::Field &field = fields[index];
        const bool isMeant =
            step.anyTag ? !field.isControl() && !field.tag.startsWith(u'1') : step.tags.contains(field.tag);
        if (!isMeant)
            continue;
        const Answer answer = step.test.askField(field);
        if (answer == Answer::GivenUp)
            work.fail(u"正则表达式算得太久"_s);
        if (answer != Answer::Yes)
            continue;
        chosen.append(index);
        if (step.which != Which::All)
            break;
    }
    return chosen;
}

bool hasEmbedded(const marc::Field &field) {
    return (field.tag.startsWith(u'4') || field.tag == u"604") && field.subfield(u'1');
}

std::optional<QString> withTexts(const marc::Field &field, QChar code, const ChangeText &change) {
    if (field.isControl())
        return code.isNull() ? change(field.content) : std::nullopt;
    const bool skipsHeads = code.isNull() && hasEmbedded(field);
    QString content;
    qsizetype kept = 0; // characters of the old content that the new one has so far
    bool isChanged = false;
    for (const marc::Subfield part : field.subfields()) {
        const bool isMeant = code.isNull() ? !(skipsHeads && part.code == u'1') : part.code == code;
        auto text = isMeant ? change(part.text) : std::nullopt;
        if (!text)
            continue;
        const qsizetype at = part.text.data() - field.content.constData();
        content += QStringView(field.content).sliced(kept, at - kept);
        content += *text;
        kept = at + part.text.size();
        isChanged = true;
    }
    if (!isChanged)
        return std::nullopt;
    return content + QStringView(field.content).sliced(kept);
}

} // namespace tasks
