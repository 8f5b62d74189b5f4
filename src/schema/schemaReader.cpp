#include "schema/schemaReader.h"
#include "platform/plainFile.h"
#include "schema/ruleParser.h"
#include "schema/valueReader.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr qsizetype mostRules = 1000;

class SchemaReader {
public:
    platform::Result<Schema> read(const QJsonObject &root);

private:
    void readField(const QString &tag, const QJsonValue &value);
    void readDefinition(const QJsonObject &object, FieldRules &field);
    void readIndicators(const QJsonObject &object, FieldRules &field);
    void readSubfields(const QJsonObject &object, FieldRules &field);
    void readSubfield(const QString &code, const QJsonValue &value, FieldRules &field);
    void readTypes(const QJsonObject &object, FieldRules &field);
    void readRules(const QJsonArray &rules);
    void noteIgnored(const QJsonObject &object, const QString &place);

    FaultPlace m_fault;
    ValueReader m_values{m_fault};
    Schema m_schema;
};

platform::Result<Schema> SchemaReader::read(const QJsonObject &root) {
    m_schema.byTag.fill(-1);
    if (m_values.check(root, Part::Root)) {
        if (root[u"family"].toString(u"marc"_s) != u"marc")
            m_fault.report(u"family"_s, u"应为“marc”"_s);
        if (!root.contains(u"fields"))
            m_fault.report(u"fields"_s, u"缺少这个键"_s);
        m_schema.title = root[u"title"].toString();
        m_values.readDirectory(root[u"codelists"].toObject());
        const QJsonObject fields = root[u"fields"].toObject();
        for (auto field = fields.begin(); field != fields.end() && !m_fault.failed(); ++field)
            readField(field.key(), field.value());
        readRules(root[u"rules"].toArray());
        if (root.contains(u"checks"))
            m_schema.ignored.append(u"checks"_s);
    }
    if (m_fault.failed())
        return platform::Failure{m_fault.key() + u"：" + m_fault.reason()};
    return std::move(m_schema);
}

void SchemaReader::readField(const QString &tag, const QJsonValue &value) {
    const FaultPlace::Inside fields(m_fault, u"fields"_s);
    const FaultPlace::Inside inside(m_fault, tag);
    FieldRules field;
    field.tag = tagNumber(tag);
    field.byCode.fill(-1);
    if (field.tag == unknownTag)
        return m_fault.report({}, u"字段号应为三位数字或“LDR”"_s);
    if (!value.isObject())
        return m_fault.report({}, u"应为 {…}"_s);
    const QJsonObject object = value.toObject();
    if (!m_values.check(object, Part::Field))
        return;
    if (object[u"tag"].toString(tag) != tag)
        return m_fault.report(u"tag"_s, u"应与上一层的键相同"_s);
    readDefinition(object, field);
    if (field.required)
        m_schema.required.push_back(int(m_schema.fields.size()));
    m_schema.byTag[size_t(field.tag)] = qint16(m_schema.fields.size());
    m_schema.fields.push_back(std::move(field));
    noteIgnored(object, u"fields."_s + tag);
}

void SchemaReader::readDefinition(const QJsonObject &object, FieldRules &field) {
    field.label = object[u"label"].toString();
    field.required = object[u"required"].toBool();
    field.repeatable = object[u"repeatable"].toBool();
    field.deprecated = object[u"deprecated"].toBool();
    field.hasSubfields = object.contains(u"subfields");
    const bool isFlat = object.contains(u"pattern") || object.contains(u"positions") || object.contains(u"codes");
    if (field.hasSubfields && isFlat)
        return m_fault.report(u"subfields"_s, u"有子字段的字段，不能又有pattern、positions或codes"_s);
    m_values.read(object, field);
    readIndicators(object, field);
    readSubfields(object[u"subfields"].toObject(), field);
    readTypes(object[u"types"].toObject(), field);
}

void SchemaReader::readIndicators(const QJsonObject &object, FieldRules &field) {
    for (const auto &[key, index] : {std::pair(u"indicator1"_s, 0), std::pair(u"indicator2"_s, 1)}) {
        if (!object[key].isObject())
            continue;
        if (field.tag < firstDataTag || field.tag == leaderTag)
            return m_fault.report(key, u"控制字段没有指示符"_s);
        const FaultPlace::Inside inside(m_fault, key);
        if (m_values.check(object[key].toObject(), Part::Indicator))
            m_values.read(object[key].toObject(), field.indicators[index].emplace());
    }
}

