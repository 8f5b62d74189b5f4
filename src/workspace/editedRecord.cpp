#include "workspace/editedRecord.h"
#include "marc/configurationFiles.h"
#include "marc/recordWriter.h"
#include <algorithm>
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

// Compares the texts that become part of the built record; descriptions do not.
bool buildSame(const FieldRow &one, const FieldRow &other) {
    return one.identifier == other.identifier && one.value == other.value;
}

} // namespace

EditedRecord::EditedRecord() {
    reset();
}

FieldRow EditedRecord::row(int row) const {
    return m_state.rows.value(row - 1);
}

QString EditedRecord::cell(int row, int column) const {
    return holds(row) && isColumn(column) ? m_state.rows[row - 1].*cells[size_t(column)] : QString();
}

bool EditedRecord::differsFromList(const RecordState &state) const {
    return state.leader != m_inList.leader || !std::ranges::equal(state.rows, m_inList.rows, buildSame);
}

QString EditedRecord::show(const marc::RawRecord &record, const QString &folder,
                           const marc::DamagedDirectory &damaged) {
    marc::ShownRecord shown = marc::showRecord(record);
    if (shown.damaged) {
        begin({.rows = {FieldRow{}}, .leader = shown.leader}, {});
        damaged(record);
        return {};
    }
    const QString complaint = marc::fillDescriptions(shown.rows, folder);
    const QString cutOff = shown.cutOff ? u"本条记录目次区重叠，只显示前 %1 行"_s.arg(shown.rows.size()) : QString();
    begin({.rows = std::move(shown.rows), .leader = shown.leader}, cutOff);
    return complaint;
}

void EditedRecord::reset() {
    begin({.rows = {FieldRow{}}, .leader = m_state.leader}, {});
}

void EditedRecord::begin(RecordState state, const QString &cutOff) {
    m_state = std::move(state);
    m_inList = m_state;
    m_history.begin(m_state);
    m_cutOff = cutOff;
    m_losses.clear();
    for (const FieldRow &row : std::as_const(m_state.rows))
        m_losses.append(lossesOf(row.value));
    Q_EMIT shown();
}

void EditedRecord::put(int row, int column, const QString &text) {
    m_state.rows[row - 1].*cells[size_t(column)] = text;
    if (column == ValueColumn)
        m_losses[row - 1] = lossesOf(text);
    Q_EMIT cellChanged(row, column);
}

void EditedRecord::putRow(int row, const FieldRow &content) {
    m_state.rows.insert(row - 1, content);
    m_losses.insert(row - 1, lossesOf(content.value));
    Q_EMIT rowInserted(row);
}

void EditedRecord::takeRow(int row) {
    m_state.rows.removeAt(row - 1);
    m_losses.removeAt(row - 1);
    Q_EMIT rowRemoved(row);
}

void EditedRecord::noteEdit() {
    m_history.note(m_state);
    Q_EMIT edited();
}

void EditedRecord::edit(const CellChange &change) {
    if (!holds(change.row) || !isColumn(change.column))
        return;
    m_state.edited = m_state.edited || change.marks;
    if (change.leader)
        m_state.leader = *change.leader;
    put(change.row, change.column, change.text);
    noteEdit();
}

void EditedRecord::insert(const NewRow &row) {
    if (row.place < 1 || row.place > m_state.rows.size() + 1)
        return;
    m_state.rowsCameOrWent = true;
    putRow(row.place, row.content);
    noteEdit();
}

void EditedRecord::paste(const NewRows &rows) {
    if (rows.place < 1 || rows.place > m_state.rows.size() + 1 || rows.content.isEmpty())
        return;
    m_state.edited = true;
    m_state.rowsCameOrWent = true;
    for (qsizetype at = 0; at < rows.content.size(); ++at)
        putRow(rows.place + int(at), rows.content[at]);
    noteEdit();
}

void EditedRecord::remove(int row, int count) {
    if (count < 1 || !holds(row) || !holds(row + count - 1))
        return;
    m_state.rowsCameOrWent = true;
    for (; count > 0; --count)
        takeRow(row);
    noteEdit();
}

void EditedRecord::replace(marc::FieldRows rows, const QString &folder) {
    marc::FieldRows described = rows;
    marc::fillDescriptions(described, folder);
    for (qsizetype at = 0; at < rows.size(); ++at) {
        if (rows[at].fieldLabel.isEmpty())
            rows[at].fieldLabel = described[at].fieldLabel;
        if (rows[at].subfieldLabel.isEmpty())
            rows[at].subfieldLabel = described[at].subfieldLabel;
    }
    m_state.edited = true;
    m_state.rowsCameOrWent = m_state.rowsCameOrWent || rows.size() != m_state.rows.size();
    assign(rows);
    noteEdit();
}

// Changes only the rows that differ, so that a view keeps its position. Returns the first of them, counted from 1.
int EditedRecord::assign(const marc::FieldRows &rows) {
    const marc::FieldRows before = m_state.rows;
    const auto head = std::ranges::mismatch(before, rows).in1 - before.begin();
    qsizetype tail = 0;
    while (tail < std::min(before.size(), rows.size()) - head &&
           before.at(before.size() - 1 - tail) == rows.at(rows.size() - 1 - tail))
        ++tail;
    const int first = int(head) + 1;
    if (before.size() == rows.size()) {
        for (qsizetype at = head; at < rows.size() - tail; ++at)
            for (int column = NumberColumn; column <= ValueColumn; ++column)
                if (const QString &text = rows[at].*cells[size_t(column)]; text != cell(int(at) + 1, column))
                    put(int(at) + 1, column, text);
        return first;
    }
    for (qsizetype left = before.size() - head - tail; left > 0; --left)
        takeRow(first);
    for (qsizetype at = head; at < rows.size() - tail; ++at)
        putRow(int(at) + 1, rows[at]);
    return first;
}

std::optional<EditedRecord::Gone> EditedRecord::go(const std::optional<FieldHistory::Step> &step) {
    if (!step)
        return std::nullopt;
    m_state.leader = step->state.leader;
    m_state.edited = step->state.edited;
    m_state.rowsCameOrWent = step->state.rowsCameOrWent;
    const int row = assign(step->state.rows);
    Q_EMIT edited();
    return Gone{step->words, std::min(row, rowCount())};
}

void EditedRecord::takenOver() {
    m_inList = m_state;
    m_history.markEdited();
    Q_EMIT edited();
}

void EditedRecord::leave(Mark mark) {
    const bool changes = m_state.edited || m_state.rowsCameOrWent || differsFromList();
    m_state.rowsCameOrWent = false;
    if (mark == Mark::Goes)
        m_state.edited = false;
    m_inList = m_state;
    m_history.begin(m_state);
    if (changes)
        Q_EMIT edited();
}

marc::RawRecord EditedRecord::rebuilt(const RecordState &state, const QDateTime &now) {
    return marc::madeMyMarc(state.rows, state.leader, now);
}

RecordState EditedRecord::with(const CellChange &typed) const {
    RecordState state = m_state;
    if (holds(typed.row) && isColumn(typed.column))
        state.rows[typed.row - 1].*cells[size_t(typed.column)] = typed.text;
    return state;
}

QString EditedRecord::warning(int row, const QString &content) const {
    QList<Losses> losses = m_losses;
    if (holds(row))
        losses[row - 1] = lossesOf(content);
    return warningWith(losses);
}

QString EditedRecord::warningWith(const QList<Losses> &losses) const {
    QStringList warnings{m_cutOff, warningOf(m_state.rows, losses)};
    warnings.removeAll(QString());
    return warnings.join(u' ');
}

} // namespace workspace
