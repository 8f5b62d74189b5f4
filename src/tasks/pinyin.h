// Pinyin as catalogues write it: "hong lou meng". Lower case without tones, a blank between syllables, "ü" kept: "nü er
// guo". Words in other scripts and numbers stay as they are; punctuation is left out.
//
// Characters with several readings are read by a table of words, the longest first, which an office can extend by a
// file of its own: a word, a tab, its syllables and possibly a third column. See data/config/pinyin-words.txt.
#pragma once

#include "platform/hanReadings.h"
#include <QHash>
#include <QSet>
#include <QStringList>

namespace tasks {

enum class ReadAs { Title, Name }; // Name: begins with a surname

struct Pinyin {
    QString text;
    QString doubt; // characters whose reading is uncertain, such as "乐（le、yue）"; empty if there are none
};

inline constexpr qint64 largestPinyinTable = 4 * 1024 * 1024; // bytes

class PinyinReader {
public:
    // Takes a quarter of a second. Reads the built-in table and then that of the office, which takes precedence and may
    // be missing. Fails with the line and the reason if a line is malformed.
    static platform::Result<PinyinReader> open(const QString &officeTable = {});

    Pinyin read(QStringView text, ReadAs as = ReadAs::Title);

private:
    explicit PinyinReader(platform::HanReadings readings)
        : m_readings(std::move(readings)) {}
    platform::Status addTable(const QByteArray &utf8);
    QString addLine(const QString &line); // returns why the line is malformed, or an empty text
    // Returns the number of characters of the longest key at the start of the text; 0: none.
    static qsizetype longestOf(const QHash<QString, QString> &table, QStringView text, qsizetype longest);
    void readCharacter(char32_t character, Pinyin &pinyin);

    platform::HanReadings m_readings;
    QHash<QString, QString> m_words;
    QHash<QString, QString> m_surnames;
    QHash<char32_t, QString> m_usual;
    QHash<char32_t, QStringList> m_several;
    qsizetype m_longestWord = 0;
    qsizetype m_longestSurname = 0;
    QSet<QChar> m_firsts; // of words
};

} // namespace tasks
