// Writes records in one of the target formats.
#pragma once

#include "marc/isoWriter.h"

namespace tidy {

enum class TargetForm { GbkIso, Utf8Iso, MarcXml };

// Returns whether the form can hold the character. U+FFFD is treated like any other character, although it replaces
// damaged bytes.
bool canHold(TargetForm form, char32_t character);

// Returns the leader for the target: two indicators, subfield identifiers of two characters, and directory entries of
// 3, 4 and 5 digits. In GBK the leader does not state Unicode.
QString leaderFor(TargetForm form, QString leader);

// Writes MARCXML, one record after the other. take() removes and returns the bytes written so far.
class MarcXmlWriter {
public:
    void begin();
    void add(const marc::FieldedRecord &record);
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
