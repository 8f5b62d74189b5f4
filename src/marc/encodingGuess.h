// Guesses the encoding of a record file from its bytes, which are passed once in order. Keeps no bytes of the file
// except the last few.
#pragma once

#include "marc/encodingShapes.h"

namespace marc {

enum class FileEncoding { Unknown, Gbk, Gb18030, Utf8, Utf8WithBom, Utf16Le, Utf16Be, MarcXml, MarcXchange };

class EncodingGuess {
public:
    // Takes the next bytes of the file; the first call must pass at least the first 64 KB, or the whole of a smaller
    // file.
    void take(QByteArrayView bytes);
    FileEncoding guess() const;
    // Returns whether the file has so few characters beyond ASCII that the guess may be wrong, and nothing else in the
    // file supports it.
    bool isDoubtful() const;
    bool isUtf16() const { return m_certain == FileEncoding::Utf16Le || m_certain == FileEncoding::Utf16Be; }

private:
    FileEncoding guessByShape() const;
    FileEncoding guessByNeighbours() const;
    FileEncoding guessChinese() const;
    bool isSurelyUtf8() const;
    bool isSurelyNotUtf8() const;
    bool mayBeEither() const;
    bool m_begun = false;
    bool m_declaredUtf8 = false; // by the records at the beginning of the file
    qint64 m_escapes = 0;
    FileEncoding m_certain = FileEncoding::Unknown; // determined by the beginning of the file
    GbkShape m_gbk;
    Utf8Shape m_utf8;
};

} // namespace marc
