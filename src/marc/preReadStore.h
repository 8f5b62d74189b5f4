// The list of pre-read records: sequence number, title and the whole record. It starts with 20 empty rows and only
// grows. A record is held as its GBK bytes where these give the text back exactly, else as text; a title that stands in
// these bytes takes no room of its own. What comes out is the text that was put in.
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
    void reset(); // back to 20 empty rows

    int rowCount() const override { return int(m_rows.size()); }
    int columnCount() const override { return 3; }
    QString text(int row, int column) const override; // 0 number, 1 title, 2 record

    void setRows(int count); // never fewer than there are

    QString number(int row) const; // "1" in row 0; empty where no record stands
    QString title(int row) const;
    RawRecord record(int row) const;
    // The record as GBK, where it is held so; else, and where there is none, empty. Valid until the list changes.
    QByteArrayView heldBytes(int row) const;

    void setNumber(int row, int number);
    void setTitle(int row, const QString &title);
    // `gbk` are the bytes that the record was decoded from, where the caller has them; empty otherwise.
    void setRecord(int row, const RawRecord &record, QByteArrayView gbk = {});

    // How many records have been replaced since reset(): a moment in the life of the list.
    int replacements() const { return int(m_replaced.size()); }
    // What the row has held since that moment: the record of that time first, the present one last.
    std::vector<RawRecord> recordsSince(int moment, int row) const;

private:
    // Small, since there are as many as records.
    struct Row {
        const char *record = nullptr; // in the arena
        quint64 recordSize : 40 = 0;
        quint64 titleSize : 22 = 0;
        quint64 isText : 1 = false;       // the record as UTF-16
        quint64 titleIsApart : 1 = false; // in m_titles, where it counts; else in the record
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

    std::deque<Row> m_rows;              // which grows without moving house
    std::deque<QByteArrayView> m_titles; // those that stand in no record, as UTF-16
    std::vector<Replaced> m_replaced;    // in the order in which they were replaced
    platform::ByteArena m_held;          // what is replaced stays until reset()
};

} // namespace marc
