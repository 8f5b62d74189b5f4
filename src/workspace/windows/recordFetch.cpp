#include "workspace/windows/recordFetch.h"
#include "marc/fieldedRecord.h"
#include "platform/paths.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr QStringView isbnTag = u"010", titleTag = u"200";
} // namespace

RecordFetch::RecordFetch(RecordList &list, EditedRecord &record, platform::Host &host, const WorkspaceWindows &windows)
    : m_list(list)
    , m_record(record)
    , m_host(host)
    , m_windows(windows) {}

QString RecordFetch::valueOf(QStringView tag) const {
    QStringView field;
    for (const marc::FieldRow &row : m_record.rows()) {
        if (!row.identifier.startsWith(u'$'))
            field = row.identifier;
        else if (field == tag && row.identifier == u"$a")
            return row.value.trimmed();
    }
    return {};
}

QStringList RecordFetch::isbns() const {
    QStringList isbns;
    marc::FieldedRecord record;
    const marc::PreReadStore &records = m_list.records();
    for (int row = 0; row < records.rowCount(); ++row) {
        record.take(records.record(row));
        for (const marc::Field &field : record.fields) {
            if (const auto isbn = field.tag == isbnTag ? field.subfield(u'a') : std::nullopt)
                isbns.append(isbn->toString());
        }
    }
    return isbns;
}

void RecordFetch::open() {
    if (!m_windows.fetchRecord)
        return;
    const QString isbn = valueOf(isbnTag);
    m_windows.fetchRecord({.isbn = isbn,
                           .title = isbn.isEmpty() ? valueOf(titleTag) : QString(),
                           .rows = [this] { return m_record.rows(); },
                           .put =
                               [this](const marc::FieldRows &rows) {
                                   m_record.replace(rows, platform::pathWithSlash(m_host.programFolder()));
                               },
                           .isbns = [this] { return isbns(); }},
                          m_list.window());
}

} // namespace workspace
