// What encoding the bytes of a record file look like, judged as they pass by. Memory: the beginning of the file.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace marc {

enum class FileEncoding { Unknown, Gbk, Gb18030, Utf8, Utf8WithBom, Utf16Le, Utf16Be, MarcXml, MarcXchange };

// Follows pairs of GBK and the four-byte forms that GB18030 adds.
class GbkShape {
public:
    void take(QByteArrayView bytes);

    qint64 pairs = 0;
    qint64 fourByteForms = 0;
    qint64 damaged = 0;

private:
    void takeByte(uchar byte);
    enum class Place { Between, BehindLead, BehindDigit, BehindSecondLead };
    Place m_place = Place::Between;
};

// Follows the sequences of UTF-8.
class Utf8Shape {
public:
    void take(QByteArrayView bytes);

    qint64 twoByteForms = 0;
    qint64 longForms = 0; // three bytes and more, as Chinese has them
    qint64 damaged = 0;

private:
    void takeByte(uchar byte);
    void begin(uchar byte);
    int m_length = 0;
    int m_left = 0;
    uchar m_low = 0; // bounds of the next byte
    uchar m_high = 0;
};

class EncodingGuess {
public:
    // The next bytes of the file; the first call brings at least its first 64 KB where it has them.
    void take(QByteArrayView bytes);
    FileEncoding guess() const;
    bool isUtf16() const { return m_certain == FileEncoding::Utf16Le || m_certain == FileEncoding::Utf16Be; }

private:
    FileEncoding guessByShape() const;
    bool isSurelyUtf8() const;
    bool isSurelyNotUtf8() const;
    bool m_begun = false;
    FileEncoding m_certain = FileEncoding::Unknown; // known from the beginning of the file
    GbkShape m_gbk;
    Utf8Shape m_utf8;
};

} // namespace marc
