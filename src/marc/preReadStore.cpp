#include "marc/preReadStore.h"
#include "platform/codepage936.h"

namespace marc {

PreReadStore::PreReadStore() {
    reset();
}

void PreReadStore::reset() {
    m_rows = std::vector<Row>(initialRows);
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
    return QString::fromUtf8(m_rows.at(size_t(row)).titleUtf8);
}

RawRecord PreReadStore::record(int row) const {
    const auto &record = m_rows.at(size_t(row)).record;
    if (const auto *bytes = std::get_if<QByteArray>(&record))
        return platform::decode(*bytes);
    return std::get<QString>(record);
}

QByteArrayView PreReadStore::heldBytes(int row) const {
    const auto *bytes = std::get_if<QByteArray>(&m_rows.at(size_t(row)).record);
    return bytes ? QByteArrayView(*bytes) : QByteArrayView();
}

void PreReadStore::setNumber(int row, int number) {
    m_rows.at(size_t(row)).number = number;
}

void PreReadStore::setTitle(int row, const QString &title) {
    m_rows.at(size_t(row)).titleUtf8 = title.toUtf8();
}

void PreReadStore::setRecord(int row, const RawRecord &record, QByteArrayView gbk) {
    auto &target = m_rows.at(size_t(row)).record;
    // Where every byte stood for a character, the bytes give the text back; where some did not, lines that were joined
    // may have been decoded apart, and it has to be tried.
    const bool bytesSuffice =
        !gbk.isEmpty() && (!record.contains(QChar::ReplacementCharacter) || platform::decode(gbk) == record);
    if (bytesSuffice)
        target = gbk.toByteArray();
    else if (platform::isEncodable(record))
        target = platform::encode(record);
    else
        target = record;
}

} // namespace marc
