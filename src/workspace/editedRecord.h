// The current record of the workspace. Owns its rows, its leader, whether it was edited, and its undo history. Rows are
// numbered as on the grid: row 1 is the first element of the list. As a TableSource it counts rows from 0. Reading a
// row or column outside the record returns an empty text; an edit there does nothing.
#pragma once

#include "marc/fieldLookup.h"
#include "platform/tableSource.h"
#include "workspace/fieldEditing.h"
#include "workspace/fieldHistory.h"
#include "workspace/fieldPaste.h"
#include <QDateTime>
#include <QObject>

namespace workspace {

// Columns of the grid, one for each text of a FieldRow.
enum FieldColumn { NumberColumn, FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn, ValueColumn };

// A new text for one cell. A change of the leader's row may set the record's leader as well.
struct CellChange {
    int row = 0;
    int column = ValueColumn;
    QString text;
    bool marks = true;                  // whether the change marks the record as edited
    std::optional<QString> leader = {}; // the new leader (`publicTouBiao`)
};

class EditedRecord final : public QObject, public platform::TableSource {
    Q_OBJECT
public:
    EditedRecord();

    const RecordState &state() const { return m_state; }
    const marc::FieldRows &rows() const { return m_state.rows; }
    marc::FieldRow row(int row) const;
    QString cell(int row, int column) const;
    // Returns whether the rows or the leader differ from the list's record. Descriptions are not compared.
    bool differsFromList() const { return differsFromList(m_state); }
    bool differsFromList(const RecordState &state) const;

    // Shows a record of the list with the descriptions in `folder`. Returns the message to show if the file of
    // descriptions is missing, else an empty text. If the directory of the record is damaged, passes the record to
    // `damaged` and shows one empty row.
    QString show(const marc::RawRecord &record, const QString &folder, const marc::DamagedDirectory &damaged);
    void reset(); // to one empty row; the leader is kept

    // Each call is one undo step and emits edited().
    void edit(const CellChange &change);
    void insert(const NewRow &row);
    void paste(const NewRows &rows); // marks the record as edited
    void remove(int row, int count = 1);
    // Replaces all rows and marks the record as edited. Rows without descriptions get those in `folder`.
    void replace(marc::FieldRows rows, const QString &folder);

    // Undo and redo. Return what was undone or redone and the first row that changed, or std::nullopt if there is
    // nothing to undo or redo.
    struct Gone {
        QString words;
        int row = 0;
    };
    std::optional<Gone> undo() { return go(m_history.back()); }
    std::optional<Gone> redo() { return go(m_history.forward()); }

    // Call when the list has taken the current state. From then on every undo or redo marks the record as edited.
    void takenOver();
    // Call when the record is no longer current because its edits were taken over or dropped; the grid may still show
    // it. With Mark::Stays the `edited` mark is kept, so that the user is asked about the next record too.
    enum class Mark { Goes, Stays };
    void leave(Mark mark);

    // Builds the record from the current state, or from `state`. `now` is written to field 001.
    marc::RawRecord rebuilt(const QDateTime &now) const { return rebuilt(m_state, now); }
    static marc::RawRecord rebuilt(const RecordState &state, const QDateTime &now);
    // Returns the current state with a text that is still being typed.
    RecordState with(const CellChange &typed) const;
    // Returns the warning about the record, or an empty text. The second form uses `content` instead of the stored
    // content of `row`; it analyses only that text, so that it can be called on each key press.
    QString warning() const { return warningWith(m_losses); }
    QString warning(int row, const QString &content) const;

    int rowCount() const override { return int(m_state.rows.size()); }
    int columnCount() const override { return ValueColumn + 1; }
    QString text(int row, int column) const override { return cell(row + 1, column); }

Q_SIGNALS:
    // About the record; emitted when the state is complete.
    void shown();  // another record, or an empty one
    void edited(); // the same record in another state: edited, undone, redone, taken over or left
    // About the rows, for a view; several may precede one edited().
    void rowInserted(int row);
    void rowRemoved(int row);
    void cellChanged(int row, int column);

private:
    bool holds(int row) const { return row >= 1 && row <= m_state.rows.size(); }
    void begin(RecordState state, const QString &cutOff);
    void put(int row, int column, const QString &text);
    void putRow(int row, const marc::FieldRow &content);
    void takeRow(int row);
    void noteEdit();
    int assign(const marc::FieldRows &rows);
    std::optional<Gone> go(const std::optional<FieldHistory::Step> &step);
    QString warningWith(const QList<Losses> &losses) const;

    RecordState m_state;
    RecordState m_inList; // the state that the list holds
    FieldHistory m_history;
    QList<Losses> m_losses; // of the content of each row
    QString m_cutOff;       // the warning about a record that is not shown completely
};

} // namespace workspace
