#include "schema/metaschema.h"
#include <QRegularExpression>
#include <array>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

enum class Kind { Text, FilledText, Bool, Count, Object, Array, ObjectOrText, ObjectOrNull, TextOrArray };

struct Key {
    Part part;
    QStringView name;
    Kind kind;
};

constexpr auto keys = std::to_array<Key>({
    {Part::Root, u"fields", Kind::Object},
    {Part::Root, u"codelists", Kind::Object},
    {Part::Root, u"rules", Kind::Array},
    {Part::Root, u"family", Kind::FilledText},
    {Part::Root, u"title", Kind::Text},
    {Part::Root, u"profile", Kind::Text},
    {Part::Root, u"language", Kind::Text},
    {Part::Root, u"$schema", Kind::Text},
    {Part::Field, u"tag", Kind::FilledText},
    {Part::Field, u"required", Kind::Bool},
    {Part::Field, u"repeatable", Kind::Bool},
    {Part::Field, u"deprecated", Kind::Bool},
    {Part::Field, u"indicator1", Kind::ObjectOrNull},
    {Part::Field, u"indicator2", Kind::ObjectOrNull},
    {Part::Field, u"subfields", Kind::Object},
    {Part::Field, u"types", Kind::Object},
    {Part::Field, u"pattern", Kind::FilledText},
    {Part::Field, u"positions", Kind::Object},
    {Part::Field, u"codes", Kind::ObjectOrText},
    {Part::Subfield, u"code", Kind::FilledText},
    {Part::Subfield, u"required", Kind::Bool},
    {Part::Subfield, u"repeatable", Kind::Bool},
    {Part::Subfield, u"deprecated", Kind::Bool},
    {Part::Subfield, u"pattern", Kind::FilledText},
    {Part::Subfield, u"positions", Kind::Object},
    {Part::Subfield, u"codes", Kind::ObjectOrText},
    {Part::Subfield, u"pica3", Kind::Text},
    {Part::Subfield, u"order", Kind::Count},
    {Part::Indicator, u"pattern", Kind::FilledText},
    {Part::Indicator, u"codes", Kind::ObjectOrText},
    {Part::Position, u"start", Kind::Count},
    {Part::Position, u"end", Kind::Count},
    {Part::Position, u"pattern", Kind::FilledText},
    {Part::Position, u"codes", Kind::ObjectOrText},
    {Part::Position, u"flags", Kind::ObjectOrText},
    {Part::TypedField, u"pattern", Kind::FilledText},
    {Part::TypedField, u"positions", Kind::Object},
    {Part::TypedField, u"codes", Kind::ObjectOrText},
    {Part::Code, u"code", Kind::FilledText},
    {Part::Code, u"deprecated", Kind::Bool},
    {Part::CodeListEntry, u"codes", Kind::Object},
    {Part::CodeListEntry, u"title", Kind::Text},
    {Part::Rule, u"class", Kind::Text},
    {Part::Rule, u"level", Kind::Text},
    {Part::Rule, u"if", Kind::FilledText},
    {Part::Rule, u"then", Kind::FilledText},
    {Part::Rule, u"each", Kind::FilledText},
    {Part::Rule, u"types", Kind::Array},
});

struct CommonKey {
    QStringView name;
    Kind kind;
};

// Allowed in every object; they are not used in validation.
constexpr auto commonKeys = std::to_array<CommonKey>({
    {u"label", Kind::Text},
    {u"description", Kind::Text},
    {u"url", Kind::Text},
    {u"created", Kind::Text},
    {u"modified", Kind::Text},
    {u"total", Kind::Count},
    {u"records", Kind::Count},
    {u"checks", Kind::TextOrArray},
    {u"rules", Kind::TextOrArray},
});

bool isOf(const QJsonValue &value, Kind kind) {
    switch (kind) {
    case Kind::Text:
        return value.isString();
    case Kind::FilledText:
        return value.isString() && !value.toString().isEmpty();
    case Kind::Bool:
        return value.isBool();
    case Kind::Count:
        return value.isDouble() && value.toDouble() >= 0 && value.toDouble() == double(value.toInteger(-1));
    case Kind::Object:
        return value.isObject();
    case Kind::Array:
        return value.isArray();
    case Kind::ObjectOrText:
        return value.isObject() || isOf(value, Kind::FilledText);
    case Kind::ObjectOrNull:
        return value.isObject() || value.isNull();
    case Kind::TextOrArray:
        return value.isString() || value.isArray();
    }
    return false;
}

QString wanted(Kind kind) {
    switch (kind) {
    case Kind::Text:
        return u"应为文字"_s;
    case Kind::FilledText:
        return u"应为不空的文字"_s;
    case Kind::Bool:
        return u"应为 true 或 false"_s;
    case Kind::Count:
        return u"应为不小于0的整数"_s;
    case Kind::Object:
        return u"应为 {…}"_s;
    case Kind::Array:
        return u"应为 […]"_s;
    case Kind::ObjectOrText:
        return u"应为 {…} 或文字"_s;
    case Kind::ObjectOrNull:
        return u"应为 {…} 或 null"_s;
    case Kind::TextOrArray:
        return u"应为文字或 […]"_s;
    }
    return {};
}

const Kind *kindOf(Part part, const QString &name) {
    for (const Key &key : keys) {
        if (key.part == part && key.name == name)
            return &key.kind;
    }
    for (const CommonKey &key : commonKeys) {
        if (key.name == name)
            return &key.kind;
    }
    return nullptr;
}

} // namespace

KeyFault checkKeys(const QJsonObject &object, Part part) {
    for (auto member = object.begin(); member != object.end(); ++member) {
        const Kind *kind = kindOf(part, member.key());
        if (!kind)
            return {member.key(), u"这里没有这个键"_s};
        if (!isOf(member.value(), *kind))
            return {member.key(), wanted(*kind)};
    }
    return {};
}

bool parseRange(const QString &range, int &start, int &end) {
    static const QRegularExpression shape(uR"(^(\d{1,5})(?:-(\d{1,5}))?$)"_s);
    const auto parts = shape.match(range);
    start = parts.captured(1).toInt();
    end = parts.captured(2).isEmpty() ? start : parts.captured(2).toInt();
    return parts.hasMatch() && start <= end;
}

} // namespace schema
