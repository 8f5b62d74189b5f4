#include "batch/ruleAdvice.h"
#include <algorithm>

namespace batch {

namespace {

using schema::Check;

constexpr std::array<QStringView, kindCount> ofKinds = {
    u"这一项没有做成。照说明里的原因处理以后，再校对一遍。",
    u"目次区与字段的内容对不上。可以用“整理”把文件重做一遍，再看少了什么。",
    u"000、100、101、200、801是必备字段，补上这个字段。",
    u"“J 校对”的表里不可重复。格式容许重复的（如225、801），级别是“警告”，自己判断。",
    u"本馆的模板mobanJiaoDui.QVs这样要求。补上或合并子字段；要求不对，改模板。",
    u"对照版权页改正010$a；书上就印错的，改记在010$z。",
    u"对照刊物改正011$a。",
    u"同一批里有两条ISBN相同，看看是不是同一种书。",
    u"库里可能已有这种书。可以勾上“导入时跳过查重命中的”。",
    u"照说明里数据库的回答改正，再导入。",
    u"上次导入时照你的选择跳过。",
    {}, // Format and Rule: by check
    {},
};

constexpr std::array<QStringView, schema::checkCount> ofChecks = {
    u"模式里没有这个字段。看看字段号有没有打错；本馆自用的字段，可以加进模式。",
    u"新编的记录不再用这个字段。",
    u"合成一个，或删去多余的。",
    u"补上这个字段。",
    {}, // switches other checks
    u"改成可用的一个；空位在表格里写作#。",
    u"看看子字段代码有没有打错。",
    u"新编的记录不再用这个子字段。",
    u"合成一个，或删去多余的。",
    u"补上这个子字段。",
    {}, // switches other checks
    u"照规定的形式改写。",
    u"看看前面是不是少打了字或空格；Ctrl+E可以辅助录入头标区和100字段。",
    {}, // switches other checks
    u"改成可用的一个。",
    u"改成现在用的代码。",
    u"所引用的代码表不在模式里，没有检查。把它加进模式。",
    u"每一位都应是可用的代码。",
    u"字段之间的规则。不合本馆做法的，可以在模式里改，或“不再提示”。",
    u"内容太长，或模式里的式子太复杂，没有查完。",
};

} // namespace

QStringView adviceOn(const Remark &remark) {
    const bool ofSchema = remark.kind == Kind::Format || remark.kind == Kind::Rule;
    return ofSchema ? ofChecks[size_t(remark.check)] : ofKinds[size_t(remark.kind)];
}

} // namespace batch
