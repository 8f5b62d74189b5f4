// The encoding used to read a source of records: detected, or chosen by the user.
#pragma once

#include "marc/fileSurvey.h"
#include "platform/textDecoder.h"
#include <array>

namespace tidy {

enum class SourceEncoding { Automatic, Gbk, Utf8, Utf16, Big5, Marc8, Latin1 };

struct EncodingRow {
    SourceEncoding choice;
    QStringView caption;
};
inline constexpr auto sourceEncodings = std::to_array<EncodingRow>({
    {SourceEncoding::Automatic, u"自动识别"},
    {SourceEncoding::Gbk, u"GBK、GB18030"},
    {SourceEncoding::Utf8, u"UTF-8"},
    {SourceEncoding::Utf16, u"UTF-16"},
    {SourceEncoding::Big5, u"Big5（繁体）"},
    {SourceEncoding::Marc8, u"MARC-8"},
    {SourceEncoding::Latin1, u"Latin-1（西欧）"},
});

QStringView caption(SourceEncoding choice);
// Returns whether the decoder of this encoding is available on the machine.
bool isAvailable(SourceEncoding choice);

inline bool isXml(marc::FileEncoding encoding) {
    return encoding == marc::FileEncoding::MarcXml || encoding == marc::FileEncoding::MarcXchange;
}

// Returns the encoding for reading a file in exchange format; `guessed` is the detected one. An unknown encoding is
// read as GBK.
platform::Charset charsetOf(SourceEncoding choice, marc::FileEncoding guessed);

} // namespace tidy
