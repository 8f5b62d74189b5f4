#include "database/resultTable.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace database {

namespace {

constexpr int sizeBits = 6;
constexpr qsizetype longSize = (1 << sizeBits) - 1; // this and larger sizes take four more bytes

// Combines all characters without branches, which compilers vectorize; most cells are short, so stopping early gains
// nothing.
template <class Text>
bool allBelow(const Text &text, quint32 limit) {
    quint32 bits = 0;
    for (const auto character : text)
        bits |= quint32(std::make_unsigned_t<decltype(character)>(character));
    return bits < limit; // `limit` is a power of two
}

} // namespace

ResultTable::ResultTable(QStringList columnNames)
    : m_names(std::move(columnNames)) {}

ResultTable::Cell ResultTable::cellAt(const char *at) {
    const auto head = uchar(*at++);
    Cell cell{Form(head >> sizeBits), head & longSize, at};
    if (cell.size == longSize) {
        quint32 size = 0;
        std::memcpy(&size, at, sizeof(size));
        cell.size = qsizetype(size);
        cell.text += sizeof(size);
    }
    return cell;
}

ResultTable::Cell ResultTable::cell(int row, int column) const {
    Q_ASSERT(row >= 0 && row < rowCount() && column >= 0 && column < columnCount());
    Cell found = cellAt(m_rows[size_t(row)]);
    for (int before = 0; before < column; ++before)
        found = cellAt(found.end());
    return found;
}

QString ResultTable::text(int row, int column) const {
    const Cell found = cell(row, column);
    if (found.size == 0)
        return {};
    if (found.form == Form::Latin1)
        return QString::fromLatin1(found.text, found.size);
    QString text(found.size, Qt::Uninitialized);
    std::memcpy(text.data(), found.text, size_t(found.bytes()));
    return text;
}

std::optional<int> ResultTable::column(QStringView name) const {
    for (int column = 0; column < columnCount(); ++column)
        if (m_names.at(column).size() == name.size() && m_names.at(column).compare(name, Qt::CaseInsensitive) == 0)
            return column;
    return std::nullopt;
}

bool ResultTable::isNull(int row, int column) const {
    return cell(row, column).form == Form::Null;
}

void ResultTable::append(QStringView text) {
    if (allBelow(std::u16string_view(text.utf16(), size_t(text.size())), 0x100)) {
        begin(Form::Latin1, text.size());
        const qsizetype before = m_begun.size();
        m_begun.resize(before + text.size());
        std::ranges::transform(text, m_begun.begin() + before, [](QChar character) { return character.toLatin1(); });
    } else {
        begin(Form::Utf16, text.size());
        m_begun.append(reinterpret_cast<const char *>(text.utf16()), text.size() * qsizetype(sizeof(QChar)));
    }
    end();
}

void ResultTable::appendUtf8(QByteArrayView text) {
    if (!allBelow(text, 0x80))
        return append(QString::fromUtf8(text));
    begin(Form::Latin1, text.size());
    m_begun.append(text);
    end();
}

void ResultTable::appendNull() {
    begin(Form::Null, 0);
    end();
}

void ResultTable::begin(Form form, qsizetype size) {
    m_begun.append(char(uint(form) << sizeBits | uint(std::min(size, longSize))));
    if (size < longSize)
        return;
    const auto whole = quint32(size); // no server returns a larger value
    m_begun.append(reinterpret_cast<const char *>(&whole), sizeof(whole));
}

void ResultTable::end() {
    if (++m_begunCells < columnCount())
        return;
    m_rows.push_back(m_held.keep(m_begun).data());
    m_begun.resize(0); // keeps the capacity
    m_begunCells = 0;
}

} // namespace database
