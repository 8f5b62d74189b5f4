// The whole result of a query, held compactly: the cells of a row behind each other, texts of Latin letters with a byte
// a character, a byte more for a cell that is not long; nothing copied as it grows. A NULL reads as an empty text.
// Columns are found by name without regard to case.
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
    enum class Form : quint8 { Null, Latin1, Utf16 };
    // As it stands in its row: a byte of form and size, four of size where that is large, and the text.
    struct Cell {
        Form form;
        qsizetype size; // characters
        const char *text;
        qsizetype bytes() const { return size * (form == Form::Utf16 ? qsizetype(sizeof(QChar)) : 1); }
        const char *end() const { return text + bytes(); }
    };

    static Cell cellAt(const char *at);
    Cell cell(int row, int column) const;
    void begin(Form form, qsizetype size);
    void end();

    QStringList m_names;
    std::deque<const char *> m_rows; // the first cell of each, the others behind it
    platform::ByteArena m_held;
    QByteArray m_begun; // the row that is being filled
    int m_begunCells = 0;
};

} // namespace database
