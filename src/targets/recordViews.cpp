#include "targets/recordViews.h"
#include "marc/fitText.h"
#include "marc/isoLayout.h"
#include "marc/isoWriter.h"

namespace targets {

QString shownField(const marc::Field &field) {
    return field.tag + u' ' + QString(field.content).replace(QChar(marc::subfieldDelimiter), u'$');
}

platform::Result<marc::RawRecord> asRawRecord(marc::FieldedRecord record) {
    record.leader = marc::leaderFor(marc::TargetForm::GbkIso, record.leader);
    for (marc::Field &field : record.fields)
        marc::fitText(marc::TargetForm::GbkIso, field.content);
    marc::IsoWriter writer;
    if (const QString why = writer.make(record); !why.isEmpty())
        return platform::Failure{why};
    return writer.text();
}

QString standardView(const marc::FieldedRecord &record) {
    const auto raw = asRawRecord(record);
    return raw ? raw.value() : raw.failure().description;
}

QString fieldsView(const marc::FieldedRecord &record) {
    QString text = record.leader;
    for (const marc::Field &field : record.fields)
        text += u"\r\n" + shownField(field);
    return text;
}

} // namespace targets
