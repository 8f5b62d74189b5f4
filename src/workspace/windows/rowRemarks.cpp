#include "workspace/windows/rowRemarks.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr int leaderRow = 1; // stands for the record as a whole
}

RowRemarks::RowRemarks(FieldGrid &fields, EditedRecord &record, Check check)
    : m_fields(fields)
    , m_record(record)
    , m_check(std::move(check)) {
    for (const auto changed : {&EditedRecord::shown, &EditedRecord::edited})
        connect(&record, changed, this, &RowRemarks::renew);
    for (const auto moved : {&FieldGrid::enterCell, &FieldGrid::gridClicked})
        connect(&fields, moved, this, &RowRemarks::tellWords);
    connect(&fields, &FieldGrid::rearranged, this, &RowRemarks::tellWords);
}

// A grid without a record has one empty row.
void RowRemarks::renew() {
    const bool isEmpty = m_record.row(leaderRow).identifier.isEmpty();
    std::vector<RowRemark> remarks = isEmpty ? std::vector<RowRemark>() : m_check(m_record.rows());
    for (RowRemark &remark : remarks)
        remark.row = std::max(remark.row, leaderRow);
    m_fields.markRows(std::move(remarks));
    tellWords();
}

void RowRemarks::tellWords() {
    const std::vector<RowRemark> remarks = m_fields.remarksOn(m_fields.row());
    const QString more = remarks.size() > 1 ? u"（等 %1 处）"_s.arg(remarks.size()) : QString();
    Q_EMIT told(remarks.empty() ? QString() : QString(remarks[0].words + more));
}

} // namespace workspace
