// Records in the exchange layout, in any of the encodings, with any line ends or none. Memory: a block and the record
// in hand, which is no longer than `longest`.
#pragma once

#include "platform/byteFile.h"
#include "platform/textDecoder.h"
#include "tidy/isoFields.h"
#include "tidy/tidySource.h"
#include <memory>

namespace tidy {

class IsoSource final : public TidySource {
public:
    // No record that fits into the layout is longer in any encoding.
    static constexpr qsizetype longest = 1 << 20;

    static platform::Result<std::unique_ptr<TidySource>> open(const QString &path, platform::Charset charset);

    platform::Result<Found> next() override;
    const TidyRecord &record() const override { return m_record; }
    QByteArrayView raw() const override { return m_raw; }
    QString why() const override { return m_why; }
    bool directoryDamaged() const override { return m_fields.directoryDamaged(); }
    qint64 damagedBytes() const override { return m_decoder.damaged(); }
    qint64 position() const override { return m_reader.position() - (m_filled - m_at); }

private:
    IsoSource(platform::ByteReader reader, platform::TextDecoder decoder, platform::Charset charset);

    bool isWide() const { return m_unit == 2; }
    char32_t unitAt(qsizetype at) const;
    platform::Status fill();
    void passMark();
    void passBreaks();
    qsizetype terminatorEnd() const; // behind the first one; below 0 where there is none in the block
    Found takeRecord(qsizetype size);
    Found takeTail();
    Found unreadable(const QString &why);
    void decode(QByteArrayView data, qsizetype fields);

    platform::ByteReader m_reader;
    platform::TextDecoder m_decoder;
    bool m_littleEndian = true;
    int m_unit = 1; // bytes
    QByteArray m_block;
    qsizetype m_at = 0; // next byte in the block
    qsizetype m_filled = 0;
    bool m_atEnd = false;
    bool m_begun = false;
    bool m_inLongRecord = false;
    IsoFields m_fields;
    QByteArray m_narrow; // a record of two bytes a character as UTF-8
    TidyRecord m_record;
    QByteArrayView m_raw;
    QString m_why;
};

} // namespace tidy
