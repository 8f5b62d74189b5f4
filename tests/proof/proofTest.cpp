#include "marc/configurationFiles.h"
#include "platform/codepage936.h"
#include "proof/isbn.h"
#include "proof/proofChain.h"
#include "proof/structuralProof.h"
#include "proof/templateProof.h"
#include "support/rowsOf.h"
#include "support/testFolder.h"

using namespace proof;
using marc::FieldRows;

namespace {

const QString complete = u"000 100 101 200 801 "_s;

struct ProgramFolder : TestFolder {
    explicit ProgramFolder(const QString &templateLines) {
        file(marc::fieldListFile.toString(), "200");
        file(marc::templateFile.toString(), platform::encode(templateLines).replace("|", "\r\n"));
    }
};

QString said(const std::optional<Fault> &fault) {
    return fault ? report({*fault}) : u"yes"_s;
}

QString byTemplate(const QString &templateLines, const QString &rows) {
    const ProgramFolder folder(templateLines);
    auto result = proofTemplate(rowsOf(rows), folder.path());
    EXPECT_TRUE(result.ok() && result.value().complaint.isEmpty());
    return result.ok() ? report(result.value().faults).replace(u"\r\n"_s, u"|"_s) : u"failed"_s;
}

} // namespace

TEST(ProofFields, CountsTagsInTheOrderOfItsTable) {
    const QList<std::pair<QString, QString>> cases{
        {complete + u"010 010 300 300 ??? ???", u""_s},
        {u""_s, u"Error:000字段（必备字段）不存在！\r\nError:100字段（必备字段）不存在！\r\n"
                "Error:101字段（必备字段）不存在！\r\nError:200字段（必备字段）不存在！\r\n"
                "Error:801字段（必备字段）不存在！\r\n"_s},
        {complete + u"200 200 802 802 005 005", u"Error:200字段（不可重复字段）重复！\r\n"
                                                "Error:005字段（不可重复字段）重复！\r\n"
                                                "Error:802字段（不可重复字段）重复！\r\n"_s},
        {u"000 100 101 200_ 801_ 801"_s, u"Error:200字段（必备字段）不存在！\r\n"_s},
    };
    for (const auto &[rows, report] : cases)
        EXPECT_EQ(proof::report(proofFields(rowsOf(rows))), report);
}

TEST(ProofTemplate, FollowsTheTemplateLineByLine) {
    const QString missing = u"子字段(必备子字段)不存在|"_s;
    const QString empty = u"子字段(必备子字段)内容不能为空值|"_s;
    const QString twice = u"子字段(不可重复子字段)重复|"_s;
    const std::tuple<QString, QString, QString> cases[] = {
        {u"说明|200a"_s, u"200"_s, u""_s},
        {u"[必备子字段]|200 题名 a|101a|20|210c"_s, u"101 200 $f=x 210 $c"_s,
         u"Error:200字段的a"_s + missing + u"Error:101字段的a" + missing + u"Error:210字段的c" + empty},
        {u"[必备子字段]|200a"_s, u"200 $A=x $a=_ $a"_s, u""_s},
        {u"[必备子字段]|200a"_s, u"200 $f \?\?\?=x $a=x"_s, u""_s}, // "???" is a subfield row to the proofs
        {u"[必备子字段]|606a"_s, u"200 606 $a=x 606 $b"_s, u""_s},  // only the first occurrence is checked
        {u"[必备子字段]|606a"_s, u"606 $b=x 606 $a=x"_s, u"Error:606字段的a"_s + missing},
        {u"[必备子字段]|200a"_s, u"200_ $b"_s, u""_s},
        {u"[必备子字段]|000a|20Xa|200|21"_s, u"000 $b 20X $b 200 $b 21"_s, // the tag and the last character
         u"Error:000字段的a"_s + missing + u"Error:20X字段的a" + missing + u"Error:200字段的0" + missing},
        // A section ends at an empty line or at the heading of any section (which is then lost), not at a blank line.
        {u"[必备子字段]| |200a||200b"_s, u"200"_s, u"Error:200字段的a"_s + missing},
        {u"[必备子字段]|200a|[x]|200b|[必备子字段]|200c"_s, u"200"_s,
         u"Error:200字段的a"_s + missing + u"Error:200字段的c" + missing},
        {u"[必备子字段]|200a|[必备子字段]|200c"_s, u"200"_s, u"Error:200字段的a"_s + missing},
        {u"[必备子字段]|200a|[不能重复的子字段]|200b"_s, u"200 $b $b"_s,
         u"Error:200字段的a"_s + missing + u"Error:200字段的b" + twice},
        {u"[必备子字段] |200a| [不能重复的子字段]|200b"_s, u"200 $b $b"_s, u""_s}, // headings are not trimmed
        {u"[不能重复的子字段]|702a|702b||[必备子字段]|702c|"_s, u"702 $a $a $b 702 $b $a $a"_s,
         u"Error:702字段的c"_s + missing + u"Error:702字段的a" + twice},
        {u"[不能重复的子字段]|702a"_s, u"702 $a $a 702 $a $a $a"_s, u"Error:702字段的a"_s + twice},
    };
    for (const auto &[lines, rows, report] : cases)
        EXPECT_EQ(byTemplate(lines, rows), report) << lines.toStdString() << " on " << rows.toStdString();
}

