#include "marc/preReadStore.h"
#include "platform/codepage936.h"
#include <cstring>

namespace marc {

PreReadStore::PreReadStore() {
    reset();
}

void PreReadStore::reset() {
    m_rows = std::deque<Row>(initialRows);
    m_held = {};
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
    return QString::fromUtf8(at.title, qsizetype(at.titleSize));
}

RawRecord PreReadStore::record(int row) const {
    const Row &at = m_rows.at(size_t(row));
    if (!at.isText)
        return platform::decode(at.record);
    QString text(at.record.size() / qsizetype(sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), at.record.data(), size_t(at.record.size()));
    return text;
}

QByteArrayView PreReadStore::heldBytes(int row) const {
    const Row &at = m_rows.at(size_t(row));
    return at.isText ? QByteArrayView() : at.record;
}

void PreReadStore::setNumber(int row, int number) {
    m_rows.at(size_t(row)).number = number;
}

void PreReadStore::setTitle(int row, const QString &title) {
    const QByteArrayView kept = m_held.keep(title.toUtf8());
    Row &at = m_rows.at(size_t(row));
    at.title = kept.data();
    at.titleSize = quint32(kept.size());
}

void PreReadStore::setRecord(int row, const RawRecord &record, QByteArrayView gbk) {
    Row &at = m_rows.at(size_t(row));
    // Where every byte stood for a character, the bytes give the text back; where some did not, lines that were joined
    // may have been decoded apart, and it has to be tried.
    const bool bytesSuffice =
        !gbk.isEmpty() && (!record.contains(QChar::ReplacementCharacter) || platform::decode(gbk) == record);
    at.isText = !bytesSuffice && !platform::isEncodable(record);
    if (at.isText)
        at.record = m_held.keep(QByteArrayView(reinterpret_cast<const char *>(record.constData()),
                                               record.size() * qsizetype(sizeof(QChar))));
    else
        at.record = m_held.keep(bytesSuffice ? gbk : QByteArrayView(platform::encode(record)));
}

} // namespace marc
