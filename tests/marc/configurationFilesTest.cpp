#include "marc/configurationFiles.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

QByteArray fileText(QString text) {
    return platform::encode(text.replace(u'\n', u"\r\n"_s));
}

struct ListCase {
    QString text;
    QStringList lines;
    QString ending; // of the complaint
};

TEST(FieldList, TakesLinesUpToTheFirstDamage) {
    const ListCase cases[] = {
        {u"010 标准书号\n\n  \n??? 自定义\n2  x\n 1 y"_s,
         {u"010 标准书号"_s, u"??? 自定义"_s, u"2  x"_s, u" 1 y"_s},
         u""_s},
        {u"010 a\nabc b\n200 c\n"_s, {u"010 a"_s}, u"】损坏。"_s},
        {u" 010 a\n"_s, {u" 010 a"_s}, u""_s},
        {u""_s, {}, u""_s},
    };
    for (const ListCase &c : cases) {
        const TestFolder folder;
        folder.file(fieldListFile.toString(), fileText(c.text));
        const PickList list = readFieldList(folder.path());
        EXPECT_EQ(list.lines, c.lines);
        EXPECT_EQ(list.complaint,
                  c.ending.isEmpty() ? u""_s : u"配置文件【"_s + folder.path() + u"cnmarc_default.Qvs" + c.ending);
    }
}

TEST(SubfieldList, TakesTheSectionOfTheTag) {
    const QString notFound = u"】损坏或者还没有本字段名。"_s;
    const ListCase cases[] = {
        {u"[010]\n$z n\n\n [200] \n$a 正题名 \n\n $f x\n[210]\n$a y\n[200]\n$b z\n\n"_s,
         {u"$a 正题名 "_s, u" $f x"_s},
         u""_s},
        {u"[200]\n$a 正题名\n$f 责任者"_s, {u"$a 正题名"_s}, u""_s}, // the file's last line is not used
        {u"[200]\n$a 正题名\n\n"_s, {u"$a 正题名"_s}, u""_s},
        {u"[200] 题名\n$a x\n[2000]\n\n"_s, {}, notFound},
        {u"[200]\n$a 正题名"_s, {}, notFound},
        {u""_s, {}, notFound},
        {u"[200]\n  [210]"_s, {}, u"】中还没有子字段。"_s},
    };
    for (const ListCase &c : cases) {
        const TestFolder folder;
        folder.file(subfieldListFile.toString(), fileText(c.text));
        const PickList list = readSubfieldList(folder.path(), u"200"_s);
        EXPECT_EQ(list.lines, c.lines);
        EXPECT_EQ(list.complaint,
                  c.ending.isEmpty() ? u""_s : u"配置文件【"_s + folder.path() + u"cnmarc_zzdtshi.Qvs" + c.ending);
    }
    const TestFolder folder;
    folder.file(subfieldListFile.toString(), "[010]\r\n[200]");
    EXPECT_TRUE(readSubfieldList(folder.path(), u"200"_s).complaint.startsWith(u"操作失败"));
}

TEST(ConfigurationFiles, AreMissed) {
    const TestFolder folder;
    const auto complaint = [&](QStringView file) -> QString {
        return u"配置文件【"_s + folder.path() + file + u"】丢失。";
    };
    EXPECT_EQ(readFieldList(folder.path()).complaint, complaint(fieldListFile));
    EXPECT_EQ(readSubfieldList(folder.path(), u"200"_s).complaint, complaint(subfieldListFile));
    FieldRows rows = showRecord(makeRecord({{u"200"_s, u"1 $a甲"_s}})).rows;
    const FieldRows before = rows;
    EXPECT_EQ(fillDescriptions(rows, folder.path()), complaint(descriptionFile));
    EXPECT_EQ(rows, before);
}

TEST(Descriptions, ComeFromTheFirstSectionOfATag) {
    const TestFolder folder;
    folder.file(descriptionFile.toString(),
                fileText(u"[001] 记录标识\n[200] 题名 \n$a 正题名\n $b 不合\n\n#f: 责任者\n$1 嵌入\n"
                         "[200] 另一\n$a 另一\n[005x]y\n[606] 主题\n$a 款目\n$x 末行"_s));
    FieldRows rows = showRecord(makeRecord({{u"001"_s, u"1"_s},
                                            {u"005"_s, u"2"_s},
                                            {u"200"_s, u"1 $a甲$a乙$b丙$f丁"_s},
                                            {u"CAT"_s, u"  $f戊"_s},
                                            {u"606"_s, u"  $a己$x庚"_s},
                                            {u"606"_s, u"  $a辛"_s}}))
                         .rows;
    EXPECT_EQ(fillDescriptions(rows, folder.path()), u"");
    QStringList found;
    for (const FieldRow &row : rows)
        found.append(row.identifier + u'=' + row.fieldLabel + row.subfieldLabel);
    EXPECT_EQ(found.join(u' '),
              u"000=头标区 001= 005= 200=题名指示符 $a=正题名 $a=正题名 $b= $f=责任者 CAT=指示符 $f=责任者 "
              "606=主题指示符 $a=款目 $x= 606=主题指示符 $a=款目"_s);
}

TEST(Descriptions, EndAtAHeaderOnTheVeryLastLine) {
    const TestFolder folder;
    folder.file(descriptionFile.toString(), fileText(u"[300] 附注\n[200] 题名"_s));
    FieldRows rows = showRecord(makeRecord({{u"200"_s, u"1 $a甲"_s}, {u"300"_s, u"  $a乙"_s}})).rows;
    fillDescriptions(rows, folder.path());
    EXPECT_EQ(rows[1].fieldLabel + u'/' + rows[3].fieldLabel, u"题名/"_s);
}

} // namespace
