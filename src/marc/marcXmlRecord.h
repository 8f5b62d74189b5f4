// Builds records one after the other from the elements of MARCXML and MarcXchange. A record that would lose text, for
// example by a misspelled element or a subfield without a code, is unusable. <record> elements of other formats are
// skipped.
#pragma once

#include "marc/fieldedRecord.h"
#include "platform/xmlParser.h"
#include <functional>
#include <vector>

namespace marc {

class MarcXmlRecord final : public platform::XmlHandler {
public:
    static constexpr qsizetype longest = 8 << 20; // maximum number of bytes kept of a record

    // `ended` is called at the end of each record. The results below are valid only then.
    explicit MarcXmlRecord(std::function<void()> ended)
        : m_ended(std::move(ended)) {}

    void startElement(const platform::XmlElement &element) override;
    void endElement(QByteArrayView name) override;
    void text(QByteArrayView text) override;

    void toFields(FieldedRecord &record) const;    // replaces the contents of `record`
    QByteArrayView data() const { return m_data; } // the fields, in UTF-8
    const QString &why() const { return m_why; }   // why the record cannot be used; else empty
    QByteArrayView asItStood() const { return m_echo; }
    qint64 passedOver() const { return m_passedOver; }

private:
    enum class Part { Record, Leader, ControlField, DataField, Subfield, Other };
    struct Open {
        Part part;
        qsizetype start = 0;      // start of its text in the data
        bool hasCode = true;      // whether the subfield has a code
        bool holdsFields = false; // whether the subfield contains embedded fields
        bool isEchoed = true;
    };

    static Part partOf(QByteArrayView name);
    static bool mayHold(Part outer, Part inner);
    void begin(const platform::XmlElement &element);
    void startField(const platform::XmlElement &element, Part part);
    void addIndicator(QByteArrayView value);
    void startSubfield(const platform::XmlElement &element);
    void endPart(const Open &ended);
    void endRecord();
    bool keepEcho(qsizetype before);
    bool hasMarc() const { return !m_leader.isEmpty() || !m_tags.isEmpty(); }
    void spoil(const QString &why);

    std::function<void()> m_ended;
    std::vector<Open> m_open; // elements from the record inwards; empty outside records
    int m_fieldDepth = 0;     // 2 or more: in an embedded field
    bool m_atFirstSubfield = false;
    bool m_saysMarc = false; // according to its namespace
    QByteArray m_leader;
    QByteArray m_tags;
    QByteArray m_data;
    QByteArray m_echo;
    QString m_why;
    qint64 m_passedOver = 0;
};

} // namespace marc
