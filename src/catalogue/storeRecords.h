// Records out of the store: found by their keys, and made ready for a file in code page 936.
#pragma once

#include "database/sublib.h"
#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

namespace catalogue {

// The records of the rows of these keys. A row that is not there, or holds no record, is missing in the result.
platform::Result<QMap<qint64, QString>> recordsOf(const QList<qint64> &keys, const database::SessionState &state);

// The bytes of a record in a file, its terminator included. What others wrote into the store may lack the terminator,
// or have a line end after it: the next record would then be taken for a part of this one.
QByteArray recordBytes(const QString &record);

// The characters that a file in code page 936 cannot hold, which become "?".
class LostCharacters {
public:
    void look(const QString &record, qint64 key);
    // How many there are, which, and in which records; empty for none.
    QString words() const;

private:
    QMap<char32_t, int> m_counts;
    QList<qint64> m_keys; // of the first records that lose one
    int m_records = 0;
};

} // namespace catalogue
