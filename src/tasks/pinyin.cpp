#include "tasks/pinyin.h"
#include "platform/plainFile.h"
#include "tasks/textTidying.h"
#include <QFile>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tasks {

namespace {

constexpr qsizetype longestKey = 20; // characters of a word
constexpr QStringView usual = u"主", several = u"多", surname = u"姓";

bool isSyllable(QStringView text) {
    return !text.isEmpty() &&
           std::ranges::all_of(text, [](QChar c) { return (c >= u'a' && c <= u'z') || c == u'ü' || c == u'ê'; });
}

// Returns the number of characters, a pair of surrogates counted once; 0 if one is not Chinese.
qsizetype hanCount(QStringView text) {
    qsizetype count = 0;
    for (const char32_t c : text.toUcs4()) {
        if (!isHan(c))
            return 0;
        ++count;
    }
    return count;
}

void append(QString &text, QStringView word) {
    if (!text.isEmpty() && !word.isEmpty())
        text += u' ';
    text += word;
}

// Returns the end of the word of another script that begins at the start of the text: letters, digits and the signs
// between them, as in "C++", "3.0" and "AT&T".
qsizetype otherWordEnd(QStringView text) {
    qsizetype end = 0;
    while (end < text.size() && !text[end].isSpace() && !text[end].isSurrogate() && !isHan(text[end].unicode()) &&
           (text[end].isLetterOrNumber() || text[end].unicode() < 0x80))
        ++end;
    const QStringView word = text.first(end);
    return std::ranges::any_of(word, [](QChar c) { return c.isLetterOrNumber(); }) ? end : 0;
}

} // namespace

platform::Result<PinyinReader> PinyinReader::open(const QString &officeTable) {
    auto readings = platform::HanReadings::open();
    if (!readings)
        return readings.failure();
    PinyinReader reader(std::move(readings).value());
    QFile builtIn(u":/tasks/pinyin-words.txt"_s);
    if (!builtIn.open(QIODevice::ReadOnly))
        return platform::Failure{u"没有拼音词表"_s};
    if (const auto added = reader.addTable(builtIn.readAll()); !added)
        return platform::Failure{added.failure().description};
    if (officeTable.isEmpty() || !QFileInfo::exists(officeTable))
        return reader;
    const auto bytes = platform::readSmallFile(officeTable, largestPinyinTable);
    if (!bytes)
        return bytes.failure();
    if (const auto added = reader.addTable(bytes.value()); !added)
        return platform::Failure{u"拼音词表【%1】%2"_s.arg(officeTable, added.failure().description)};
    return reader;
}

platform::Status PinyinReader::addTable(const QByteArray &utf8) {
    int number = 0;
    for (const QString &line : QString::fromUtf8(utf8).split(u'\n')) {
        ++number;
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(u';'))
            continue;
        if (const QString fault = addLine(trimmed); !fault.isEmpty())
            return platform::Failure{u"第%1行：%2"_s.arg(number).arg(fault)};
    }
    return platform::success();
}

QString PinyinReader::addLine(const QString &line) {
    const QStringList cells = line.split(u'\t');
    const qsizetype count = hanCount(cells[0]);
    if (count == 0 || cells[0].size() > longestKey)
        return u"“%1”不是汉字"_s.arg(cells[0].left(longestKey));
    const QStringList syllables = cells.value(1).split(u' ');
    if (!std::ranges::all_of(syllables, isSyllable))
        return u"“%1”不是拼音，应为小写字母，用空格隔开"_s.arg(cells.value(1).left(60));
    const QString sort = cells.value(2);
    const char32_t first = cells[0].toUcs4()[0];
    if (sort == several && count == 1) {
        m_several.insert(first, syllables);
        m_usual.insert(first, syllables[0]);
        return {};
    }
    if (syllables.size() != count)
        return u"“%1”的拼音应有%2个音节"_s.arg(cells[0]).arg(count);
    if (sort == surname) {
        m_surnames.insert(cells[0], cells[1]);
        m_longestSurname = std::max(m_longestSurname, cells[0].size());
    } else if (sort == usual || (sort.isEmpty() && count == 1)) {
        m_usual.insert(first, cells[1]);
        m_several.remove(first);
    } else if (sort.isEmpty()) {
        m_words.insert(cells[0], cells[1]);
        m_longestWord = std::max(m_longestWord, cells[0].size());
        m_firsts.insert(cells[0][0]);
    } else {
        return u"第三栏“%1”应为“主”“多”或“姓”"_s.arg(sort.left(longestKey));
    }
    return {};
}

qsizetype PinyinReader::longestOf(const QHash<QString, QString> &table, QStringView text, qsizetype longest) {
    for (qsizetype size = std::min(longest, text.size()); size > 0; --size) {
        if (table.contains(text.first(size).toString()))
            return size;
    }
    return 0;
}

void PinyinReader::readCharacter(char32_t character, Pinyin &pinyin) {
    const auto own = m_usual.constFind(character);
    const QString &syllable = own == m_usual.constEnd() ? m_readings.of(character) : *own;
    const QString itself = QString::fromUcs4(&character, 1);
    append(pinyin.text, syllable.isEmpty() ? itself : syllable);
    const auto others = m_several.constFind(character);
    const QString doubt = syllable.isEmpty()               ? itself + u"（没有读音）"
                          : others != m_several.constEnd() ? itself + u'（' + others->join(u'、') + u'）'
                                                           : QString();
    if (!pinyin.doubt.contains(doubt))
        append(pinyin.doubt, doubt);
}

Pinyin PinyinReader::read(QStringView text, ReadAs as) {
    Pinyin pinyin;
    qsizetype at = 0;
    if (as == ReadAs::Name) {
        at = longestOf(m_surnames, text, m_longestSurname);
        pinyin.text = m_surnames.value(text.first(at).toString());
    }
    while (at < text.size()) {
        const QStringView rest = text.sliced(at);
        if (const qsizetype size = m_firsts.contains(rest[0]) ? longestOf(m_words, rest, m_longestWord) : 0) {
            append(pinyin.text, m_words[rest.first(size).toString()]);
            at += size;
            continue;
        }
        const bool isPair = rest.size() > 1 && rest[0].isHighSurrogate() && rest[1].isLowSurrogate();
        const char32_t character = isPair ? QChar::surrogateToUcs4(rest[0], rest[1]) : rest[0].unicode();
        if (isHan(character)) {
            readCharacter(character, pinyin);
            at += isPair ? 2 : 1;
        } else if (const qsizetype end = otherWordEnd(rest)) {
            append(pinyin.text, rest.first(end));
            at += end;
        } else {
            at += isPair ? 2 : 1;
        }
    }
    return pinyin;
}

} // namespace tasks
