// Records and findings as short texts.
#pragma once

#include "schema/schemaReader.h"
#include "schema/validator.h"
#include "support/qtPrinters.h"

using namespace Qt::StringLiterals;

// Builds a record from "tag=content" pieces separated by "|", with "$" for the subfield delimiter. "LDR=" is the
// leader.
inline marc::FieldedRecord fieldedRecord(const QString &pieces) {
    marc::FieldedRecord record;
    for (const QString &piece : pieces.split(u'|', Qt::SkipEmptyParts)) {
        const QString content = piece.sliced(4).replace(u'$', QChar(marc::subfieldDelimiter));
        if (piece.startsWith(u"LDR"))
            record.leader = content;
        else
            record.fields.push_back({piece.left(3), content});
    }
    return record;
}

inline const QDate testDay(2026, 1, 31);

// Returns the findings, one per line: the check or the name of the rule, the place and the value.
inline QStringList findingsIn(const std::vector<schema::Finding> &findings, const schema::Schema &schema) {
    QStringList lines;
    for (const schema::Finding &finding : findings) {
        const bool ofRule = finding.rule >= 0 && finding.check == schema::Check::ExternalRule;
        lines.append((ofRule ? schema.rules[size_t(finding.rule)].name : nameOf(finding.check).toString()) + u' ' +
                     placeOf(finding) + (finding.value.isEmpty() ? QString() : u' ' + finding.value));
    }
    return lines;
}

inline QStringList validated(const marc::FieldedRecord &record, schema::Validator &validator) {
    schema::RecordView view;
    view.read(record);
    return findingsIn(validator.validate(view), validator.schema());
}

inline std::shared_ptr<const schema::Schema> schemaOf(const QByteArray &json) {
    auto read = schema::readSchema(json);
    EXPECT_TRUE(read.ok()) << qPrintable(read ? QString() : read.failure().description);
    return std::make_shared<const schema::Schema>(read ? std::move(read.value()) : schema::Schema());
}
