// Reads records in exchange format, in any supported encoding, with any line ends or none. Memory use: a block of twice
// `longest`, and the current record.
#pragma once

#include "marc/isoFields.h"
#include "platform/byteFile.h"
#include "platform/textDecoder.h"
#include "tidy/tidySource.h"
#include <memory>

namespace tidy {

class IsoSource final : public TidySource {
public:
    // No record that fits the format is longer in any encoding.
    static constexpr qsizetype longest = 1 << 20;

    static platform::Result<std::unique_ptr<TidySource>> open(const QString &path, platform::Charset charset);

    platform::Result<Found> next() override;
    marc::FieldedRecord &record() override { return m_record; }
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
    qsizetype terminatorEnd() const; // position after the first terminator in the block; below 0: none
    Found takeRecord(qsizetype size);
    Found takeTail();
    Found unreadable(const QString &why);
    void decode();

    platform::ByteReader m_reader;
    platform::TextDecoder m_decoder;
    bool m_littleEndian = true;
    int m_unit = 1; // bytes per code unit
    QByteArray m_block;
    qsizetype m_at = 0; // position of the next byte in the block
    qsizetype m_filled = 0;
    bool m_atEnd = false;
    bool m_begun = false;
    bool m_inLongRecord = false;
    marc::IsoFields m_fields;
    QByteArray m_narrow; // a record with two bytes per character, converted to UTF-8
    marc::FieldedRecord m_record;
    QByteArrayView m_raw;
    QString m_why;
};

} // namespace tidy
