// A schema, a condition of a rule, a pattern and a record. The input has four parts, separated by record terminators;
// in the record, field terminators separate the fields, whose first three characters are the tag.
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "platform/codepage936.h"
#include "schema/schemaReader.h"
#include "schema/validator.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace fuzz {

namespace {

marc::FieldedRecord recordOf(const QString &text) {
    marc::FieldedRecord record;
    for (const QString &field : text.split(QChar(marc::fieldTerminator)))
        record.fields.push_back({field.left(3).leftJustified(3), field.mid(3)});
    record.leader = u"00000nam0 2200000   450 "_s;
    return record;
}

void validate(platform::Result<schema::Schema> read, const marc::FieldedRecord &record) {
    if (!read) {
        require(!read.failure().description.isEmpty(), "a refused schema has a reason");
        return;
    }
    schema::Validator validator(std::make_shared<const schema::Schema>(std::move(read.value())), QDate(2026, 1, 31));
    schema::RecordView view;
    view.read(record);
    const std::vector<schema::Finding> first = validator.validate(view);
    for (const schema::Finding &finding : first) {
        require(finding.element >= -1 && finding.element <= int(record.fields.size()), "a finding is in the record");
        require(finding.check == schema::Check::GivenUp || !placeOf(finding).isEmpty() || finding.rule >= 0,
                "a finding of the schema has a place");
        require(finding.rule >= 0 || !wordsOf(finding, validator.schema()).isEmpty(), "a finding has words");
    }
    require(validator.validate(view).size() == first.size(), "the same record has the same findings");
}

// Returns a schema with one pattern and one rule.
QByteArray schemaWith(const QString &condition, const QString &pattern) {
    const QJsonObject subfield{{u"pattern"_s, pattern}, {u"repeatable"_s, true}};
    const QJsonObject field{{u"repeatable"_s, true}, {u"subfields"_s, QJsonObject{{u"a"_s, subfield}}}};
    const QJsonObject rule{{u"each"_s, u"XXX"_s}, {u"if"_s, condition}, {u"then"_s, condition}};
    return QJsonDocument(QJsonObject{{u"fields"_s, QJsonObject{{u"200"_s, field}}}, {u"rules"_s, QJsonArray{rule}}})
        .toJson();
}

} // namespace

void schema(QByteArrayView bytes) {
    const QList<QByteArray> parts = bytes.toByteArray().split(char(marc::recordTerminator));
    const marc::FieldedRecord record = recordOf(platform::decode(parts.value(3)));
    validate(schema::readSchema(parts[0]), record);
    const QString pattern = QString::fromUtf8(parts.value(2));
    validate(schema::readSchema(schemaWith(QString::fromUtf8(parts.value(1)), pattern.isEmpty() ? u"."_s : pattern)),
             record);
}

} // namespace fuzz
