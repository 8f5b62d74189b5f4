#include "tools/recordAssembler.h"

namespace tools {

void appendNumber(QByteArray &bytes, qsizetype number, int width) {
    const qsizetype at = bytes.size();
    bytes.append(width, '9');
    for (int i = width - 1; i >= 0; --i, number /= 10)
        bytes[at + i] = char('0' + number % 10);
    if (number > 0)
        bytes.replace(at, width, QByteArray(width, '9'));
}

void RecordAssembler::begin(QByteArrayView codes) {
    Q_ASSERT(codes.size() == 8);
    m_codes = codes.toByteArray();
    m_directory.resize(0);
    m_data.resize(0);
}

void RecordAssembler::add(QByteArrayView tag, QByteArrayView content) {
    openField(tag);
    m_data.append(content);
    closeField();
}

void RecordAssembler::openField(QByteArrayView tag) {
    Q_ASSERT(tag.size() == 3);
    m_directory.append(tag);
    m_fieldStart = m_data.size();
}

void RecordAssembler::closeField() {
    m_data.append(fieldTerminator);
    appendNumber(m_directory, m_data.size() - m_fieldStart, marc::fieldLengthWidth);
    appendNumber(m_directory, m_fieldStart, marc::fieldStartWidth);
}

const QByteArray &RecordAssembler::finish() {
    const qsizetype base = marc::leaderLength + m_directory.size() + 1;
    m_record.resize(0);
    appendNumber(m_record, base + m_data.size() + 1, 5);
    m_record.append(QByteArrayView(m_codes).first(5)).append("22");
    appendNumber(m_record, base, 5);
    m_record.append(QByteArrayView(m_codes).last(3)).append("450 ");
    m_record.append(m_directory).append(fieldTerminator).append(m_data).append(recordTerminator);
    return m_record;
}

} // namespace tools
