#include "app/databaseNote.h"
#include "database/whereabouts.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace app {

DatabaseNote databaseNote(const QString &connectionString) {
    const database::Whereabouts where = database::whereabouts(connectionString);
    const QString name = u"数据库：" + where.name;
    if (!where.file.isEmpty()) {
        const bool there = platform::fileExists(where.file);
        return {.words = name + (there ? u"，可以使用" : u"，文件不存在"), .missing = !there};
    }
    return {.words = where.server.isEmpty() ? name : QString(name + u"（" + where.server + u"）")};
}

} // namespace app
