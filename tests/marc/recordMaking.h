// Records and files for the tests of this folder.
#pragma once

#include "marc/fieldRows.h"
#include "marc/separators.h"
#include "platform/codepage936.h"
#include "platform/numbers.h"
#include "support/qtPrinters.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

namespace marc {

using namespace Qt::StringLiterals;

// Control characters stand as < | > (subfield, field, record), both ways.
inline QString visible(QString text) {
    return text.replace(subfieldDelimiter, u'<').replace(fieldTerminator, u'|').replace(recordTerminator, u'>');
}
inline QString real(QString text) {
    return text.replace(u'<', subfieldDelimiter).replace(u'|', fieldTerminator).replace(u'>', recordTerminator);
}

// "identifier=value" of each row, for comparing at a glance.
inline QString brief(const FieldRows &rows) {
    QStringList parts;
    for (const FieldRow &row : rows)
        parts.append(visible(row.identifier + u'=' + row.value));
    return parts.join(u' ');
}

inline RawRecord recordWithDirectory(const QString &directory, const QString &data) {
    const QString base = platform::padZero(5, qint32(25 + directory.size()));
    return u"00000nam0 22" + base + u"   450 " + directory + QChar(fieldTerminator) + data + QChar(recordTerminator);
}

// From "tag=content" pieces, parted by "|"; a "$" stands for the subfield delimiter.
inline RawRecord makeRecord(const QString &fields) {
    QString directory;
    QString data;
    for (const QString &field : fields.split(u'|', Qt::SkipEmptyParts)) {
        const QString content = field.sliced(4).replace(u'$', QChar(subfieldDelimiter)) + QChar(fieldTerminator);
        directory += field.left(3) + platform::padZero(4, qint32(platform::gbkLength(content))) +
                     platform::padZero(5, qint32(platform::gbkLength(data)));
        data += content;
    }
    return recordWithDirectory(directory, data);
}

class TestFolder {
public:
    // The path of a file with these bytes.
    QString file(const QString &name, const QByteArray &bytes) const {
        QFile file(path() + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
    QString path() const { return m_folder.path() + u'/'; }

private:
    QTemporaryDir m_folder;
};

// Random things with a fixed seed.
class Dice {
public:
    explicit Dice(unsigned seed)
        : m_engine(seed) {}
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_engine); }
    template <class List>
    auto oneOf(const List &list) {
        return list[below(int(std::size(list)))];
    }
    template <class Text, class Alphabet>
    Text text(const Alphabet &alphabet, int longest) {
        Text result;
        for (int i = below(longest + 1); i > 0; --i)
            result += oneOf(alphabet);
        return result;
    }

private:
    std::mt19937 m_engine;
};

} // namespace marc
