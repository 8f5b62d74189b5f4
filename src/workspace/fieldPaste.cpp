#include "workspace/fieldPaste.h"
#include "marc/configurationFiles.h"
#include "marc/fieldText.h"
#include "workspace/fieldEditing.h"
#include <utility>

namespace workspace {

namespace {

// Returns the row after the field of the row `from`.
int afterField(const marc::FieldRows &rows, int from) {
    int row = from + 1;
    while (row <= rows.size() && !beginsField(rows[row - 1]))
        ++row;
    return row;
}

} // namespace

QString copiedFields(const marc::FieldRows &rows, int first, int last) {
    const auto head = fieldOf(rows, first);
    return head ? marc::fieldText(rows.mid(*head - 1, afterField(rows, last) - *head)) : QString();
}

platform::Result<NewRows> pastedFields(const marc::FieldRows &rows, int current, const QString &text,
                                       const QString &folder) {
    auto fields = marc::fieldsOfText(text);
    if (!fields)
        return fields.failure();
    marc::FieldRows content = rows.first(1) + fields.value(); // descriptions begin after the leader
    (void)marc::fillDescriptions(content, folder);            // a missing file is reported when a record is shown
    content.removeFirst();
    for (qsizetype at = 0; at < content.size(); ++at)
        content[at].number = QString::number(rows.size() + 2 + at); // as rows added one by one
    return NewRows{afterField(rows, current), std::move(content)};
}

} // namespace workspace
