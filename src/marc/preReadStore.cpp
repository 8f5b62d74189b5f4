#include "marc/preReadStore.h"
#include "platform/codepage936.h"
#include <cstring>
#include <limits>
#include <optional>

namespace marc {

namespace {

QString textOf(QByteArrayView held) {
    QString text(held.size() / qsizetype(sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), held.data(), size_t(held.size()));
    return text;
}

// Examines all units without stopping early, which compilers vectorize: every record passes through this function.
bool hasReplacement(QStringView text) {
    quint16 found = 0;
    for (const char16_t *unit = text.utf16(), *end = unit + text.size(); unit != end; ++unit)
        found |= *unit == QChar::ReplacementCharacter;
    return found;
}

// Searches for the first byte, which seldom occurs before the title: directories and codes are ASCII.
std::optional<qsizetype> placeOf(QByteArrayView part, QByteArrayView whole) {
    if (part.isEmpty())
        return 0;
    for (qsizetype at = 0; whole.size() - at >= part.size(); ++at) {
        at = whole.first(whole.size() - part.size() + 1).indexOf(part[0], at);
        if (at < 0)
            return std::nullopt;
        if (std::memcmp(whole.data() + at, part.data(), size_t(part.size())) == 0)
            return at;
    }
    return std::nullopt;
}

} // namespace

PreReadStore::PreReadStore() {
    reset();
}

void PreReadStore::reset() {
    m_rows = std::deque<Row>(initialRows);
    m_titles.clear();
    m_replaced.clear();
    m_held.clear();
}

void PreReadStore::setRows(int count) {
    if (count > rowCount())
        m_rows.resize(size_t(count));
}

QString PreReadStore::text(int row, int column) const {
    switch (column) {
    case 0:
        return number(row);
    case 1:
        return title(row);
    default:
        return record(row);
    }
}

QString PreReadStore::number(int row) const {
    const int number = m_rows.at(size_t(row)).number;
    return number ? QString::number(number) : QString();
}

QString PreReadStore::title(int row) const {
    const Row &at = m_rows.at(size_t(row));
    if (at.titleIsApart)
        return textOf(m_titles[at.titleAt]);
    return platform::decode(bytesOf(at).sliced(at.titleAt, qsizetype(at.titleSize)));
}

RawRecord PreReadStore::recordOf(const Row &row) {
    return row.isText ? textOf(bytesOf(row)) : platform::decode(bytesOf(row));
}

RawRecord PreReadStore::record(int row) const {
    return recordOf(m_rows.at(size_t(row)));
}

std::vector<RawRecord> PreReadStore::recordsSince(int moment, int row) const {
    std::vector<RawRecord> records;
    for (size_t at = size_t(moment); at < m_replaced.size(); ++at)
        if (m_replaced[at].row == row)
            records.push_back(recordOf(m_replaced[at].before));
    records.push_back(record(row));
    return records;
}

QByteArrayView PreReadStore::heldBytes(int row) const {
    const Row &at = m_rows.at(size_t(row));
    return at.isText ? QByteArrayView() : bytesOf(at);
}

QByteArrayView PreReadStore::encodedBytes(int row) const {
    return m_rows.at(size_t(row)).hasReplacement ? QByteArrayView() : heldBytes(row);
}

void PreReadStore::setNumber(int row, int number) {
    m_rows.at(size_t(row)).number = number;
}

QByteArrayView PreReadStore::keepText(QStringView text) {
    return m_held.keep({reinterpret_cast<const char *>(text.utf16()), text.size() * qsizetype(sizeof(QChar))});
}

void PreReadStore::setTitle(int row, const QString &title) {
    Row &at = m_rows.at(size_t(row));
    if (pointIntoRecord(at, title))
        return;
    if (!at.titleIsApart) {
        at.titleIsApart = true;
        at.titleAt = quint32(m_titles.size());
        m_titles.emplace_back();
    }
    m_titles[at.titleAt] = keepText(title);
}

// Points the row at the title's bytes in the record, if they occur there and decode to the title. Any occurrence will
// do, in another field or across two characters.
bool PreReadStore::pointIntoRecord(Row &row, const QString &title) {
    constexpr qsizetype longest = (1 << 22) - 1;
    if (!platform::isEncodable(title))
        return false;
    const QByteArray gbk = platform::encode(title);
    const std::optional<qsizetype> at = placeOf(gbk, bytesOf(row));
    if (!at || *at > std::numeric_limits<quint32>::max() || gbk.size() > longest)
        return false;
    row.titleIsApart = false;
    row.titleAt = quint32(*at);
    row.titleSize = quint64(gbk.size());
    return true;
}

void PreReadStore::setRecord(int row, const RawRecord &record, QByteArrayView gbk) {
    Row &at = m_rows.at(size_t(row));
    if (at.recordSize > 0)
        m_replaced.push_back({row, at});
    const QString title = this->title(row); // read first, since it may be stored in the bytes to be replaced
    // If every byte was part of a character, the bytes decode to the text; if not, joined lines may have been decoded
    // separately, so that decoding must be tried.
    at.hasReplacement = hasReplacement(record);
    const bool bytesSuffice = !gbk.isEmpty() && (!at.hasReplacement || platform::decode(gbk) == record);
    at.isText = !bytesSuffice && !platform::isEncodable(record);
    const QByteArrayView held =
        at.isText ? keepText(record) : m_held.keep(bytesSuffice ? gbk : QByteArrayView(platform::encode(record)));
    at.record = held.data();
    at.recordSize = quint64(held.size());
    if (!title.isEmpty())
        setTitle(row, title);
}

} // namespace marc