TEST(ProofISBN, ChecksTheNumber) {
    const QString four = u"Error:ISBN格式错误.ISBN号应该分为4段\r\n      第一段:国家、区域或语言集号\r\n"
                         "      第二段:出版商代号\r\n      第三段:图书号\r\n      第四段:校验位\r\n"_s;
    const QString head = u"ISBN格式错误！\r\n       ISBN号"_s;
    const QString next = u"\r\n       ISBN号"_s;
    const QString length = u"Error:ISBN格式错误.ISBN号长度应该为13位"_s;
    const QString digits = u"Error:ISBN格式错误.ISBN号除校验位外只能为数字字符"_s;
    const QString check = u"Error:ISBN号校验位错误"_s;
    const QList<std::pair<QString, QString>> cases{
        {u"7-5366-1234-6"_s, u"yes"_s},
        {u"7-5366-1234-5"_s, check},
        {u"7-5366-1005-X"_s, u"yes"_s},
        {u"7-5366-1005-x"_s, check},
        {u"7-5366-1999-5"_s, u"yes"_s},
        {u"0-0000-0000-0"_s, u"yes"_s},
        {u"7-5366-1234"_s, length},
        {u"7-5366-1234-67"_s, length},
        {u"9787536612345"_s, four},
        {u"7-5366--2345-"_s, four},
        {u"-5366-12345-1"_s, head + u"第一段:国家、区域或语言集号不能为空！\r\n"},
        {u"7-5366-123-45"_s, head + u"第四段:校验位只应为一位字符！\r\n"},
        {u"七-53x6-12345-"_s.first(13), head + u"第一段:国家、区域或语言集号只能为数字！" + next +
                                            u"第二段:出版商代号只能为数字！" + next + u"第四段:校验位不能为空！\r\n"},
        {u"--12345678x-9"_s, head + u"第一段:国家、区域或语言集号不能为空！" + next + u"第二段:出版商代号不能为空！" +
                                 next + u"第三段:图书号只能为数字！\r\n"},
        {u"7-53.6-1.34-6"_s, digits}, // not a number as a whole
        {u"7-5366-12.4-6"_s, digits}, // a number, but not only digits
    };
    for (const auto &[text, result] : cases)
        EXPECT_EQ(said(checkISBN(text)), result) << text.toStdString();
}

TEST(ProofISBN, TakesTheLastFilledOfTheFirstField) {
    const QList<std::pair<QString, QString>> cases{
        {u"200 $a=x"_s, u""_s},
        {u"010 $a=_ $b=x"_s, u""_s},
        {u"_010_ $a=x $a_=_7-5366-1234-6_ $a=_"_s, u""_s},
        {u"010 $b=x 010 $a=x"_s, u""_s},
        {u"010 ??? $a=x"_s, u"Error:ISBN格式错误.ISBN号长度应该为13位"_s},
    };
    for (const auto &[rows, result] : cases)
        EXPECT_EQ(report(proofISBN(rowsOf(rows))), result) << rows.toStdString();
}

// The row of each fault, so that a jump to it is possible.
TEST(ProofRecord, ReportsTheRowOfEachFault) {
    const ProgramFolder folder(u"[必备子字段]|200f"_s);
    const RecordFaults found =
        faultsOf(rowsOf(u"000 010 $a=7-5366-1234-6 $a=7 $b=x 100 101 200 $a=x 225 225 225"_s), folder.path());
    QStringList faults;
    for (const auto *of : {&found.structural, &found.byTemplate, &found.isbn})
        for (const Fault &fault : *of)
            faults.append(fault.tag + u' ' + (fault.element ? QString::number(*fault.element) : u"-"_s));
    EXPECT_EQ(faults, (QStringList{u"801 -"_s, u"225 10"_s, u"200 7"_s, u"010 3"_s}));
}

