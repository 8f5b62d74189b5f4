#include "tasks/recordChanger.h"

using namespace Qt::StringLiterals;

namespace tasks {

Outcome RecordChanger::change(marc::RawRecord &record, const QSet<QString> &remarks, const Wishes &wishes) {
    if (m_record.take(record) != marc::Cut::Exact)
        return {.why = u"目次区与字段对不上"_s};
    Outcome outcome = m_run.apply(m_record, remarks, wishes);
    if (!outcome.changed)
        return outcome;
    if (const QString why = m_writer.make(m_record); !why.isEmpty())
        return {.why = why};
    record = m_writer.text();
    return outcome;
}

} // namespace tasks
