// Reads the keys of a rule.
#include "schema/recordView.h"
#include "schema/ruleParser.h"
#include <QJsonArray>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr std::array<QStringView, levelCount> levels{u"错误", u"警告", u"提示"};

std::optional<QString> readTypes(const QJsonArray &names, RecordTypes &types) {
    types = names.isEmpty() ? ~0U : 0;
    for (const auto &name : names) {
        const auto type = recordType(name.toString());
        if (!type)
            return u"types：没有“%1”这种记录类型"_s.arg(name.toString());
        types |= *type;
    }
    return std::nullopt;
}

} // namespace

QStringView nameOf(Level level) {
    return levels[size_t(level)];
}

platform::Result<Rule> readRule(const QJsonObject &object) {
    Rule rule{.name = object[u"class"].toString(),
              .description = object[u"description"].toString(),
              .ifText = object[u"if"].toString(),
              .thenText = object[u"then"].toString()};
    if (rule.description.isEmpty())
        rule.description = rule.name;
    const QString level = object[u"level"].toString(levels[size_t(rule.level)].toString());
    const auto found = std::ranges::find(levels, QStringView(level));
    if (found == levels.end())
        return platform::Failure{u"level：应为“错误”“警告”或“提示”"_s};
    rule.level = Level(found - levels.begin());
    if (const auto fault = readTypes(object[u"types"].toArray(), rule.types))
        return platform::Failure{*fault};
    if (const QString each = object[u"each"].toString(); !each.isEmpty()) {
        const auto place = parseCondition(each);
        const bool isField =
            place && place.value().kind == Condition::Kind::Present && place.value().left.paths.size() == 1;
        if (!isField || place.value().left.paths[0].part != Path::Part::Field)
            return platform::Failure{u"each：应为一个字段，如701或4XX"_s};
        rule.each = place.value().left.paths;
    }
    const Path *each = rule.each.empty() ? nullptr : rule.each.data();
    if (object.contains(u"if")) {
        auto condition = parseCondition(object[u"if"].toString(), each);
        if (!condition)
            return platform::Failure{u"if：" + condition.failure().description};
        rule.condition.push_back(std::move(condition.value()));
    }
    auto consequence = parseCondition(object[u"then"].toString(), each);
    if (!consequence)
        return platform::Failure{u"then：" + consequence.failure().description};
    rule.consequence = std::move(consequence.value());
    return rule;
}

} // namespace schema
