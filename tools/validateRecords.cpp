// Validates a record file against a schema and prints one line per finding, separated by tabs: the record's number, the
// place, the level, the check or the name of the rule, and what is wrong. With --like-marcvalidate the lines are those
// of the program of that name, for the findings that both know. With --time it prints only the number of records and
// findings, and the records per second of processor time, without reading the file.
// With --proofs it also runs the three proofs, by the template next to the schema, and reads the rows of the grid
// instead of the fields, as the proof of a whole list does. Usage: validateRecords SCHEMA FILE [--schema-only]
// [--proofs] [--like-marcvalidate | --time]
#include "marc/fieldedRecord.h"
#include "platform/codepage936.h"
#include "platform/paths.h"
#include "proof/proofChain.h"
#include "schema/schemaReader.h"
#include "schema/validator.h"
#include "tools/sourceText.h"
#include <QFile>
#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

struct Likeness {
    schema::Check check;
    const char *words;
};

constexpr Likeness likenesses[] = {
    {schema::Check::UndefinedField, "unknown field"},
    {schema::Check::NonrepeatableField, "field is not repeatable"},
    {schema::Check::UndefinedSubfield, "unknown subfield"},
    {schema::Check::NonrepeatableSubfield, "subfield is not repeatable"},
    {schema::Check::InvalidIndicator, "indicator"},
};

void print(const QString &line) {
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
}

void printLike(const QString &id, const schema::Finding &finding) {
    for (const Likeness &like : likenesses) {
        if (like.check != finding.check)
            continue;
        QString words = QString::fromLatin1(like.words);
        if (finding.indicator)
            words = (finding.indicator == 1 ? u"unknown first "_s : u"unknown second "_s) + words;
        const QString tag = finding.tag == schema::unknownTag ? finding.value : schema::tagName(finding.tag);
        const QString value = finding.indicator ? finding.value
                              : finding.code    ? QString(QChar(finding.code))
                                                : QString();
        print(QStringList{id, tag, words, value}.join(u'\t'));
    }
}

void printFinding(qsizetype number, const schema::Finding &finding, const schema::Schema &schema) {
    const bool ofRule = finding.rule >= 0;
    const QString name = ofRule ? schema.rules[size_t(finding.rule)].name : nameOf(finding.check).toString();
    print(QStringList{QString::number(number), placeOf(finding), nameOf(finding.level).toString(), name,
                      wordsOf(finding, schema)}
              .join(u'\t'));
}

struct Options {
    bool schemaOnly = false;
    bool timed = false;
    bool alike = false;
    bool proofs = false;
    QString folder; // of the schema
};

platform::Result<QStringList> readRecords(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return platform::Failure{file.errorString()};
    QStringList records;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (!line.trimmed().isEmpty())
            records.append(platform::decode(line.endsWith('\r') ? line.chopped(1) : line));
    }
    return records;
}

void validate(const QStringList &records, schema::Validator &validator, const Options &options) {
    marc::FieldedRecord record;
    marc::FieldRows rows;
    schema::RecordView view;
    proof::RecordProofs proofs(options.folder);
    qsizetype findings = 0;
    const std::clock_t begin = std::clock();
    for (qsizetype i = 0; i < records.size(); ++i) {
        if (options.proofs) {
            rows = marc::showRecord(records[i]).rows;
            const proof::RecordFaults faults = proofs.faultsOf(rows);
            findings += qsizetype(faults.structural.size() + faults.byTemplate.size() + faults.isbn.size());
            view.read(rows);
        } else {
            record.take(records[i]);
            view.read(record);
        }
        const auto &found = validator.validate(view);
        findings += qsizetype(found.size());
        const bool hasId = !record.fields.empty() && record.fields[0].tag == u"001";
        for (const schema::Finding &finding : found) {
            if (options.alike)
                printLike(hasId ? record.fields[0].content : QString::number(i + 1), finding);
            else if (!options.timed)
                printFinding(i + 1, finding, validator.schema());
        }
    }
    if (options.timed) {
        const double perSecond =
            double(records.size()) * CLOCKS_PER_SEC / double(qMax(std::clock() - begin, std::clock_t(1)));
        print(u"%1 records, %2 findings, %3 records per second of processor time"_s.arg(records.size())
                  .arg(findings)
                  .arg(qRound(perSecond)));
    }
}

} // namespace

int main(int count, char **arguments) {
    QStringList given;
    for (int i = 1; i < count; ++i)
        given.append(QString::fromLocal8Bit(arguments[i]));
    const Options options{.schemaOnly = given.removeAll(u"--schema-only"_s) > 0,
                          .timed = given.removeAll(u"--time"_s) > 0,
                          .alike = given.removeAll(u"--like-marcvalidate"_s) > 0,
                          .proofs = given.removeAll(u"--proofs"_s) > 0,
                          .folder = platform::folderOf(given.value(0))};
    if (given.size() != 2)
        return tools::complain(u"validateRecords"_s, u"usage: validateRecords SCHEMA FILE [OPTION...]"_s);
    auto read = schema::readSchemaFile(given[0]);
    if (!read)
        return tools::complain(given[0], read.failure().description);
    const auto records = readRecords(given[1]);
    if (!records)
        return tools::complain(given[1], records.failure().description);
    schema::Validator validator(std::make_shared<const schema::Schema>(std::move(read.value())), QDate::currentDate());
    if (options.schemaOnly || options.alike)
        validator.setChecks(schema::Checks(schema::allChecks).reset(size_t(schema::Check::ExternalRule)));
    validate(records.value(), validator, options);
    return 0;
}
