// The record in the field grid, as a value that a grid can show: its rows, its leader, and whether it was edited. What
// changes is told by signals. Rows are numbered as on the grid: row 1 is the first element of the list; as a
// TableSource it counts from 0. What is asked outside the rows is empty, and nothing can be changed there.
#pragma once

#include "marc/fieldLookup.h"
#include "marc/fieldRows.h"
#include "platform/tableSource.h"
#include "workspace/fieldEditing.h"
#include <QDateTime>
#include <QObject>

namespace workspace {

// Columns of the grid, one for each text of a row.
enum FieldColumn { NumberColumn, FieldLabelColumn, IdentifierColumn, SubfieldLabelColumn, ValueColumn };

class EditedRecord final : public QObject, public platform::TableSource {
    Q_OBJECT
public:
    EditedRecord();

    QString publicTouBiao;       // the leader that the record is built with; the leader's row may differ
    bool recordChanged = false;  // edited and not yet taken over into the list; whoever edits says so
    bool rowsCameOrWent = false; // since the record was shown; that alone is no change to be asked about

    const marc::FieldRows &rows() const { return m_rows; }
    marc::FieldRow row(int row) const;
    QString cell(int row, int column) const;

    // Shows the record, with the descriptions of the file in `folder`. The text of the box where that file is missing,
    // else empty. A record whose directory is damaged is handed to `damaged` and leaves one empty row.
    QString show(const marc::RawRecord &record, const QString &folder, const marc::DamagedDirectory &damaged);
    void reset();                                                 // to one empty row; the leader stays
    void put(const marc::FieldRows &rows, const QString &leader); // back to a state that it had
    void change(int row, int column, const QString &text);
    void insert(const NewRow &row);
    void remove(int row);

    // The record as it stands; `now` goes into field 001.
    marc::RawRecord rebuilt(const QDateTime &now) const;
    // What is to be said about the record as it stands, or with a text in place of the content of a row: a look at that
    // text alone, so that it may be asked at each key. Empty when all is well.
    QString warning() const { return warningWith(m_losses); }
    QString warning(int row, const QString &content) const;

    int rowCount() const override { return int(m_rows.size()); }
    int columnCount() const override { return ValueColumn + 1; }
    QString text(int row, int column) const override { return cell(row + 1, column); }

Q_SIGNALS:
    void shown(); // all rows are other ones
    void rowInserted(int row);
    void rowRemoved(int row);
    void cellChanged(int row, int column);
    void changed(); // behind each of these

private:
    bool holds(int row) const { return row >= 1 && row <= m_rows.size(); }
    void setRows(marc::FieldRows rows, const QString &cutOff);
    QString warningWith(const QList<Losses> &losses) const;

    marc::FieldRows m_rows;
    QList<Losses> m_losses; // of each row's content
    QString m_cutOff;       // what is to be said of a record that is not shown to its end
};

} // namespace workspace
