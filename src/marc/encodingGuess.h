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
    // Whether the pairs are those that Chinese has. Other encodings of one byte or two give pairs as well, but few of
    // them usual ones, or many that are foreign to Chinese.
    bool looksChinese() const;

    qint64 pairs = 0;
    qint64 usual = 0;   // of those: the common characters, signs, letters of full width
    qint64 seldom = 0;  // the less common ones of the national standard
    qint64 foreign = 0; // letters of other scripts, and codes without a character
    qint64 fourByteForms = 0;
    qint64 damaged = 0;

private:
    void takePair(uchar lead, uchar trail);
    void takeByte(uchar byte);
    uchar m_lead = 0;
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
    // Of the forms of two bytes, as letters with accents have them: with a Latin letter on both sides, and on one.
    qint64 betweenLetters = 0;
    qint64 nextToLetter = 0;

private:
    void takeByte(uchar byte, bool afterLetter);
    void begin(uchar byte);
    void noteSides(bool beforeLetter);
    bool isAfterLetter(QByteArrayView bytes, qsizetype at) const;
    char m_tail[2] = {0, 0};    // the last bytes of the call before
    bool m_afterLetter = false; // the form at hand
    bool m_sidesOpen = false;   // a form of two bytes has just ended
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
    // There are so few characters beyond ASCII that the guess may be wrong, and nothing in the file supports it.
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
    bool m_declaredUtf8 = false; // by the records at the beginning
    qint64 m_escapes = 0;
    FileEncoding m_certain = FileEncoding::Unknown; // known from the beginning of the file
    GbkShape m_gbk;
    Utf8Shape m_utf8;
};

} // namespace marc
