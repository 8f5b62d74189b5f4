#include "tidy/targetForms.h"
#include "platform/paths.h"

namespace tidy {

QString suggestedTarget(const QString &source, const FormRow &form) {
    const qsizetype folder = platform::folderOf(source).size();
    if (source.size() == folder)
        return {};
    const qsizetype point = source.lastIndexOf(u'.');
    return (point > folder ? source.first(point) : source) + form.ending;
}

} // namespace tidy
