#include "tidy/sourceEncoding.h"
#include "platform/marc8Decoder.h"

using marc::FileEncoding;
using platform::Charset;

namespace tidy {

namespace {

Charset charsetOf(FileEncoding guessed) {
    switch (guessed) {
    case FileEncoding::Gb18030:
        return Charset::Gb18030;
    case FileEncoding::Utf8:
    case FileEncoding::Utf8WithBom:
        return Charset::Utf8;
    case FileEncoding::Utf16Le:
        return Charset::Utf16Le;
    case FileEncoding::Utf16Be:
        return Charset::Utf16Be;
    default:
        return Charset::Gbk;
    }
}

} // namespace

QStringView caption(SourceEncoding choice) {
    return sourceEncodings.at(size_t(choice)).caption;
}

bool isAvailable(SourceEncoding choice) {
    return choice != SourceEncoding::Marc8 || platform::Marc8Decoder::isAvailable();
}

Charset charsetOf(SourceEncoding choice, FileEncoding guessed) {
    switch (choice) {
    case SourceEncoding::Automatic:
        return charsetOf(guessed);
    case SourceEncoding::Gbk:
        return guessed == FileEncoding::Gb18030 ? Charset::Gb18030 : Charset::Gbk;
    case SourceEncoding::Utf8:
        return Charset::Utf8;
    case SourceEncoding::Utf16:
        return guessed == FileEncoding::Utf16Be ? Charset::Utf16Be : Charset::Utf16Le;
    case SourceEncoding::Big5:
        return Charset::Big5;
    case SourceEncoding::Marc8:
        return Charset::Marc8;
    case SourceEncoding::Latin1:
        return Charset::Latin1;
    }
    return Charset::Gbk;
}

} // namespace tidy
