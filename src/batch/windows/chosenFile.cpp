#include "batch/windows/chosenFile.h"

using namespace Qt::StringLiterals;

namespace batch {

std::optional<QString> saveChosen(platform::Host &host, const SaveTarget &target,
                                  const std::function<platform::Status(const QString &path)> &write) {
    const QString path =
        host.chooseFileToWrite({.title = target.title, .filter = target.filter, .start = target.start}, target.suffix);
    if (path.isEmpty())
        return std::nullopt;
    if (const platform::Status saved = write(path); !saved) {
        host.tell(u"保存失败：【"_s + saved.failure().description + u"】");
        return std::nullopt;
    }
    return u"已保存到 "_s + path;
}

} // namespace batch