void SchemaReader::readSubfields(const QJsonObject &object, FieldRules &field) {
    const FaultPlace::Inside place(m_fault, u"subfields"_s);
    for (auto subfield = object.begin(); subfield != object.end() && !m_fault.failed(); ++subfield)
        readSubfield(subfield.key(), subfield.value(), field);
}

void SchemaReader::readSubfield(const QString &code, const QJsonValue &value, FieldRules &field) {
    const FaultPlace::Inside inside(m_fault, code);
    if (code.size() != 1 || code[0].unicode() >= field.byCode.size())
        return m_fault.report({}, u"子字段代码应为一个字母、数字或符号"_s);
    if (!value.isObject())
        return m_fault.report({}, u"应为 {…}"_s);
    const QJsonObject object = value.toObject();
    if (!m_values.check(object, Part::Subfield))
        return;
    if (object[u"code"].toString(code) != code)
        return m_fault.report(u"code"_s, u"应与上一层的键相同"_s);
    SubfieldRules subfield;
    subfield.code = code[0].unicode();
    subfield.label = object[u"label"].toString();
    subfield.required = object[u"required"].toBool();
    subfield.repeatable = object[u"repeatable"].toBool();
    subfield.deprecated = object[u"deprecated"].toBool();
    m_values.read(object, subfield);
    field.byCode[subfield.code] = qint16(field.subfields.size());
    field.subfields.push_back(std::move(subfield));
    noteIgnored(object, u"fields.%1.subfields.%2"_s.arg(tagName(field.tag), code));
}

void SchemaReader::readTypes(const QJsonObject &object, FieldRules &field) {
    const FaultPlace::Inside place(m_fault, u"types"_s);
    for (auto type = object.begin(); type != object.end() && !m_fault.failed(); ++type) {
        const FaultPlace::Inside inside(m_fault, type.key());
        if (!type.value().isObject())
            return m_fault.report({}, u"应为 {…}"_s);
        TypedRules rules;
        rules.types = recordType(type.key()).value_or(0);
        if (!m_values.check(type.value().toObject(), Part::TypedField))
            return;
        m_values.read(type.value().toObject(), rules);
        if (rules.types == 0)
            m_schema.ignored.append(u"fields.%1.types.%2"_s.arg(tagName(field.tag), type.key()));
        field.byType.push_back(std::move(rules));
    }
}

void SchemaReader::readRules(const QJsonArray &rules) {
    if (rules.size() > mostRules)
        return m_fault.report(u"rules"_s, u"规则不能多于%1条"_s.arg(mostRules));
    for (qsizetype i = 0; i < rules.size() && !m_fault.failed(); ++i) {
        const QString place = u"rules[%1]"_s.arg(i);
        const FaultPlace::Inside inside(m_fault, place);
        const QJsonObject object = rules[i].toObject();
        if (!object.contains(u"then")) { // a rule in words, or in the language of another program
            m_schema.ignored.append(place);
        } else if (m_values.check(object, Part::Rule)) {
            auto rule = readRule(object);
            if (!rule)
                return m_fault.report({}, rule.failure().description);
            const QString name = rule.value().name;
            if (!name.isEmpty() && std::ranges::count(m_schema.rules, name, &Rule::name) > 0)
                return m_fault.report(u"class"_s, u"与前面的规则同名"_s);
            m_schema.rules.push_back(std::move(rule.value()));
        }
    }
}

// External rules of a field or subfield are in words or in the language of another program.
void SchemaReader::noteIgnored(const QJsonObject &object, const QString &place) {
    for (const QString &key : {u"checks"_s, u"rules"_s}) {
        if (object.contains(key))
            m_schema.ignored.append(place + u'.' + key);
    }
}

} // namespace

platform::Result<Schema> readSchema(const QByteArray &json) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document.isNull())
        return platform::Failure{u"不是JSON，第%1个字节：%2"_s.arg(error.offset + 1).arg(error.errorString())};
    if (!document.isObject())
        return platform::Failure{u"最外层应为 {…}"_s};
    return SchemaReader().read(document.object());
}

platform::Result<Schema> readSchemaFile(const QString &path) {
    const auto bytes = platform::readSmallFile(path, largestSchema);
    auto schema = bytes ? readSchema(bytes.value()) : bytes.failure();
    if (!schema)
        return platform::Failure{u"机读格式的模式【"_s + path + u"】不能用：" + schema.failure().description,
                                 schema.failure().number};
    return schema;
}

} // namespace schema
