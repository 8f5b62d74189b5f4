// Assembles one ISO 2709 record from a leader's codes and encoded fields. Fields are written as given: none is sorted,
// dropped or changed. Only for sample and benchmark files; the program's own writer follows other rules.
#pragma once

#include "marc/isoLayout.h"
#include <QByteArray>
#include <QByteArrayView>

namespace tools {

inline constexpr char recordTerminator = marc::recordTerminator;
inline constexpr char fieldTerminator = marc::fieldTerminator;
inline constexpr char subfieldDelimiter = marc::subfieldDelimiter;

class RecordAssembler {
public:
    // `codes`: leader positions 5 to 9 and 17 to 19, eight bytes.
    void begin(QByteArrayView codes);
    // `content`: the field's bytes, including the indicators, without the field terminator.
    void add(QByteArrayView tag, QByteArrayView content);

    // Writes a field piece by piece: open the field, append to data(), close the field.
    void openField(QByteArrayView tag);
    QByteArray &data() { return m_data; }
    void closeField();

    // Returns the whole record, including its terminator. Valid until the next begin(). A number that does not fit its
    // width is written as nines.
    const QByteArray &finish();

private:
    QByteArray m_codes;
    QByteArray m_directory;
    QByteArray m_data;
    QByteArray m_record;
    qsizetype m_fieldStart = 0;
};

// Appends the number, zero-padded to `width` digits, or `width` nines if the number needs more digits.
void appendNumber(QByteArray &bytes, qsizetype number, int width);

} // namespace tools
