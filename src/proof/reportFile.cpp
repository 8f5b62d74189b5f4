#include "proof/reportFile.h"
#include "platform/textFile.h"

using namespace Qt::StringLiterals;

namespace proof {

platform::Result<QString> saveReport(const QString &text, const QString &folder) {
    const QString path = folder + u"errorlog.txt";
    if (const platform::Status written = platform::writeTextFile(path, text + u"\r\n"); !written)
        return written.failure();
    return QString(u"报告列表保存在文件"_s + path + u"中");
}

} // namespace proof