TEST(ProofRecord, JoinsTheReportsWithAnEmptyLine) {
    const ProgramFolder folder(u"[必备子字段]|200f"_s);
    const QString fields = u"Error:801字段（必备字段）不存在！\r\n"_s;
    const QString subfields = u"Error:200字段的f子字段(必备子字段)不存在\r\n"_s;
    const QString isbn = u"【010$a】Error:ISBN格式错误.ISBN号长度应该为13位"_s;
    const QList<std::pair<QString, QString>> cases{
        {u"000 010 $a=7-5366-1234-6 100 101 801 200 $f=x"_s, u""_s},
        {u"000 010 $a=7 100 101 200"_s, fields + u"\r\n" + subfields + u"\r\n" + isbn},
        {u"000 010 $a=7 100 101 200 $f=x"_s, fields + u"\r\n" + isbn},
        {u"000 010 $a=7 100 101 801 200 $f=x"_s, isbn},
        {complete, subfields},
    };
    for (const auto &[rows, report] : cases) {
        const auto result = proofRecord(rowsOf(rows), folder.path());
        ASSERT_TRUE(result.ok());
        EXPECT_EQ(result.value().report, report) << rows.toStdString();
    }
}

TEST(ProofRecord, ReportsMissingFiles) {
    const ProgramFolder folder(u""_s);
    ASSERT_TRUE(QFile::remove(folder.path() + marc::templateFile));
    const auto failed = proofRecord(rowsOf(complete), folder.path());
    ASSERT_FALSE(failed.ok());
    EXPECT_TRUE(failed.failure().description.contains(folder.path() + marc::templateFile));

    // Without the field list the proof still runs, and without the template.
    ASSERT_TRUE(QFile::remove(folder.path() + marc::fieldListFile));
    const auto result = proofRecord({}, folder.path());
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(result.value().complaint, u"配置文件【" + folder.path() + u"mobanJiaoDui.QVs】丢失。");
    EXPECT_EQ(result.value().report, report(proofFields({})));
}

// A change of the template takes effect at the next record, and so does a file that appears or disappears.
TEST(RecordProofs, FollowTheTemplate) {
    const ProgramFolder folder(u"[必备子字段]|200f"_s);
    RecordProofs proofs(folder.path());
    const auto faults = [&] {
        const RecordFaults found = proofs.faultsOf(rowsOf(complete + u"200 $f=x $f=y 200"));
        const RecordFaults direct = faultsOf(rowsOf(complete + u"200 $f=x $f=y 200"), folder.path());
        EXPECT_EQ(report(found.structural) + report(found.byTemplate) + report(found.isbn),
                  report(direct.structural) + report(direct.byTemplate) + report(direct.isbn));
        EXPECT_TRUE(found.complaint == direct.complaint && found.unread.has_value() == direct.unread.has_value());
        return found.unread ? -1 : int(found.byTemplate.size());
    };
    EXPECT_EQ(faults(), 1);
    folder.file(marc::templateFile.toString(), platform::encode(u"[必备子字段]\r\n200f\r\n801a"));
    EXPECT_EQ(faults(), 2);
    QFile sameSize(folder.file(marc::templateFile.toString(), platform::encode(u"[必备子字段]\r\n200f\r\n999a")));
    ASSERT_TRUE(sameSize.open(QIODevice::ReadWrite) &&
                sameSize.setFileTime(QDateTime::fromSecsSinceEpoch(1000), QFileDevice::FileModificationTime));
    sameSize.close();
    EXPECT_EQ(faults(), 1);
    ASSERT_TRUE(QFile::remove(folder.path() + marc::templateFile));
    EXPECT_EQ(faults(), -1);
    folder.file(marc::templateFile.toString(), platform::encode(u"[必备子字段]\r\n200f\r\n801a"));
    EXPECT_EQ(faults(), 2);
    ASSERT_TRUE(QFile::remove(folder.path() + marc::fieldListFile));
    EXPECT_EQ(faults(), 0);
}

// The template is read again only if its time or its size has changed, and is checked once per interval.
TEST(RecordProofs, ReadTheTemplateOnce) {
    const ProgramFolder folder(u""_s);
    const auto write = [&](const QString &rules, int secs) {
        QFile file(folder.file(marc::templateFile.toString(), platform::encode(rules)));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(secs), QFileDevice::FileModificationTime));
    };
    const FieldRows rows = rowsOf(complete + u"200");
    RecordProofs always(folder.path()), hourly(folder.path(), std::chrono::hours(1));
    const std::tuple<QString, int, size_t> steps[] = {{u"[必备子字段]\r\n200f"_s, 1000, 1},
                                                      {u"[必备子字段]\r\n999f"_s, 1000, 1},
                                                      {u"[必备子字段]\r\n998f"_s, 2000, 0},
                                                      {u"[必备子字段]\r\n200fg"_s, 2000, 1}};
    for (const auto &[rules, secs, faults] : steps) {
        write(rules, secs);
        EXPECT_EQ(always.faultsOf(rows).byTemplate.size(), faults) << rules.toStdString();
        EXPECT_EQ(hourly.faultsOf(rows).byTemplate.size(), 1) << rules.toStdString();
    }
}
