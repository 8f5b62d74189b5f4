// Code page 936 (GBK), both ways. 0x80 is the euro sign, 0xFF is U+F8F5; any other byte that starts no valid pair
// becomes U+FFFD alone and the next byte is looked at anew; the user-defined areas go to the private use area.
// A character without a code becomes "?", one per UTF-16 unit. All 23,940 two-byte codes survive the way out and back.
#pragma once

#include "platform/result.h"
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace platform {

// Whether the machine has the tables of the code page; without them every Chinese character would be lost, so that this
// is to be looked at before any other function here.
Status codePageReady(const char *converter = "windows-936");

QString decode(QByteArrayView bytes);
QByteArray encode(QStringView text);

// The number of bytes that encode(text) has, without making them.
qsizetype gbkLength(QStringView text);

// Whether every character of the text has a code, so that nothing is lost by encode().
bool isEncodable(QStringView text);

} // namespace platform
