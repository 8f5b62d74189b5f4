// Counts the forms of multi-byte encodings in bytes, which are passed once in order. The counts of a file tell its
// encoding; see EncodingGuess.
#pragma once

#include <QByteArrayView>

namespace marc {

// Counts pairs of GBK and the four-byte forms of GB18030.
class GbkShape {
public:
    void take(QByteArrayView bytes);
    // Returns whether the pairs are typical of Chinese. Other one-byte and two-byte encodings form pairs as well, but
    // few of them usual ones, or many that are foreign to Chinese.
    bool looksChinese() const;

    qint64 pairs = 0;
    qint64 usual = 0;   // of the pairs: common characters, punctuation, full-width letters
    qint64 seldom = 0;  // of the pairs: less common characters of the national standard
    qint64 foreign = 0; // of the pairs: letters of other scripts, and codes without a character
    qint64 fourByteForms = 0;
    qint64 damaged = 0;

private:
    void takePart(QByteArrayView bytes);
    void addPairs(qint64 count, quint64 kinds);
    void takeByte(uchar byte);
    uchar m_lead = 0;
    enum class Place { Between, BehindLead, BehindDigit, BehindSecondLead };
    Place m_place = Place::Between;
};

// Counts the sequences of UTF-8.
class Utf8Shape {
public:
    void take(QByteArrayView bytes);

    qint64 twoByteForms = 0;
    qint64 longForms = 0; // of three and more bytes, as for Chinese characters
    qint64 damaged = 0;
    // Two-byte forms, as for accented letters, that have a Latin letter on both sides, and on one side.
    qint64 betweenLetters = 0;
    qint64 nextToLetter = 0;

private:
    void takeByte(uchar byte, bool afterLetter);
    void begin(uchar byte);
    void noteSides(bool beforeLetter);
    bool isAfterLetter(QByteArrayView bytes, qsizetype at) const;
    char m_tail[2] = {0, 0};    // the last bytes of the previous call
    bool m_afterLetter = false; // whether the current form follows a letter
    bool m_sidesOpen = false;   // a two-byte form has just ended
    int m_length = 0;
    int m_left = 0;
    uchar m_low = 0; // bounds of the next byte
    uchar m_high = 0;
};

} // namespace marc
