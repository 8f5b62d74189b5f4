#include "workspace/editedRecord.h"
#include "marc/configurationFiles.h"
#include "marc/recordWriter.h"
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

using marc::FieldRow;
constexpr auto cells = std::to_array<QString FieldRow::*>(
    {&FieldRow::number, &FieldRow::fieldLabel, &FieldRow::identifier, &FieldRow::subfieldLabel, &FieldRow::value});
static_assert(cells.size() == ValueColumn + 1);

bool isColumn(int column) {
    return column >= NumberColumn && column <= ValueColumn;
}

} // namespace

EditedRecord::EditedRecord() {
    reset();
}

FieldRow EditedRecord::row(int row) const {
    return m_rows.value(row - 1);
}

QString EditedRecord::cell(int row, int column) const {
    return holds(row) && isColumn(column) ? m_rows[row - 1].*cells[size_t(column)] : QString();
}

QString EditedRecord::show(const marc::RawRecord &record, const QString &folder,
                           const marc::DamagedDirectory &damaged) {
    marc::ShownRecord shown = marc::showRecord(record);
    publicTouBiao = shown.leader;
    if (shown.damaged) {
        reset();
        damaged(record);
        return {};
    }
    const QString complaint = marc::fillDescriptions(shown.rows, folder);
    const QString cutOff = shown.cutOff ? u"本条记录目次区重叠，只显示前 %1 行"_s.arg(shown.rows.size()) : QString();
    setRows(std::move(shown.rows), cutOff);
    return complaint;
}

void EditedRecord::reset() {
    setRows({FieldRow{}}, {});
}

void EditedRecord::put(const marc::FieldRows &rows, const QString &leader) {
    publicTouBiao = leader;
    setRows(rows, m_cutOff);
}

void EditedRecord::setRows(marc::FieldRows rows, const QString &cutOff) {
    m_rows = std::move(rows);
    m_cutOff = cutOff;
    rowsCameOrWent = false;
    m_losses.clear();
    m_losses.reserve(m_rows.size());
    for (const FieldRow &row : m_rows)
        m_losses.append(lossesOf(row.value));
    Q_EMIT shown();
    Q_EMIT changed();
}

void EditedRecord::change(int row, int column, const QString &text) {
    if (!holds(row) || !isColumn(column))
        return;
    m_rows[row - 1].*cells[size_t(column)] = text;
    if (column == ValueColumn)
        m_losses[row - 1] = lossesOf(text);
    Q_EMIT cellChanged(row, column);
    Q_EMIT changed();
}

void EditedRecord::insert(const NewRow &row) {
    if (row.place < 1 || row.place > m_rows.size() + 1)
        return;
    m_rows.insert(row.place - 1, row.content);
    m_losses.insert(row.place - 1, lossesOf(row.content.value));
    rowsCameOrWent = true;
    Q_EMIT rowInserted(row.place);
    Q_EMIT changed();
}

void EditedRecord::remove(int row) {
    if (!holds(row))
        return;
    m_rows.removeAt(row - 1);
    m_losses.removeAt(row - 1);
    rowsCameOrWent = true;
    Q_EMIT rowRemoved(row);
    Q_EMIT changed();
}

marc::RawRecord EditedRecord::rebuilt(const QDateTime &now) const {
    return marc::madeMyMarc(m_rows, publicTouBiao, now);
}

QString EditedRecord::warning(int row, const QString &content) const {
    QList<Losses> losses = m_losses;
    if (holds(row))
        losses[row - 1] = lossesOf(content);
    return warningWith(losses);
}

QString EditedRecord::warningWith(const QList<Losses> &losses) const {
    QStringList warnings{m_cutOff, warningOf(m_rows, losses)};
    warnings.removeAll(QString());
    return warnings.join(u' ');
}

} // namespace workspace
