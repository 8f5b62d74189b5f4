#include "filetools/checks.h"
#include "platform/numbers.h"
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace filetools {

namespace {

constexpr double leastLimit = 10;
constexpr double mostLimit = 1e15; // more records than any file has; doubles represent all integers up to it exactly

} // namespace

std::optional<Refusal> refuseSplit(const QString &source, bool sourceExists, const QString &target,
                                   const QString &limit, QChar separator) {
    if (source.isEmpty() || target.isEmpty())
        return Refusal{.text = {}, .focus = Field::Source};
    if (!sourceExists)
        return Refusal{.text = u"文件["_s + source + u"不存在！"}; // the missing bracket belongs to the wording
    const std::optional<double> number = platform::toDouble(limit);
    if (!number)
        return Refusal{.text = u"请输入每个拆分文件的最大记录数！"_s, .focus = Field::Limit};
    if (*number < leastLimit)
        return Refusal{.text = u"每个拆分文件的最大记录数太小！最好不要小于10！"_s, .focus = Field::Limit};
    const bool hasExtension = target.size() >= 4 && target.at(target.size() - 4) == u'.';
    if (!hasExtension || platform::folderOf(target, separator).isEmpty())
        return Refusal{}; // required: nothing happens and no message is shown
    return std::nullopt;
}

std::optional<Refusal> refuseMerge(const QStringList &sources, const QString &target) {
    if (sources.isEmpty() || target.isEmpty())
        return Refusal{};
    if (sources.contains(target))
        return Refusal{.text = u"合并目标文件不能为源文件！"_s};
    return std::nullopt;
}

QString overwriteQuestion(const QString &mask) {
    return u"选择的路径下存在形如\r\n【" + mask + u"】的文件；继续则可能被覆盖。是否继续？";
}

QString replaceQuestion(const QString &target) {
    return target + u"已经存在。要替换吗？";
}

std::optional<qint64> recordsPerFile(QStringView limit) {
    const std::optional<double> number = platform::toDouble(limit);
    if (!number)
        return std::nullopt;
    const double whole = std::nearbyint(std::min(*number, mostLimit));
    if (whole < 1)
        return std::nullopt;
    return qint64(whole);
}

} // namespace filetools
