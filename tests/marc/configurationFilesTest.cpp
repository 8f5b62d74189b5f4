#include "marc/configurationFiles.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

QByteArray fileText(QString text) {
    return platform::encode(text.replace(u'\n', u"\r\n"_s));
}

// The file, its text, the expected list (of fields, or of the subfields of 200), and the end of the complaint.
TEST(PickLists, ReadLinesUpToTheFirstDamageAndTheSectionOfATag) {
    const QString notFound = u"】损坏或者还没有本字段名。"_s;
    const std::tuple<QStringView, QString, QString, QString> cases[] = {
        {fieldListFile, u"010 标准书号\n\n  \n??? 自定义\n2  x\n 1 y"_s, u"010 标准书号|??? 自定义|2  x| 1 y"_s, u""_s},
        {fieldListFile, u"010 a\nabc b\n200 c\n"_s, u"010 a"_s, u"】损坏。"_s},
        {fieldListFile, u""_s, u""_s, u""_s},
        {subfieldListFile, u"[010]\n$z\n\n [200] \n$a 甲 \n\n $f x\n[210]\n[200]\n$b\n\n"_s, u"$a 甲 | $f x"_s, u""_s},
        {subfieldListFile, u"[200]\n$a 正题名\n$f 责任者"_s, u"$a 正题名"_s, u""_s}, // the last line is not used
        {subfieldListFile, u"[200] 题名\n$a x\n[2000]\n\n"_s, u""_s, notFound},
        {subfieldListFile, u"[200]\n$a 正题名"_s, u""_s, notFound},
        {subfieldListFile, u""_s, u""_s, notFound},
        {subfieldListFile, u"[200]\n  [210]"_s, u""_s, u"】中还没有子字段。"_s},
    };
    const TestFolder folder;
    for (const auto &[file, text, lines, ending] : cases) {
        folder.file(file.toString(), fileText(text));
        const PickList list =
            file == fieldListFile ? readFieldList(folder.path()) : readSubfieldList(folder.path(), u"200"_s);
        EXPECT_EQ(list.lines.join(u'|'), lines);
        EXPECT_EQ(list.complaint, ending.isEmpty() ? u""_s : u"配置文件【"_s + folder.path() + file + ending);
    }
    folder.file(subfieldListFile.toString(), "[010]\r\n[200]");
    EXPECT_TRUE(readSubfieldList(folder.path(), u"200"_s).complaint.startsWith(u"操作失败"));
}

TEST(ConfigurationFiles, AreReportedIfMissing) {
    const TestFolder folder;
    const auto complaint = [&](QStringView file) -> QString {
        return u"配置文件【"_s + folder.path() + file + u"】丢失。";
    };
    EXPECT_EQ(readFieldList(folder.path()).complaint, complaint(fieldListFile));
    EXPECT_EQ(readSubfieldList(folder.path(), u"200"_s).complaint, complaint(subfieldListFile));
    FieldRows rows = showRecord(recordOf(u"200=1 $a甲"_s)).rows;
    const FieldRows before = rows;
    EXPECT_EQ(fillDescriptions(rows, folder.path()), complaint(descriptionFile));
    EXPECT_EQ(rows, before);
}

TEST(Descriptions, ComeFromTheFirstSectionOfATag) {
    const TestFolder folder;
    folder.file(descriptionFile.toString(),
                fileText(u"[001] 记录标识\n[200] 题名 \n$a 正题名\n $b 不合\n\n#f: 责任者\n$1 嵌入\n"
                         "[200] 另一\n$a 另一\n[005x]y\n[606] 主题\n$a 款目\n$x 末行"_s));
    FieldRows rows =
        showRecord(recordOf(u"001=1|005=2|200=1 $a甲$a乙$b丙$f丁|CAT=  $f戊|606=  $a己$x庚|606=  $a辛"_s)).rows;
    EXPECT_EQ(fillDescriptions(rows, folder.path()), u"");
    QStringList found;
    for (const FieldRow &row : rows)
        found.append(row.identifier + u'=' + row.fieldLabel + row.subfieldLabel);
    EXPECT_EQ(found.join(u' '),
              u"000=头标区 001= 005= 200=题名指示符 $a=正题名 $a=正题名 $b= $f=责任者 CAT=指示符 $f=责任者 "
              "606=主题指示符 $a=款目 $x= 606=主题指示符 $a=款目"_s);

    // A header as the last line.
    folder.file(descriptionFile.toString(), fileText(u"[300] 附注\n[200] 题名"_s));
    rows = showRecord(recordOf(u"200=1 $a甲|300=  $a乙"_s)).rows;
    fillDescriptions(rows, folder.path());
    EXPECT_EQ(rows[1].fieldLabel + u'/' + rows[3].fieldLabel, u"题名/"_s);
}

} // namespace
