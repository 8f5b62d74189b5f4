// The list of pre-read records: sequence number, title and the whole record. It starts with 20 empty rows and only
// grows. A record is stored as its GBK bytes if they decode to the exact text, else as text; a title that occurs in
// these bytes takes no memory of its own. Reading returns exactly the text that was stored.
#pragma once

#include "marc/rawRecord.h"
#include "platform/byteArena.h"
#include "platform/tableSource.h"
#include <QString>
#include <deque>
#include <vector>

namespace marc {

class PreReadStore final : public platform::TableSource {
public:
    static constexpr int initialRows = 20;

    PreReadStore();
    void reset(); // resets to 20 empty rows

    int rowCount() const override { return int(m_rows.size()); }
    int columnCount() const override { return 3; }
    QString text(int row, int column) const override; // 0 number, 1 title, 2 record

    void setRows(int count); // never shrinks the list

    QString number(int row) const; // "1" in row 0; empty if the row has no record
    QString title(int row) const;
    RawRecord record(int row) const;
    bool hasRecord(int row) const { return m_rows.at(size_t(row)).recordSize > 0; }
    // Returns the record as GBK if it is stored so; an empty view if it is stored as text or there is none. Valid until
    // the list changes.
    QByteArrayView heldBytes(int row) const;
    // The same, but an empty view also if the bytes are not those that the record encodes to: if some of them decode to
    // the replacement character.
    QByteArrayView encodedBytes(int row) const;

    void setNumber(int row, int number);
    void setTitle(int row, const QString &title);
    // `gbk` contains the bytes that the record was decoded from; empty if the caller does not have them.
    void setRecord(int row, const RawRecord &record, QByteArrayView gbk = {});

    // Returns the number of records replaced since reset(), which identifies a moment in the history of the list.
    int replacements() const { return int(m_replaced.size()); }
    // Returns the contents of the row since that moment: the record of that time first, the present one last.
    std::vector<RawRecord> recordsSince(int moment, int row) const;
    // The row and the record that the replacement after that moment replaced. `moment` is below replacements().
    int replacedRow(int moment) const { return m_replaced.at(size_t(moment)).row; }
    RawRecord replacedRecord(int moment) const { return recordOf(m_replaced.at(size_t(moment)).before); }

private:
    // Small, since there is one per record.
    struct Row {
        const char *record = nullptr; // in the arena
        quint64 recordSize : 39 = 0;
        quint64 titleSize : 22 = 0;
        quint64 isText : 1 = false; // the record as UTF-16
        quint64 hasReplacement : 1 = false;
        quint64 titleIsApart : 1 = false; // in m_titles, at index titleAt; else in the record, at offset titleAt
        quint32 titleAt = 0;
        int number = 0; // 0: none
    };
    static_assert(sizeof(Row) == 24);
    static QByteArrayView bytesOf(const Row &row) { return {row.record, qsizetype(row.recordSize)}; }
    struct Replaced {
        int row;
        Row before;
    };
    static RawRecord recordOf(const Row &row);
    QByteArrayView keepText(QStringView text);
    static bool pointIntoRecord(Row &row, const QString &title);

    std::deque<Row> m_rows;              // grows without moving its elements
    std::deque<QByteArrayView> m_titles; // titles that do not occur in their record, as UTF-16
    std::vector<Replaced> m_replaced;    // in the order of replacement
    platform::ByteArena m_held;          // keeps replaced records until reset()
};

} // namespace marc
