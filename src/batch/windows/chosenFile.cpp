#include "batch/windows/chosenFile.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace batch {

namespace {

// Returns std::nullopt if no file was chosen or an existing one must not be replaced.
std::optional<QString> chosenPath(platform::Host &host, const SaveTarget &target) {
    QString path = host.chooseFile({.title = target.title,
                                    .filter = target.filter,
                                    .kind = platform::FileDialogKind::Save,
                                    .start = target.start});
    if (path.isEmpty())
        return std::nullopt;
    if (!path.sliced(platform::folderOf(path).size()).contains(u'.'))
        path += target.suffix;
    const bool mayWrite = !platform::fileExists(path) || host.ask(u"文件【"_s + path + u"】已经存在，是否替换？",
                                                                  platform::hintTitle, platform::Answer::No);
    return mayWrite ? std::optional(path) : std::nullopt;
}

} // namespace

std::optional<QString> saveChosen(platform::Host &host, const SaveTarget &target,
                                  const std::function<platform::Status(const QString &path)> &write) {
    const auto path = chosenPath(host, target);
    if (!path)
        return std::nullopt;
    if (const platform::Status saved = write(*path); !saved) {
        host.tell(u"保存失败：【"_s + saved.failure().description + u"】");
        return std::nullopt;
    }
    return u"已保存到 "_s + *path;
}

} // namespace batch
