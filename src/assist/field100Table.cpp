#include "assist/field100Table.h"
#include <array>
#include <span>

namespace assist {

namespace {

// The texts of the tables are those that cataloguers know, including their punctuation, blanks and errors. Do not
// change them.
constexpr auto dateType = std::to_array<Code>({
    {u"a=现仍出版连续出版物"},
    {u"b=已停刊的连续出版物"},
    {u"c=刊行状态不明的连续出版物"},
    {u"d=一交或一年内出全的专著"},
    {u"e=复制本（重印本、影印本、再版本、摹抄本和拓本）"},
    {u"f=出版年不确定的专著"},
    {u"g=出版时间超过一年的专著"},
    {u"h=具有实际出版时间和版权/特许专卖权的专著"},
    {u"i=具有发表/发行是期和制作日期的专著"},
    {u"j=具有详细出版时间专著"},
});

constexpr auto audience = std::to_array<Code>({
    {u"a=青少年（一般性。当b c d 或e未采用或不适用时）"},
    {u"b=学龄前儿童（0-5岁）"},
    {u"c=学龄儿童（5-10岁）"},
    {u"d=少年儿童（9-14岁）"},
    {u"e=青年（14-20岁）"},
    {u"k=成人（学术）"},
    {u"m=成人（一般）"},
    {u"u=不详"},
});

constexpr auto governmentPublication = std::to_array<Code>({
    {u"a=中央（国家、联邦）级"},
    {u"b=省、直辖市、自治区、州"},
    {u"c=县、省辖市"},
    {u"d=市、乡、镇"},
    {u"e=中央级以下地政机构的联合出版物"},
    {u"f=国际机构"},
    {u"g=流亡政府或地下政府"},
    {u"h=级别不详"},
    {u"u=无法确定是否为政府出版物"},
    {u"y=非政府出版物"},
    {u"z=其它政府级别"},
});

constexpr auto modifiedRecord = std::to_array<Code>({
    {u"0=记录无变更"},
    {u"1=记录有变更"},
});

constexpr auto language = std::to_array<Code>({
    {u"chi=汉语"},
    {u"ara=阿拉伯语"},
    {u"che=车臣语"},
    {u"chu=古代俄语"},
    {u"egy=埃及语"},
    {u"eng=英语"},
    {u"epo=世界语"},
    {u"fre=法语"},
    {u"ger=德语"},
    {u"grc=古希腊语"},
    {u"jpn=日语"},
    {u"kor=朝语"},
    {u"mon=蒙古语"},
    {u"rus=俄语"},
    {u"sit=汉藏语系"},
    {u"tib=藏语"},
    {u"san=梵语"},
});

constexpr auto transliteration = std::to_array<Code>({
    {u"a=ISO(国际标准化组织）音译表，包括汉语拼音方案"},
    {u"b=其它音译方案"},
    {u"c=多种音译体系：ISO或其它方案"},
    {u"y=未使用音译"},
});

constexpr auto characterSet = std::to_array<Code>({
    {u"01=ISO  646，IRV version(基本拉丁集）"},
    {u"02=ISO  Registration #37(基本基里尔集）"},
    {u"03=ISO  5426（扩充拉丁集）"},
    {u"04=ISO DIS   5427（扩充基里尔集）"},
    {u"05=ISO 5428（希腊集）"},
    {u"06=ISO 6438 （非洲编码字符集）"},
    {u"10=GB/IEC 2312-80信息交换用汉字编码字符集基本集（双七位）"},
    {u"50=ISO/IEC 10646 通用多八位编码字符集"},
    {u"12=交换用汉字编码辅助集 3"},
    {u"13=交换用汉字编码辅助集 5"},
});

constexpr auto script = std::to_array<Code>({
    {u"ba=拉丁文"},
    {u"ca=基里尔文"},
    {u"da =日文—文字类型未指定"},
    {u"db=日文—汉字"},
    {u"dc=日文—假名"},
    {u"ea=中文-文字类型未指定"},
    {u"eb=中文—汉字"},
    {u"ec=中文—汉语拼音"},
    {u"fa =阿拉伯文"},
    {u"ga=希腊文"},
    {u"ha=希伯来文"},
    {u"ia=泰文"},
    {u"ja=梵文"},
    {u"ka =朝鲜文"},
    {u"la=泰米尔文"},
    {u"ma=格鲁吉亚文"},
    {u"zz=其它"},
});

// A box for a year has no list of codes.
constexpr Box year(QStringView label) {
    return {label, 4, BoxKind::Year, u"####"};
}

constexpr Box coded(QStringView label, std::span<const Code> codes) {
    return {label, 1, BoxKind::Coded, u"#", codes, u"#"};
}

constexpr Box pair(QStringView label, std::span<const Code> codes) {
    return {label, 2, BoxKind::Coded, u"##", codes, u"##"};
}

// Makes the entries of the list selectable. The other lists are only for reading.
constexpr Box fromList(Box box) {
    box.fromList = true;
    return box;
}

constexpr auto field100Boxes = std::to_array<Box>({
    {u"记录生成时间", 8, BoxKind::Fixed, u"????????"}, // required: the date of entry is not kept
    fromList(coded(u"出版时间类型", dateType)),
    year(u"出版年①"),
    year(u"出版年②"),
    coded(u"阅读对象代码", audience),
    coded({}, audience),
    coded({}, audience),
    fromList(coded(u"政府出版物代码", governmentPublication)),
    fromList(coded(u"变更记录代码", modifiedRecord)),
    {u"编目语种代码", 3, BoxKind::Coded, u"chi", language, {}, true},
    fromList(coded(u"音译代码", transliteration)),
    pair(u"字符集", characterSet),
    pair({}, characterSet),
    pair(u"补充字符集", characterSet),
    pair({}, characterSet),
    fromList(pair(u"题名文种代码", script)),
});
static_assert(isSound(field100Boxes, 36));

} // namespace

std::span<const Box> field100Table() {
    return field100Boxes;
}

} // namespace assist
