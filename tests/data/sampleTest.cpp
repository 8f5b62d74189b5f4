#include "marc/configurationFiles.h"
#include "platform/codepage936.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"
#include "shippedFiles.h"

namespace {

const QString programFolder = QStringLiteral(PROGRAM_FOLDER "/");

// Calls `visit(record, field)` for every field of every sample; a failure reports the number of the record.
template <typename Visit>
void forEachField(const Visit &visit) {
    QFile file(builtPath(u"samples/sample.iso"_s));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> records = recordLines(file.readAll());
    EXPECT_GE(records.size(), 320);
    for (const QByteArray &record : records) {
        SCOPED_TRACE("record " + std::to_string(1 + &record - records.data()));
        for (const RawField &field : checkedFields(record))
            visit(record, field);
    }
}

// Returns the code and the value of each subfield.
QList<std::pair<char, QByteArray>> subfieldsOf(const RawField &field) {
    QList<std::pair<char, QByteArray>> subfields;
    for (const QByteArray &piece : field.content.split('\x1F').sliced(1))
        subfields.append({piece.isEmpty() ? '\0' : piece[0], piece.mid(1)});
    return subfields;
}

// Returns the remainder of the weighted sum of the digits, with "X" as 10; 0 if the check digit is correct.
int remainder(const QByteArray &digits, bool isbn13) {
    int sum = 0;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        const int value = digits[i] == 'X' ? 10 : digits[i] - '0';
        sum += value * (isbn13 ? (i % 2 ? 3 : 1) : int(digits.size() - i));
    }
    return sum % (isbn13 ? 10 : 11);
}

} // namespace

TEST(Samples, UseOnlySubfieldsThatAreOffered) {
    QMap<QString, QStringList> offered; // by tag, as "$a name"
    const auto lines = [&offered](const QString &tag) {
        if (!offered.contains(tag))
            offered[tag] = marc::readSubfieldList(programFolder, tag).lines;
        return offered[tag];
    };
    forEachField([&lines](const QByteArray &, const RawField &field) {
        QString tag = QString::fromLatin1(field.tag);
        if (tag < u"010"_s)
            return;
        const bool embeds = tag.startsWith(u'4') || tag == u"604"_s;
        EXPECT_EQ(field.content.indexOf('\x1F'), 2) << qPrintable(tag);
        for (const auto &[code, value] : subfieldsOf(field)) {
            EXPECT_FALSE(value.isEmpty()) << qPrintable(tag);
            const bool known = !lines(tag).filter(u'$' + QString(QChar::fromLatin1(code)) + u' ').isEmpty();
            EXPECT_TRUE(known || (embeds && code == '1')) << qPrintable(tag) << '$' << code;
            if (embeds && code == '1')
                tag = QString::fromLatin1(value.first(3)); // the following subfields belong to the embedded field
        }
    });
}

// The shipped template reports no fault in a valid record, except in rubbings, which have no publisher as a book must.
TEST(Samples, PassTheProofs) {
    constexpr char rubbing = 'u';
    const QString noPublisher = u"Error:210字段的c子字段(必备子字段)不存在\r\n"_s;
    forEachField([&](const QByteArray &record, const RawField &field) {
        if (field.tag != "001")
            return;
        const marc::FieldRows rows = marc::showRecord(platform::decode(record)).rows;
        const auto proofed = proof::proofTemplate(rows, programFolder);
        ASSERT_TRUE(proofed.ok());
        EXPECT_EQ(QString(proof::report(proof::proofFields(rows)) + proof::report(proofed.value().faults)),
                  record[6] == rubbing ? noPublisher : QString());
    });
}

TEST(Samples, CoverAllKindsWithSoundCodedDataAndNumbers) {
    const QMap<QByteArray, qsizetype> lengths = {{"100", 36}, {"105", 13}, {"106", 1},  {"110", 11}, {"115", 20},
                                                 {"120", 13}, {"125", 2},  {"126", 15}, {"127", 6},  {"135", 13}};
    QMap<qsizetype, int> counts; // by number of digits
    QSet<QByteArray> seen;       // kinds of material and tags
    qsizetype longestNote = 0;
    forEachField([&](const QByteArray &record, const RawField &field) {
        seen << record.mid(6, 1) << field.tag;
        if (field.tag == "330")
            longestNote = qMax(longestNote, platform::decode(field.content).size());
        const auto [code, value] = subfieldsOf(field).value(0);
        EXPECT_EQ(lengths.value(field.tag, value.size()), value.size()) << field.tag.data();
        if (field.tag != "010" && field.tag != "011")
            return;
        const QByteArray digits = QByteArray(value).replace('-', "");
        ++counts[digits.size()];
        EXPECT_EQ(code, 'a');
        EXPECT_EQ(remainder(digits, digits.size() == 13), 0) << value.data();
        EXPECT_TRUE(digits.size() != 10 || (value.size() == 13 && value.count('-') == 3)) << value.data();
    });
    EXPECT_TRUE(counts[8] > 10 && counts[10] > 150 && counts[13] >= 3 && longestNote > 300);
    const QByteArray wanted = "a c e g i j l u v 105 106 110 410 430 454 461 463 517 600 601 606 607 610 690 692 700 "
                              "701 702 711 712 856 905";
    for (const QByteArray &kind : wanted.split(' '))
        EXPECT_TRUE(seen.contains(kind)) << kind.data();
}
