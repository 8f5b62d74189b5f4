#include "tools/avramText.h"
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

constexpr QChar fill = u'|'; // for coded positions that the cataloguer chose not to code

QJsonObject labelled(const QString &label) {
    return label.isEmpty() ? QJsonObject() : QJsonObject{{u"label"_s, label}};
}

QJsonObject codeList(const QList<FormatCode> &codes) {
    QJsonObject list;
    for (const FormatCode &code : codes)
        list.insert(QString(code.code).replace(u'#', u' '), labelled(code.label));
    return list;
}

QJsonObject positionOf(const CodedPosition &position, bool mayBeFilled) {
    QJsonObject made = labelled(position.name);
    made.insert(u"start"_s, position.range.first(2).toInt());
    made.insert(u"end"_s, position.range.last(2).toInt());
    if (!position.pattern.isEmpty())
        made.insert(u"pattern"_s, position.pattern);
    if (position.codes.isEmpty())
        return made;
    QJsonObject codes = codeList(position.codes);
    if (mayBeFilled)
        codes.insert(QString(position.codes[0].code.size(), fill), labelled(u"填充符，未编码"_s));
    made.insert(position.flags ? u"flags"_s : u"codes"_s, codes);
    return made;
}

QJsonObject positionsOf(const CodedValue &value) {
    QJsonObject made;
    for (const CodedPosition &position : value.positions)
        made.insert(position.range, positionOf(position, !value.code.isEmpty()));
    return made;
}

QJsonObject definition(const QString &name, const FormatMarks &marks) {
    QJsonObject made = labelled(name);
    made.insert(u"required"_s, marks.required);
    made.insert(u"repeatable"_s, marks.repeatable);
    if (!marks.pattern.isEmpty())
        made.insert(u"pattern"_s, marks.pattern);
    return made;
}

QJsonValue indicatorOf(const FormatIndicator &indicator) {
    if (indicator.any)
        return QJsonValue::Null;
    if (indicator.codes.isEmpty())
        return QJsonObject{{u"label"_s, u"未定义"_s}, {u"codes"_s, codeList({{u"#"_s, u"空格"_s}})}};
    QJsonObject made = labelled(indicator.name);
    made.insert(u"codes"_s, codeList(indicator.codes));
    return made;
}

// Adds subfields that the choice lists do not offer: those of embedded fields in linking fields, and in the other
// fields for readers those that link fields and name a script.
void addCommonSubfields(const QString &tag, QJsonObject &subfields) {
    const auto add = [&subfields](QStringView codes, const QString &label) {
        for (const QChar code : codes)
            if (!subfields.contains(code))
                subfields.insert(code, definition(label, {.required = false, .repeatable = true, .pattern = {}}));
    };
    if (tag.startsWith(u'4') || tag == u"604")
        return add(u"0123456789abcdefghijklmnopqrstuvwxyzABEFG", u"嵌入字段的子字段"_s);
    if (tag < u"200" || tag > u"799")
        return;
    add(u"6", u"字段连接数据"_s);
    add(u"7", u"文字标识"_s);
    if (tag == u"200" || tag == u"225" || tag >= u"500")
        add(u"ABCDEFGHI", u"汉语拼音"_s); // of the subfield with the small letter
}

// Tags with a 9 are for national or local use; those that the format does not define may contain anything.
void addLocalFields(QJsonObject &fields) {
    for (int number = 10; number < 1000; ++number) {
        const QString tag = u"%1"_s.arg(number, 3, 10, QChar(u'0'));
        if (tag.contains(u'9') && !fields.contains(tag))
            fields.insert(tag,
                          definition(u"国家或本馆自用字段"_s, {.required = false, .repeatable = true, .pattern = {}}));
    }
}

QJsonObject fieldOf(const FormatField &field) {
    QJsonObject made = definition(field.name, field.marks);
    made.insert(u"tag"_s, field.tag);
    if (field.subfields.isEmpty())
        return made;
    made.insert(u"indicator1"_s, indicatorOf(field.indicators[0]));
    made.insert(u"indicator2"_s, indicatorOf(field.indicators[1]));
    QJsonObject subfields;
    for (const FormatSubfield &subfield : field.subfields)
        subfields.insert(subfield.code, definition(subfield.name, subfield.marks));
    addCommonSubfields(field.tag, subfields);
    made.insert(u"subfields"_s, subfields);
    return made;
}

// Adds the positions to the leader or to their subfield. Returns whether the format has it.
bool addPositions(const CodedValue &value, QJsonObject &fields) {
    if (value.code.isEmpty()) {
        QJsonObject leader = definition(u"头标区"_s, {.required = true, .repeatable = false, .pattern = {}});
        leader.insert(u"tag"_s, value.tag);
        leader.insert(u"positions"_s, positionsOf(value));
        fields.insert(value.tag, leader);
        return true;
    }
    QJsonObject field = fields.value(value.tag).toObject();
    QJsonObject subfields = field.value(u"subfields"_s).toObject();
    if (!subfields.contains(value.code))
        return false;
    QJsonObject subfield = subfields.value(value.code).toObject();
    subfield.insert(u"positions"_s, positionsOf(value));
    subfields.insert(value.code, subfield);
    field.insert(u"subfields"_s, subfields);
    fields.insert(value.tag, field);
    return true;
}

} // namespace

platform::Result<QByteArray> avramSchema(const Format &format, const QList<CodedValue> &values,
                                         const QJsonArray &rules) {
    QJsonObject fields;
    for (const FormatField &field : format) {
        if (field.tag != u"???")
            fields.insert(field.tag, fieldOf(field));
    }
    addLocalFields(fields);
    for (const CodedValue &value : values) {
        if (!addPositions(value, fields))
            return platform::Failure{u"the format has no "_s + value.tag + u'$' + value.code};
    }
    const QJsonObject schema{
        {u"title"_s, u"中国机读目录格式（书目数据）"_s},
        {u"description"_s, u"CNMARC书目记录的字段、指示符、子字段、编码位和字段间的规则"_s},
        {u"family"_s, u"marc"_s},
        {u"language"_s, u"zh"_s},
        {u"$schema"_s, u"https://format.gbv.de/schema/avram/schema.json"_s},
        {u"fields"_s, fields},
        {u"rules"_s, rules},
    };
    return QJsonDocument(schema).toJson();
}

} // namespace tools
