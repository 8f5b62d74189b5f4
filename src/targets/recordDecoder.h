// Decodes the answers of servers to records. An answer is untrusted input and may be anything.
#pragma once

#include "marc/fieldedRecord.h"
#include "marc/isoFields.h"
#include "platform/textDecoder.h"
#include "targets/target.h"
#include <optional>

namespace targets {

class RecordDecoder {
public:
    static constexpr qsizetype longestAnswer = 1 << 20; // bytes

    explicit RecordDecoder(RecordCharset charset)
        : m_charset(charset) {}

    struct Decoded {
        marc::FieldedRecord record;
        qint64 damaged = 0;            // byte sequences that are invalid in the charset, replaced by U+FFFD
        bool directoryDamaged = false; // fields found by their terminators
    };

    // Decodes one record, in exchange format or in XML (MARCXML, MarcXchange), regardless of what the server declares;
    // XML in UTF-8 or GB18030. Marks of non-sorting words are removed, and line breaks become blanks. Fails with the
    // reason if it is not a record.
    platform::Result<Decoded> decode(QByteArrayView answer);

private:
    platform::Result<Decoded> decodeIso(QByteArrayView answer);
    platform::Result<Decoded> decodeXml(QByteArrayView answer);
    platform::Charset charsetOf(QByteArrayView record) const;
    QString textOf(QByteArrayView bytes, platform::Charset charset, qint64 &damaged);

    RecordCharset m_charset;
    marc::IsoFields m_fields;
};

} // namespace targets
