#include "filetools/targetPattern.h"

using namespace Qt::StringLiterals;

namespace filetools {

namespace {

constexpr qsizetype extensionLength = 4;

} // namespace

QString TargetPattern::numbered(int number) const {
    return folder + name + QString::number(number) + extension;
}

QString TargetPattern::mask() const {
    return folder + name + u"7??" + extension;
}

QStringList TargetPattern::existing() const {
    return platform::filesWithTwoWildcards(folder, name + u'7', extension);
}

std::optional<TargetPattern> targetPattern(const QString &target, QChar separator) {
    const QString folder = platform::folderOf(target, separator);
    const qsizetype nameLength = target.size() - folder.size() - extensionLength;
    if (nameLength < 0)
        return std::nullopt;
    return TargetPattern{folder, target.sliced(folder.size(), nameLength), target.last(extensionLength)};
}

} // namespace filetools
