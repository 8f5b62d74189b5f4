// Reads records from MARCXML and MarcXchange, which differ in namespace and in the attributes of a record. Embedded
// fields of MarcXchange are converted to their exchange format. If the XML is broken, the records before the error are
// valid and the error is reported with its line and column. Memory use: a block and the current record.
#pragma once

#include "marc/marcXmlRecord.h"
#include "platform/byteFile.h"
#include "platform/textDecoder.h"
#include "tidy/tidySource.h"
#include <memory>

namespace tidy {

class MarcXmlSource final : public TidySource {
public:
    static platform::Result<std::unique_ptr<TidySource>> open(const QString &path);

    platform::Result<Found> next() override;
    marc::FieldedRecord &record() override { return m_record; }
    QByteArrayView raw() const override { return m_elements.asItStood(); }
    QString why() const override { return m_elements.why(); }
    qint64 damagedBytes() const override { return m_damaged; }
    qint64 position() const override { return m_reader.position(); }
    qint64 passedOver() const override { return m_elements.passedOver(); }
    std::optional<QString> broken() const override { return m_broken; }

private:
    explicit MarcXmlSource(platform::ByteReader reader);
    platform::Result<Found> feed();
    platform::Status begin(QByteArrayView start);
    QByteArrayView inUtf8(QByteArrayView bytes, bool atEnd); // valid until the next block
    Found found(platform::XmlParser::State state);

    platform::ByteReader m_reader;
    std::optional<platform::TextDecoder> m_decoder;
    marc::MarcXmlRecord m_elements;
    platform::XmlParser m_xml;
    QByteArray m_block;
    QByteArray m_cut; // the start of a character that continues in the next block
    QByteArray m_decoded;
    bool m_begun = false;
    bool m_isUtf8 = true;
    bool m_paused = false; // at the end of a record
    marc::FieldedRecord m_record;
    qint64 m_damaged = 0;
    std::optional<QString> m_broken;
};

} // namespace tidy
