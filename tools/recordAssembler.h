// Puts a leader's codes and ready fields together into the bytes of one ISO 2709 record, as they are given: nothing is
// sorted, dropped or made anew. For sample and benchmark files only; the program's own writer follows other rules.
#pragma once

#include "marc/separators.h"
#include <QByteArray>
#include <QByteArrayView>

namespace tools {

inline constexpr char recordTerminator = marc::recordTerminator;
inline constexpr char fieldTerminator = marc::fieldTerminator;
inline constexpr char subfieldDelimiter = marc::subfieldDelimiter;

class RecordAssembler {
public:
    // `codes`: leader positions 5 to 9 and 17 to 19, eight characters.
    void begin(QByteArrayView codes);
    // `content`: the field's bytes without its terminator, indicators included.
    void add(QByteArrayView tag, QByteArrayView content);

    // The same in pieces, for those who have no content at hand: open a field, append to data(), close it.
    void openField(QByteArrayView tag);
    QByteArray &data() { return m_data; }
    void closeField();

    // The whole record, terminator included. Valid until the next begin(). A number too wide for its place is all
    // nines.
    const QByteArray &finish();

private:
    QByteArray m_codes;
    QByteArray m_directory;
    QByteArray m_data;
    QByteArray m_record;
    qsizetype m_fieldStart = 0;
};

// Appends the number with zeros in front; all nines where it needs more than `width` digits.
void appendNumber(QByteArray &bytes, qsizetype number, int width);

} // namespace tools
