#include "database/rowReader.h"
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace database {

namespace {

constexpr SQLULEN longest = 1000;         // the largest size, in characters, of a bound column
constexpr size_t mostBytes = 4;           // per character, in UTF-8 and in UTF-16
constexpr size_t blockBytes = 256 * 1024; // for all bound columns together
constexpr size_t mostRows = 256;
constexpr int singleRows = 4; // rows fetched one by one first: allocating a block costs more than one row

struct Column {
    size_t width = 0;        // bytes of a value's buffer, including the closing NUL; 0: not bound
    char *texts = nullptr;   // rows of a block x width
    SQLLEN *sizes = nullptr; // in bytes, or SQL_NULL_DATA
};

// Returns the bytes that a value of the type may take; 0 if it is long or unknown.
size_t widthOf(SQLSMALLINT type, SQLULEN size) {
    switch (type) {
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
        return size == 0 || size > longest ? 0 : mostBytes * size + sizeof(char16_t);
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return 0;
    default:
        return 128; // numbers, dates and times
    }
}

class Reader {
public:
    Reader(const OdbcHandle &statement, TextForm form, Fetching fetching)
        : m_statement(statement)
        , m_form(form)
        , m_fetching(fetching) {}
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;
    ~Reader() {
        SQLFreeStmt(m_statement.get(), SQL_UNBIND);
        if (!m_inBlocks)
            return;
        setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), SQL_IS_UINTEGER);
        setAttribute(SQL_ATTR_ROWS_FETCHED_PTR, nullptr, SQL_IS_POINTER);
    }

    platform::Result<ReadTable> read() {
        if (!describe())
            return m_statement.failure(m_form);
        if (m_columns.empty()) // a statement that returns no rows
            return m_table;
        findBound();
        bind(1);
        for (;;) {
            if (!m_inBlocks && m_table->rowCount() == singleRows)
                bindBlock();
            const SQLRETURN fetched = SQLFetch(m_statement.get());
            if (fetched == SQL_NO_DATA)
                return m_table;
            if (!SQL_SUCCEEDED(fetched))
                return m_statement.failure(m_form);
            for (size_t row = 0; row < m_fetchedRows; ++row)
                if (!takeRow(row))
                    return m_tooLong ? platform::Result<ReadTable>(nullptr) : m_statement.failure(m_form);
        }
    }

private:
    bool describe() {
        SQLSMALLINT count = 0;
        if (!SQL_SUCCEEDED(SQLNumResultCols(m_statement.get(), &count)))
            return false;
        QStringList names;
        for (SQLSMALLINT number = 1; number <= count; ++number) {
            ColumnFacts facts;
            if (!odbcDescribe(m_statement.get(), SQLUSMALLINT(number), m_form, facts))
                return false;
            names.append(facts.name);
            Column column;
            column.width = m_fetching == Fetching::Bound ? widthOf(facts.type, facts.size) : 0;
            m_columns.push_back(std::move(column));
        }
        m_table = std::make_shared<ResultTable>(std::move(names));
        return true;
    }

    // Drivers return a value by SQLGetData() only after the last bound column, so no column is bound from the first
    // long one on.
    void findBound() {
        const auto firstLong = std::ranges::find(m_columns, size_t(0), &Column::width);
        m_bound = size_t(firstLong - m_columns.begin());
        for (size_t i = 0; i < m_bound; ++i)
            m_rowBytes += m_columns[i].width;
    }

    // Binds buffers for that many rows.
    void bind(size_t rows) {
        m_texts = std::make_unique_for_overwrite<char[]>(rows * m_rowBytes);
        m_sizes.resize(rows * m_bound);
        char *texts = m_texts.get();
        for (size_t i = 0; i < m_bound; ++i) {
            Column &column = m_columns[i];
            column.texts = texts;
            column.sizes = m_sizes.data() + i * rows;
            texts += rows * column.width;
            SQLBindCol(m_statement.get(), SQLUSMALLINT(i + 1), valueType(), column.texts, SQLLEN(column.width),
                       column.sizes);
        }
    }

    // Makes later fetches return many rows at once, if all columns are bound and the driver supports it.
    void bindBlock() {
        m_inBlocks = true;
        const size_t rowBytes = m_rowBytes + m_bound * sizeof(SQLLEN);
        const size_t rows = m_bound == m_columns.size() ? std::clamp<size_t>(blockBytes / rowBytes, 1, mostRows) : 1;
        if (rows == 1)
            return;
        if (setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows), SQL_IS_UINTEGER) != SQL_SUCCESS) {
            setAttribute(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), SQL_IS_UINTEGER);
            return;
        }
        setAttribute(SQL_ATTR_ROWS_FETCHED_PTR, &m_fetchedRows, SQL_IS_POINTER);
        bind(rows);
    }

    SQLRETURN setAttribute(SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER kind) const {
        return SQLSetStmtAttrW(m_statement.get(), attribute, value, kind);
    }

    bool takeRow(size_t row) {
        for (size_t i = 0; i < m_columns.size(); ++i)
            if (!(i < m_bound ? takeBound(m_columns[i], row) : takeLong(SQLUSMALLINT(i + 1))))
                return false;
        return true;
    }

    bool takeBound(const Column &column, size_t row) {
        const SQLLEN size = column.sizes[row];
        if (size == SQL_NULL_DATA) {
            m_table->appendNull();
            return true;
        }
        m_tooLong = size < 0 || size_t(size) > column.width - closing();
        if (!m_tooLong)
            append(column.texts + row * column.width, size);
        return !m_tooLong;
    }

    // Fetches a value in pieces: each call fills the buffer except for its closing NUL, until one call returns the
    // rest.
    bool takeLong(SQLUSMALLINT number) {
        constexpr size_t room = 32 * 1024;
        m_piece.resize(room);
        m_long.clear();
        for (bool more = true; more;) {
            SQLLEN size = 0;
            const SQLRETURN got =
                SQLGetData(m_statement.get(), number, valueType(), m_piece.data(), SQLLEN(room), &size);
            if (got == SQL_NO_DATA)
                break;
            if (!SQL_SUCCEEDED(got))
                return false;
            if (size == SQL_NULL_DATA) {
                m_table->appendNull();
                return true;
            }
            more = size < 0 || size_t(size) > room - closing();
            m_long.append(m_piece.data(), more ? room - closing() : size_t(size));
        }
        append(m_long.data(), qsizetype(m_long.size()));
        return true;
    }

    // Appends a complete value.
    void append(const char *bytes, qsizetype size) {
        if (m_form == TextForm::Wide)
            m_table->append(QStringView(reinterpret_cast<const char16_t *>(bytes), size / qsizetype(sizeof(char16_t))));
        else
            m_table->appendUtf8({bytes, size});
    }

    SQLSMALLINT valueType() const { return m_form == TextForm::Wide ? SQL_C_WCHAR : SQL_C_CHAR; }
    size_t closing() const { return m_form == TextForm::Wide ? sizeof(char16_t) : sizeof(char); }

    const OdbcHandle &m_statement;
    TextForm m_form;
    Fetching m_fetching;
    std::vector<Column> m_columns;
    size_t m_bound = 0;
    size_t m_rowBytes = 0; // bytes of the bound columns' texts
    std::unique_ptr<char[]> m_texts;
    std::vector<SQLLEN> m_sizes;
    bool m_inBlocks = false;
    SQLULEN m_fetchedRows = 1;
    bool m_tooLong = false;
    std::vector<char> m_piece;
    std::string m_long;
    std::shared_ptr<ResultTable> m_table;
};

} // namespace

platform::Result<ReadTable> readRows(const OdbcHandle &statement, TextForm form, Fetching fetching) {
    return Reader(statement, form, fetching).read();
}

} // namespace database
