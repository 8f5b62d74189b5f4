// Code page 936 (GBK), both ways. 0x80 is the euro sign, 0xFF is U+F8F5; any other byte that starts no valid pair
// becomes one U+FFFD, and decoding continues with the next byte; the user-defined areas map to the private use area. A
// character without a code becomes "?", one per UTF-16 unit. All 23,940 two-byte codes survive decoding and encoding.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace platform {

// Fails if the ICU library lacks the tables of the code page; without them every Chinese character would be lost. Must
// be called before any other function of this header.
Status codePageReady(const char *converter = "windows-936");

QString decode(QByteArrayView bytes);
QByteArray encode(QStringView text);
// Writes encode(text) to `out`, which must have space for two bytes per UTF-16 unit, and returns the end.
char *encodeTo(QStringView text, char *out);

// Returns the number of bytes of encode(text), without encoding.
qsizetype gbkLength(QStringView text);

// Returns whether every character of the text has a code, so that encode() loses nothing.
bool isEncodable(QStringView text);

} // namespace platform
