// The four configuration files and the three proofs. The input has five parts, separated by record terminators: the
// four files and the rows. Field terminators separate the rows, and a delimiter separates identifier and value.
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "marc/configurationFiles.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include "platform/textFile.h"
#include "proof/isbn.h"
#include "proof/proofChain.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace marc;

namespace fuzz {

namespace {

FieldRows rowsOf(const QString &text) {
    FieldRows rows{{{}, u"头标区"_s, u"000"_s, {}, QString(leaderLength, u' ')}};
    for (const QString &line : text.split(QChar(fieldTerminator))) {
        const qsizetype at = line.indexOf(QChar(subfieldDelimiter));
        rows.append({{}, {}, line.left(at), {}, at < 0 ? QString() : line.sliced(at + 1)});
    }
    return rows;
}

void checkDescriptions(const FieldRows &rows, const QString &file) {
    FieldRows described = rows;
    require(fillDescriptions(described, scratchFolder()).isEmpty(), "the file is there");
    require(described.size() == rows.size(), "descriptions do not add rows");
    for (qsizetype i = 0; i < rows.size(); ++i) {
        FieldRow row = described[i];
        require(file.contains(row.subfieldLabel) && (i == 0 || file.contains(row.fieldLabel)),
                "labels occur in the file");
        row.fieldLabel = rows[i].fieldLabel;
        row.subfieldLabel = rows[i].subfieldLabel;
        require(row == rows[i], "only descriptions change");
    }
}

void checkLists(const FieldRows &rows, const QString &fields, const QString &subfields) {
    const PickList list = readFieldList(scratchFolder());
    for (const QString &line : list.lines) {
        require(fields.contains(line), "an offered line occurs in the file");
        require(line.startsWith(u"???") || platform::isNumericText(line.left(3)), "an offered field has a tag");
    }
    for (const FieldRow &row : rows) {
        const PickList codes = readSubfieldList(scratchFolder(), row.identifier);
        require(codes.lines.isEmpty() != codes.complaint.isEmpty(), "either a list or a complaint");
        for (const QString &line : codes.lines)
            require(subfields.contains(line) && !platform::trimBlanks(line).startsWith(u'['),
                    "a list is taken from one section");
    }
}

// Returns the lines of a report; each line is one fault of a field.
QStringList faultLines(const QString &report) {
    require(report.isEmpty() || report.endsWith(u"\r\n"), "a report ends with a line end");
    QStringList lines = report.split(u"\r\n"_s);
    lines.removeLast();
    return lines;
}

void checkProofs(const FieldRows &rows, const QString &file) {
    const auto tagged = [&](const QString &tag) { return std::ranges::count(rows, tag, &FieldRow::identifier); };
    for (const QString &line : faultLines(proof::report(proof::proofFields(rows))))
        require(line.startsWith(u"Error:") &&
                    (line.contains(u"不存在") ? tagged(line.mid(6, 3)) == 0 : tagged(line.mid(6, 3)) > 1),
                "a missing field does not occur, a repeated field occurs more than once");
    const auto byTemplate = proof::proofTemplate(rows, scratchFolder());
    require(byTemplate.ok() && byTemplate.value().complaint.isEmpty(), "the template can be read");
    // A line of the template may itself contain a line feed.
    const qsizetype most = 2 * (file.count(u'\r') + 1);
    const QString report = proof::report(byTemplate.value().faults);
    require(report.count(u"Error:"_s) <= most + file.count(u"Error:"_s) * 2, "a rule is reported once");
    const auto chain = proof::proofRecord(rows, scratchFolder());
    require(chain.ok() && chain.value().report.startsWith(proof::report(proof::proofFields(rows))) &&
                chain.value().report.contains(report),
            "the reports are in the order of the proofs");
}

void checkIsbn(const QString &text) {
    static const QRegularExpression shape(uR"(\A[0-9]+-[0-9]+-[0-9]+-[0-9X]\z)"_s);
    bool valid = text.size() == 13 && shape.match(text).hasMatch();
    int sum = 0;
    int weight = 10;
    for (qsizetype i = 0; valid && i < text.size(); ++i) {
        if (text[i] != u'-')
            sum += weight-- * (text[i] == u'X' ? 10 : text[i].unicode() - u'0');
    }
    valid = valid && sum % 11 == 0;
    require(proof::checkISBN(text).has_value() != valid, "an ISBN is valid if its shape and its check sum are");
}

} // namespace

void configuration(QByteArrayView bytes) {
    const QList<QByteArray> parts = bytes.toByteArray().split(char(recordTerminator));
    QStringList texts;
    for (const QStringView name : {templateFile, descriptionFile, subfieldListFile, fieldListFile}) {
        const QByteArray part = parts.value(texts.size());
        scratchFile(name, part);
        texts.append(platform::decode(part));
    }
    const FieldRows rows = rowsOf(platform::decode(parts.value(texts.size())));
    if (rows.size() > 200)
        return; // the lists are read again for each row
    checkDescriptions(rows, texts[1]);
    checkLists(rows, texts[3], texts[2]);
    checkProofs(rows, texts[0]);
    for (const FieldRow &row : rows)
        checkIsbn(row.value);
}

} // namespace fuzz
