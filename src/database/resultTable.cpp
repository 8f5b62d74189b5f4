#include "database/resultTable.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace database {

namespace {

// Every character at once: that is a few instructions for sixteen of them, and most cells are short.
template <class Text>
bool allBelow(const Text &text, quint32 limit) {
    quint32 bits = 0;
    for (const auto character : text)
        bits |= quint32(std::make_unsigned_t<decltype(character)>(character));
    return bits < limit; // a power of two
}

} // namespace

ResultTable::ResultTable(QStringList columnNames)
    : m_names(std::move(columnNames)) {}

std::size_t ResultTable::indexOf(int row, int column) const {
    Q_ASSERT(row >= 0 && row < rowCount() && column >= 0 && column < columnCount());
    return std::size_t(row) * std::size_t(m_names.size()) + std::size_t(column);
}

QString ResultTable::text(int row, int column) const {
    const std::size_t index = indexOf(row, column);
    const char *from = m_rows[std::size_t(row)];
    for (std::size_t before = index - std::size_t(column); before < index; ++before)
        from += m_cells[before].bytes();
    const Cell cell = m_cells[index];
    if (cell.size == 0)
        return {};
    if (cell.form == Form::Latin1)
        return QString::fromLatin1(from, cell.bytes());
    QString text(qsizetype(cell.size), Qt::Uninitialized);
    std::memcpy(text.data(), from, std::size_t(cell.bytes()));
    return text;
}

std::optional<int> ResultTable::column(QStringView name) const {
    for (int column = 0; column < columnCount(); ++column)
        if (m_names.at(column).size() == name.size() && m_names.at(column).compare(name, Qt::CaseInsensitive) == 0)
            return column;
    return std::nullopt;
}

bool ResultTable::isNull(int row, int column) const {
    return m_cells[indexOf(row, column)].form == Form::Null;
}

void ResultTable::append(QStringView text) {
    if (allBelow(std::u16string_view(text.utf16(), std::size_t(text.size())), 0x100)) {
        const qsizetype before = m_begun.size();
        m_begun.resize(before + text.size());
        std::ranges::transform(text, m_begun.begin() + before, [](QChar character) { return character.toLatin1(); });
        endCell(Form::Latin1, text.size());
        return;
    }
    m_begun.append(reinterpret_cast<const char *>(text.utf16()), text.size() * qsizetype(sizeof(QChar)));
    endCell(Form::Utf16, text.size());
}

void ResultTable::appendUtf8(QByteArrayView text) {
    if (!allBelow(text, 0x80))
        return append(QString::fromUtf8(text));
    m_begun.append(text);
    endCell(Form::Latin1, text.size());
}

void ResultTable::appendNull() {
    endCell(Form::Null, 0);
}

void ResultTable::endCell(Form form, qsizetype size) {
    Cell &cell = m_cells.emplace_back();
    cell.size = quint32(size);
    cell.form = form;
    if (m_cells.size() % std::size_t(m_names.size()) != 0)
        return;
    m_rows.push_back(m_held.keep(m_begun).data());
    m_begun.resize(0); // keeps its room
}

} // namespace database
