// Records on their way out, in one of the forms that files have.
#pragma once

#include "tidy/tidyRecord.h"

namespace tidy {

enum class TargetForm { GbkIso, Utf8Iso, MarcXml };

// Whether the form can hold the character. U+FFFD stands for bytes that were none and is another matter.
bool canHold(TargetForm form, char32_t character);

// The leader as the layout of the targets has it: two indicators, codes of two characters, entries of 3, 4 and 5
// digits. In GBK it does not say that the record is in Unicode.
QByteArray leaderFor(TargetForm form, QByteArray leader);

// One record in the exchange layout, directory and lengths made anew. `data` are the record's fields, encoded.
class IsoRecordBytes {
public:
    // Empty, or why the layout has no room for the record.
    QString make(const TidyRecord &record, QByteArrayView data);
    QByteArrayView bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

// MARCXML, one record after the other; the bytes are taken away as they gather.
class MarcXmlWriter {
public:
    void begin();
    void add(const TidyRecord &record);
    void addAsItStood(QByteArrayView element) { m_xml.append(element).append('\n'); }
    void end();
    QByteArray take();

private:
    void addField(QByteArrayView tag, QByteArrayView field);
    void addSubfield(QByteArrayView code, QByteArrayView text);
    void addAttribute(QByteArrayView name, QByteArrayView value);
    QByteArray m_xml;
};

} // namespace tidy
