// The list of pre-read records: sequence number, title and the whole record. It starts with 20 empty rows and only
// grows. A record is held as its GBK bytes where these give the text back exactly, else as text; what comes out is the
// text.
#pragma once

#include "marc/rawRecord.h"
#include "platform/byteArena.h"
#include "platform/tableSource.h"
#include <QString>
#include <deque>

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

private:
    struct Row {
        QByteArrayView record;       // in the arena, as is the title
        const char *title = nullptr; // UTF-8
        quint32 titleSize = 0;
        int number : 31 = 0;     // 0: none
        bool isText : 1 = false; // the record as UTF-16
    };
    std::deque<Row> m_rows;     // which grows without moving house
    platform::ByteArena m_held; // what is replaced stays until reset()
};

} // namespace marc
