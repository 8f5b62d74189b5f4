// Writes a record in exchange format with a new directory and new lengths.
#pragma once

#include "marc/fieldedRecord.h"
#include "marc/rawRecord.h"
#include <QByteArray>
#include <QStringEncoder>

namespace marc {

enum class IsoEncoding { Gbk, Utf8 };

// Reuses its memory from record to record.
class IsoWriter {
public:
    // Returns an empty text, or the reason why the record does not fit the format; nothing is truncated. Characters
    // without a code in GBK become "?".
    [[nodiscard]] QString make(const FieldedRecord &record, IsoEncoding encoding = IsoEncoding::Gbk);

    // The record written last. Valid until the next one.
    QByteArrayView bytes() const { return QByteArrayView(m_bytes).first(m_size); }
    RawRecord text() const; // only of a record in GBK

private:
    qsizetype put(QStringView content, IsoEncoding encoding); // returns the number of bytes
    void ensureSpace(qsizetype more);

    QByteArray m_bytes;
    qsizetype m_size = 0;
    QStringEncoder m_utf8{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
};

} // namespace marc
