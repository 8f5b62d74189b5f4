// The current record of the workspace: the one owner of its rows, its leader, whether it was edited, and the way back
// through its edits. Rows are numbered as on the grid: row 1 is the first element of the list; as a TableSource it
// counts from 0. A question about a row or column outside the record gives an empty text, and an edit there does
// nothing.
#pragma once

#include "marc/fieldLookup.h"
#include "platform/tableSource.h"
#include "workspace/fieldEditing.h"
#include "workspace/fieldHistory.h"
#include <QDateTime>
#include <QObject>

namespace workspace {

// Columns of the grid, one for each text of a row.
enum FieldColumn { NumberColumn, FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn, ValueColumn };

// One cell gets a text; with the leader's row the record may get a leader as well.
struct CellChange {
    int row = 0;
    int column = ValueColumn;
    QString text;
    bool marks = true;                  // whether the record counts as edited by it
    std::optional<QString> leader = {}; // a new `publicTouBiao`
};

class EditedRecord final : public QObject, public platform::TableSource {
    Q_OBJECT
public:
    EditedRecord();

    const RecordState &state() const { return m_state; }
    const marc::FieldRows &rows() const { return m_state.rows; }
    marc::FieldRow row(int row) const;
    QString cell(int row, int column) const;
    // Whether the record that would be built differs from the one in the list by the user's doing.
    bool differsFromList() const { return differsFromList(m_state); }
    bool differsFromList(const RecordState &state) const;

    // Shows a record of the list, with the descriptions of the file in `folder`. Returns the text of the box where that
    // file is missing, else an empty text. A record whose directory is damaged is handed to `damaged` and leaves one
    // empty row.
    QString show(const marc::RawRecord &record, const QString &folder, const marc::DamagedDirectory &damaged);
    void reset(); // to one empty row; the leader stays

    // Each is one step of undo, and is followed by edited().
    void edit(const CellChange &change);
    void insert(const NewRow &row);
    void remove(int row, int count = 1);

    // Undo and redo. What was undone, and the first row that changed by it; nothing where there is nothing to undo.
    struct Gone {
        QString words;
        int row = 0;
    };
    std::optional<Gone> undo() { return go(m_history.back()); }
    std::optional<Gone> redo() { return go(m_history.forward()); }

    // The list holds the record as it stands; going back behind this state counts as an edit.
    void takenOver();
    // The record is no longer current, though it may still be on the grid: its edits were taken over or dropped. The
    // mark `edited` stays where the next record is to be asked about too.
    enum class Mark { Goes, Stays };
    void leave(Mark mark);

    // The record as it stands, or as it would be with a state of its own; `now` goes into field 001.
    marc::RawRecord rebuilt(const QDateTime &now) const { return rebuilt(m_state, now); }
    static marc::RawRecord rebuilt(const RecordState &state, const QDateTime &now);
    // The state with a text that is still being typed.
    RecordState with(const CellChange &typed) const;
    // What is to be said about the record as it stands, or with a text in place of the content of a row: that text
    // alone is looked at, so that it may be asked at each key. Empty when all is well.
    QString warning() const { return warningWith(m_losses); }
    QString warning(int row, const QString &content) const;

    int rowCount() const override { return int(m_state.rows.size()); }
    int columnCount() const override { return ValueColumn + 1; }
    QString text(int row, int column) const override { return cell(row + 1, column); }

Q_SIGNALS:
    // Of the record, sent when the state is complete.
    void shown();  // another record, or none
    void edited(); // the same record in another state: edited, undone, taken over or left
    // Of the rows, for a view; several may come before one edited().
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
    QList<Losses> m_losses; // of each row's content
    QString m_cutOff;       // what is to be said of a record that is not shown to its end
};

} // namespace workspace
