// The layout of ISO 2709: a leader, a directory with one entry per field, the fields, and the characters that end them.
// Lengths and addresses are counted in bytes and written as decimal digits with leading zeros.
#pragma once

#include <QByteArrayView>
#include <QChar>

namespace marc {

inline constexpr char16_t recordTerminator = 0x1D;  // last character of a record
inline constexpr char16_t fieldTerminator = 0x1E;   // ends the directory and every field
inline constexpr char16_t subfieldDelimiter = 0x1F; // starts a subfield; the next character is its code

// The leader. Offsets are counted from 0.
inline constexpr int leaderLength = 24;
inline constexpr int recordLengthWidth = 5;
inline constexpr int baseAddressAt = 12; // the base address is that of the first field
inline constexpr int baseAddressLength = 5;

// An entry of the directory: the tag, the length of the field with its terminator, its start from the base address.
inline constexpr int tagLength = 3;
inline constexpr int fieldLengthWidth = 4;
inline constexpr int fieldStartWidth = 5;
inline constexpr int fieldStartAt = tagLength + fieldLengthWidth; // offset in the entry
inline constexpr int directoryEntryLength = fieldStartAt + fieldStartWidth;

inline constexpr qsizetype longestField = 9'999;   // the highest number of four digits
inline constexpr qsizetype longestRecord = 99'999; // the highest number of five digits

inline constexpr int indicatorCount = 2; // before the first subfield of a data field

// Returns the address of the first field of a record with that number of fields.
constexpr qsizetype baseAddress(qsizetype fields) {
    return leaderLength + fields * directoryEntryLength + 1;
}

// Returns the value of decimal digits; -1 if there are none, or anything else.
constexpr qint64 numberOf(QByteArrayView digits) {
    qint64 value = digits.isEmpty() ? -1 : 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9')
            return -1;
        value = value * 10 + (digit - '0');
    }
    return value;
}

// Writes a number that has at most `width` digits.
constexpr void putNumber(char *at, int width, qsizetype number) {
    quint32 left = quint32(number);
    for (int i = width - 1; i >= 0; --i, left /= 10)
        at[i] = char('0' + left % 10);
}

} // namespace marc
