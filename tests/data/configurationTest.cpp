#include "platform/codepage936.h"
#include "shippedFiles.h"
#include "support/qtPrinters.h"
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList fileNames = {u"cnmarc_default.Qvs"_s, u"cnmarc_zzdtshi.Qvs"_s, u"marcBJshuoming.Qvs"_s,
                               u"mobanJiaoDui.QVs"_s};

QList<Section> descriptions() {
    return sectionsOf(builtLines(u"marcBJshuoming.Qvs"_s));
}

// Tag and code of every described subfield, as "200a".
QSet<QString> describedCodes() {
    QSet<QString> codes;
    for (const Section &section : descriptions()) {
        for (const QString &line : section.lines)
            codes.insert(section.tag + line[1]);
    }
    return codes;
}

} // namespace

TEST(Configuration, IsGbkWithLinesEndedByCrLf) {
    for (const QString &name : fileNames) {
        const QByteArray bytes = builtFile(name);
        EXPECT_EQ(platform::encode(platform::decode(bytes)), bytes) << qPrintable(name);
        EXPECT_EQ(bytes.count('\n'), bytes.count("\r\n")) << qPrintable(name);
        EXPECT_EQ(bytes.count('\r'), bytes.count("\r\n")) << qPrintable(name);
    }
}

// The readers of sections never take a file's very last line.
TEST(Configuration, EndsInALineThatDoesNotMatter) {
    EXPECT_TRUE(builtFile(fileNames[0]).endsWith("\r\n"));
    for (const QString &name : fileNames.sliced(1))
        EXPECT_TRUE(builtFile(name).endsWith("\r\n\r\n")) << qPrintable(name);
}

TEST(Configuration, OffersEveryFieldOnceInOrder) {
    static const QRegularExpression shape(u"^\\d{3} \\S+"_s);
    QStringList tags;
    const QStringList lines = builtLines(fileNames[0]);
    for (const QString &line : lines) {
        if (line.isEmpty() || line.startsWith(u"???"))
            continue;
        EXPECT_TRUE(shape.match(line).hasMatch()) << qPrintable(line);
        tags.append(line.first(3));
    }
    EXPECT_GE(tags.size(), 170);
    EXPECT_TRUE(std::ranges::is_sorted(tags));
    EXPECT_EQ(QSet<QString>(tags.begin(), tags.end()).size(), tags.size());
    EXPECT_EQ(lines.filter(QRegularExpression(u"^\\?\\?\\? "_s)).size(), 1);
}

TEST(Configuration, DescribesWhatThePickListsOffer) {
    static const QRegularExpression shape(u"^\\$[0-9A-Za-z] \\S"_s);
    const QList<Section> described = descriptions();
    const QList<Section> offered = sectionsOf(builtLines(fileNames[1]));
    QStringList fields;
    int subfields = 0;
    ASSERT_EQ(described.size(), offered.size());
    for (qsizetype i = 0; i < described.size(); ++i) {
        fields.append(described[i].tag + u' ' + described[i].name);
        EXPECT_EQ(described[i].tag, offered[i].tag);
        EXPECT_EQ(described[i].lines, offered[i].lines) << qPrintable(offered[i].tag);
        QSet<QChar> codes;
        for (const QString &line : described[i].lines) {
            EXPECT_TRUE(shape.match(line).hasMatch()) << qPrintable(line);
            codes.insert(line[1]);
        }
        EXPECT_EQ(codes.size(), described[i].lines.size()) << "a code twice in " << qPrintable(described[i].tag);
        EXPECT_EQ(described[i].lines.isEmpty(), described[i].tag < u"010"_s) << qPrintable(described[i].tag);
        subfields += int(codes.size());
    }
    EXPECT_GE(subfields, 550);
    EXPECT_EQ(fields, builtLines(fileNames[0]).filter(QRegularExpression(u"^\\d"_s)));
}

TEST(Configuration, TemplateNamesSubfieldsThatExist) {
    const QStringList lines = builtLines(fileNames[3]);
    const QSet<QString> known = describedCodes();
    for (const QString &header : {u"[必备子字段]"_s, u"[不能重复的子字段]"_s}) {
        QSet<QString> rules;
        qsizetype at = lines.indexOf(header);
        ASSERT_EQ(lines.count(header), 1);
        for (++at; !lines[at].isEmpty(); ++at) {
            const QString rule = lines[at].first(3) + lines[at].back();
            EXPECT_TRUE(known.contains(rule)) << qPrintable(lines[at]);
            EXPECT_FALSE(rules.contains(rule)) << "twice: " << qPrintable(lines[at]);
            rules.insert(rule);
        }
        EXPECT_TRUE(rules.contains(u"100a"_s) && rules.contains(u"801b"_s));
    }
}
