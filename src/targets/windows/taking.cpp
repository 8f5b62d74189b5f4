#include "targets/windows/taking.h"
#include "platform/paths.h"
#include "targets/searchWords.h"

using namespace Qt::StringLiterals;

namespace targets {

bool Taking::write(const std::vector<marc::FieldedRecord> &records) {
    const QString last = m_host.remembered().value(platform::kept::takenFolder);
    const QString folder = m_host.chooseFile({.title = u"把取用的记录存到哪个文件夹"_s,
                                              .kind = platform::FileDialogKind::Folder,
                                              .start = last.isEmpty() ? last : platform::pathWithSlash(last)});
    if (folder.isEmpty())
        return false;
    const auto taken = writeTaken(folder, m_host.now().date(), records);
    if (!taken) {
        m_host.tell(u"没有写成：\r\n"_s + taken.failure().description);
        return false;
    }
    m_host.remembered().keep(platform::kept::takenFolder, folder);
    m_file = taken.value().path;
    m_host.tell(takenWords(taken.value()));
    return true;
}

} // namespace targets
