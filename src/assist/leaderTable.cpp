#include "assist/leaderTable.h"
#include <array>
#include <span>

namespace assist {

namespace {

// The texts of the tables are those that cataloguers know, including their punctuation, blanks and errors. Do not
// change them.
constexpr auto recordStatus = std::to_array<Code>({
    {u"c=经修改的记录", u"当由于改错而变更成为一个新记录，或者记录中有字段被删除，均为经修改的记当使用“c”。对于先前发行"
                        u"的出版前记录（如CIP在版编目记录），若整个记录由后来发行的记录替代，则后发行的记录要和代码“p”"
                        u"而是“c”。因此，一个以前标定为“n”、“o”、或“p”的记录，若做了更改其代码均应为“c”。"},
    {u"d=被删除的记录", u"为了标识一个记录不再有效，可以通过提供该记录的记录控制号（这类记录可以不仅包含记当头标、地址"
                        u"目次区和001记录控制号字段）或者提供记录发行时的全部字段的方法进行交换。无论哪种情况，均可使用"
                        u"一般性附注字段300来说明该记录被删除的原因。"},
    {u"n=新记录", u"新记录（包括出版前记录，如CIP记录）用“N”标识。如果已发行较高层记录，则取用代码“o”而不用“n”。"},
    {u"o=曾发行较高层次记录",
     u"在分层体系中，低于已发行的最高记录的各层新记录，用“o”表示。（参见第8字符位，即层次等级取2）"},
    {u"p=曾发行不完整的记录或出版前记录", u"用于替代出版前记录（如CIP记录）的记录。"},
});

constexpr auto recordType = std::to_array<Code>({
    {u"a=文字资料印刷品录", u"文字资料印刷品"},
    {u"b=文字资料手稿", u"文字资料手稿"},
    {u"c=乐谱印刷品", u"乐谱印刷品"},
    {u"d=乐谱手稿", u"乐谱手稿"},
    {u"e=测绘资料印刷品", u"测绘资料印刷品"},
    {u"f=测绘资料手稿", u"测绘资料手稿"},
    {u"g=放映和视频资料", u"电影、数字用电影片、幻灯插片、透明胶片、录像制品。"},
    {u"i=非音乐性录音资料", u"非音乐性录音资料"},
    {u"j=音乐性录音资料", u"音乐性录音资料"},
    {u"k=二维图形", u"图画、设计图等。"},
    {u"l=计算机存贮价质", u"计算机存贮价质"},
    {u"m=多媒体", u"多媒体"},
    {u"r=三维制品和教具", u"三维制品和教具"},
    {u"u=拓片", u"拓片"},
    {u"v=善本书", u"善本书"},
});

constexpr auto bibliographicLevel = std::to_array<Code>({
    {u"a=分析级(组成部分)", u"该书目所描述的实体在物理上包含在另一实体之中。采用代码“a”的实例有：刊物中的一篇文章；刊物"
                            u"中的一个连续性栏目或专辑；会议文集中的一篇论文。"},
    {u"m=专著", u"以一册或限定数量分册即可出全的出版物。采用代码“m”的实例有：单行本专著，套本（多卷专著），套书之单册，"
                u"报纸之特刊，单张地图，地图集，计划以有限量分册出全的丛编，地球仪。"},
    {u"s=连续出版物", u"以连续的卷期并计划无限期连续出版的出版物。采用代码“s“的实例有：仍在出版的期刊（现刊）；已停止出"
                      u"版的整套期刊报纸：年鉴等。"},
    {u"c＝合集", u"汇集型书目实体。采用代码“c”的实例有；盒装的册子汇集；各种不同形式的资料汇部为一集；个人作者的全部手"
                 u"稿等。该代码适用于合集。"},
});

constexpr auto hierarchicalLevel = std::to_array<Code>({
    {u"#=层次关系未定或不采用层次结构", u"层次关系未定或不采用层次结构"},
    {u"0=无层次关系", u"无层次关系"},
    {u"1=最高层次记录", u"最高层次记录"},
    {u"2=低于最高层级的记录", u"所有的低层记录"},
});

constexpr auto encodingLevel = std::to_array<Code>({
    {u"#=完全级", u"编制机读记录时，曾与出版式物核对过。"},
    {u"1=次级1", u"编制机读记录时，未核对过编目实体。例如：该记录是桶据目录卡制作的，其字段号、指示符和子字段代码可能不"
                 u"具有与源文献核对过的那种可靠性和准确性。"},
    {u"2=次级2", u"该记录为出版前记录（在版式编目记录）。这类记录通常是不完整的。如载体形态字段可能没有或者不全。"},
    {u"3=次级3", u"该记录为不完整的记录，而且以后可能或不可能由发行机构升级为完全级的记录。在版编目记录用次级2。"},
});

constexpr auto descriptiveForm = std::to_array<Code>({
    {u"#=记录完全采用ＩＳＢＤ格式", u"记录中出现的全部ＩＳＢＤ数据元素都有符合ＩＳＢＤ规定。因中国国家标准文献著录规则"
                                    u"（包括各分则）与ＩＳＢＤ等效，帮对于完全采用国标者用也用该代码标示。"},
    {u"i＝记录为部分的或不完全的ＩＳＢＤ格式", u"不是全部而是部分字段符合ＩＳＢＤ规定。"},
    {u"n＝记录为非ＩＳＢＤ类格式", u"记录中的数据元素不符合ＩＳＢＤ规定。"},
});

constexpr Box fixed(QStringView label, QStringView text) {
    return {label, int(text.size()), BoxKind::Fixed, text};
}

constexpr Box coded(QStringView label, std::span<const Code> codes) {
    return {label, 1, BoxKind::Coded, u"#", codes, u"#", true};
}

constexpr auto leaderBoxes = std::to_array<Box>({
    fixed(u"记录长度", u"?????"),
    coded(u"记录状态", recordStatus),
    coded(u"记录类型", recordType),
    coded(u"书目级别", bibliographicLevel),
    coded(u"层次等级", hierarchicalLevel),
    fixed(u"未定义", u"#"),
    fixed(u"指示符长度", u"2"),
    fixed(u"子字段长度", u"2"),
    fixed(u"数据起始地址", u"?????"),
    coded(u"编目等级", encodingLevel),
    coded(u"著录格式", descriptiveForm),
    fixed(u"未定义", u"#"),
    fixed(u"地址目次区结构", u"450#"),
});
static_assert(isSound(leaderBoxes, 24));

} // namespace

std::span<const Box> leaderTable() {
    return leaderBoxes;
}

} // namespace assist
