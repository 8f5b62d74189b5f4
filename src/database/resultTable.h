// The whole result of a query, held compactly: the texts of a row behind each other, those of Latin letters with a byte
// a character, and four bytes a cell beside them; nothing copied as it grows. A NULL reads as an empty text. Columns
// are found by name without regard to case.
#pragma once

#include "platform/byteArena.h"
#include "platform/tableSource.h"
#include <QByteArray>
#include <QStringList>
#include <deque>
#include <optional>

namespace database {

class ResultTable final : public platform::TableSource {
public:
    explicit ResultTable(QStringList columnNames);

    int rowCount() const override { return int(m_rows.size()); }
    int columnCount() const override { return int(m_names.size()); }
    QString text(int row, int column) const override;

    const QStringList &columnNames() const { return m_names; }
    // The first column of that name.
    std::optional<int> column(QStringView name) const;
    bool isNull(int row, int column) const;

    // Appends the next cell, in row order; a row is there when its last cell is. Used by whoever fills the table.
    void append(QStringView text);
    void appendUtf8(QByteArrayView text);
    void appendNull();

private:
    enum class Form : quint32 { Null, Latin1, Utf16 };
    static constexpr int sizeBits = 30; // a thousand million, which is more than any server gives
    struct Cell {
        quint32 size : sizeBits; // characters
        Form form : 32 - sizeBits;
        qsizetype bytes() const { return qsizetype(size) * (form == Form::Utf16 ? qsizetype(sizeof(QChar)) : 1); }
    };

    std::size_t indexOf(int row, int column) const;
    void endCell(Form form, qsizetype size);

    QStringList m_names;
    std::deque<const char *> m_rows; // where each row's texts start
    std::deque<Cell> m_cells;
    platform::ByteArena m_held;
    QByteArray m_begun; // texts of the row that is being filled
};

} // namespace database
