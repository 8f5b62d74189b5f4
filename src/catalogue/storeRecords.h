// Reads records of the store by their keys and converts them for a file in code page 936.
#pragma once

#include "database/sublib.h"
#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

namespace catalogue {

// Returns the records with these keys. A row that does not exist or has no record is not in the result.
platform::Result<QMap<qint64, QString>> recordsOf(const QList<qint64> &keys, const database::SessionState &state);

// Returns the record as bytes for a file, including its terminator. Records stored by other programs may lack the
// terminator or have a line end after it; without the correction the next record would be read as part of this one.
QByteArray recordBytes(const QString &record);

// Counts the characters that a file in code page 936 cannot contain and that become "?".
class LostCharacters {
public:
    // Counts those of a record; `key` is that of its row.
    void look(const QString &record, qint64 key);
    // Returns how many there are, which characters, and in which records; empty if there are none.
    QString words() const;

private:
    QMap<char32_t, int> m_counts;
    QList<qint64> m_keys; // of the first records with such characters
    int m_records = 0;
};

} // namespace catalogue
