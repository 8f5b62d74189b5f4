// Writes records in one of the target formats.
#pragma once

#include "marc/isoWriter.h"
#include "marc/recordForm.h"

namespace tidy {

using marc::canHold;
using marc::leaderFor;
using marc::TargetForm;

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
