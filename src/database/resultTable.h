// The whole result of a query, in a compact form: the cells of a row are adjacent, a text of Latin-1 characters takes
// one byte per character, and a short cell takes one byte more. Growth copies nothing. A NULL reads as an empty text.
// Column names are compared case-insensitively.
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
    // Returns the first column of that name, counted from 0.
    std::optional<int> column(QStringView name) const;
    bool isNull(int row, int column) const;

    // Appends the next cell, in row order; a row exists once its last cell is appended.
    void append(QStringView text);
    void appendUtf8(QByteArrayView text);
    void appendNull();

private:
    enum class Form : quint8 { Null, Latin1, Utf16 };
    // The stored form: one byte for form and size, four more for a large size, and the text.
    struct Cell {
        Form form;
        qsizetype size; // in characters
        const char *text;
        qsizetype bytes() const { return size * (form == Form::Utf16 ? qsizetype(sizeof(QChar)) : 1); }
        const char *end() const { return text + bytes(); }
    };

    static Cell cellAt(const char *at);
    Cell cell(int row, int column) const;
    void begin(Form form, qsizetype size);
    void end();

    QStringList m_names;
    std::deque<const char *> m_rows; // the first cell of each row; the others follow it
    platform::ByteArena m_held;
    QByteArray m_begun; // the row that is being filled
    int m_begunCells = 0;
};

} // namespace database
