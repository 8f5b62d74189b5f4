// Records out of MARCXML and MarcXchange, which differ in their namespace and in what stands in a record's attributes;
// embedded fields of the latter come out as they stand in the exchange layout. What is read ahead of a break in the XML
// counts, and the break is told with its line and column. Memory: a block and the record in hand.
#pragma once

#include "filetools/tidySource.h"
#include "platform/byteFile.h"
#include "platform/textDecoder.h"
#include <QXmlStreamReader>
#include <memory>

namespace filetools {

class MarcXmlSource final : public TidySource {
public:
    static constexpr qsizetype longest = 4 << 20; // characters of a record that are held

    static platform::Result<std::unique_ptr<TidySource>> open(const QString &path);

    platform::Result<Found> next() override;
    const TidyRecord &record() const override { return m_record; }
    QByteArrayView raw() const override { return {}; }
    QString why() const override { return m_why; }
    qint64 damagedBytes() const override { return m_damaged; }
    qint64 position() const override { return m_reader.position(); }
    std::optional<QString> broken() const override { return m_broken; }

private:
    enum class Text { None, Leader, Content }; // where characters go

    explicit MarcXmlSource(platform::ByteReader reader);
    platform::Result<Found> feed();
    platform::Status begin(QByteArrayView start);
    Found breakOff(const QString &why);
    void startElement();
    void startField(bool withIndicators);
    void endField();
    bool endElement(); // whether that was a record's end
    void takeText();
    void spoil(const QString &why);

    platform::ByteReader m_reader;
    // The parser takes no damaged bytes and knows few encodings; what is none of those here is left to it.
    std::optional<platform::TextDecoder> m_decoder;
    QXmlStreamReader m_xml;
    QByteArray m_block;
    bool m_begun = false;
    qsizetype m_fedForToken = 0;
    bool m_inRecord = false;
    int m_fieldDepth = 0; // 2 and more: embedded
    bool m_atFirstSubfield = false;
    Text m_text = Text::None;
    QString m_leader;
    TidyRecord m_record;
    qint64 m_damaged = 0;
    QString m_why;
    std::optional<QString> m_broken;
};

} // namespace filetools
