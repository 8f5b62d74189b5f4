#include "catalogue/storeRecords.h"
#include "catalogue/listStatements.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"
#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace catalogue {

namespace {

constexpr int namedAtMost = 10; // applies to characters and to records
constexpr char recordTerminator = marc::recordTerminator;
constexpr char fieldTerminator = marc::fieldTerminator;

QString named(char32_t character) {
    const QString code = QString::number(character, 16).toUpper().rightJustified(4, u'0');
    return QString::fromUcs4(&character, 1) + u"（U+" + code + u'）';
}

QString listed(const QStringList &names, qsizetype count, QStringView separator) {
    return names.join(separator) + (count > names.size() ? u" 等"_s : QString());
}

} // namespace

platform::Result<QMap<qint64, QString>> recordsOf(const QList<qint64> &keys, const database::SessionState &state) {
    auto connection = database::Connection::open(state.links, state.connectionString);
    if (!connection)
        return connection.failure();
    const auto rows = connection.value().query(recordsStatement(keysCondition(keys)));
    if (!rows)
        return rows.failure();
    QMap<qint64, QString> records;
    for (int row = 0; row < rows.value()->rowCount(); ++row) {
        if (const QString record = rows.value()->text(row, 1); !record.isEmpty())
            records.insert(rows.value()->text(row, 0).toLongLong(), record);
    }
    return records;
}

QByteArray recordBytes(const QString &record) {
    QByteArray bytes = platform::encode(record);
    while (bytes.endsWith('\r') || bytes.endsWith('\n'))
        bytes.chop(1);
    if (bytes.endsWith(recordTerminator))
        return bytes;
    if (bytes.contains(fieldTerminator) && !bytes.endsWith(fieldTerminator))
        bytes += fieldTerminator;
    return bytes += recordTerminator;
}

void LostCharacters::look(const QString &record, qint64 key) {
    if (platform::isEncodable(record))
        return;
    for (const uint character : record.toUcs4()) {
        const char32_t code = character;
        if (!platform::isEncodable(QString::fromUcs4(&code, 1)))
            ++m_counts[code];
    }
    if (++m_records <= namedAtMost)
        m_keys.append(key);
}

QString LostCharacters::words() const {
    if (m_counts.isEmpty())
        return {};
    QStringList characters;
    for (const auto &[character, count] : m_counts.asKeyValueRange()) {
        if (characters.size() < namedAtMost)
            characters.append(named(character) + u' ' + QString::number(count) + u" 处");
    }
    QStringList keys;
    for (const qint64 key : m_keys)
        keys.append(QString::number(key));
    const int places = std::accumulate(m_counts.begin(), m_counts.end(), 0);
    return u"有 %1 处的字 GBK 里没有，写成了“?”：%2。在控制号 %3 的记录里。"_s.arg(
        QString::number(places), listed(characters, m_counts.size(), u"，"), listed(keys, m_records, u"、"));
}

} // namespace catalogue
