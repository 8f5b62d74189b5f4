// The text of the help about the format.
#pragma once

#include <QStringView>
#include <array>

namespace app {

inline constexpr QStringView helpHeading = u"CNQuelt 中国机读目录数据处理工具";

struct HelpSection {
    QStringView title;
    QStringView text; // paragraphs, one per line
};

inline constexpr auto helpSections = std::to_array<HelpSection>({
    {u"1.1 CNQuelt说明",
     u"CNQuelt是Tarvex图书馆管理系统的组成部分，为图书馆建立机读目录服务。\n"
     u"它读入机读目录文件，供编目人员逐条查看、校对和修改，再将数据导入套录库；也可以将书库中的数据导出为机读目录文件，"
     u"并可拆分、合并机读目录文件。目的只有一个：让编目工作既准确又快速。"},
    {u"1.2 中国机读目录格式简介",
     u"中国机读目录格式（CNMARC）用于国家书目机构之间以及国内图书馆之间以标准的机读形式交换书目信息。\n"
     u"它规定了专著、连续出版物、测绘资料、音乐作品和音像资料等文献的字段标识符、指示符和子字段代码，"
     u"以及书目信息在磁带、软磁盘和光盘等载体上的逻辑结构与物理格式。"},
    {u"1.3 相关的标准", u""},
});

struct Standard {
    QStringView number;
    QStringView title;
};

// Elsewhere the number of the standard for book numbers is GB 5795-86.
inline constexpr auto helpStandards = std::to_array<Standard>({
    {u"GB 1988-80", u"信息处理交换用的七位编码字符集"},
    {u"GB 2311-80", u"信息处理交换用七位编码字符集的扩充方法"},
    {u"GB 2901-82", u"文献目录信息交换用磁带格式"},
    {u"GB 2659-81", u"世界各国和地区名称代码"},
    {u"GB 5195-86", u"中国标准书号"},
    {u"GB 9999-88", u"中国标准刊号"},
    {u"GB 13000-93", u"信息技术 通用多八位编码字符集（UCS）"},
    {u"GB 2260-84", u"中华人民共和国行政区划代码"},
});

} // namespace app
