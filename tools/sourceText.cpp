#include "tools/sourceText.h"
#include "platform/codepage936.h"
#include <QFile>
#include <QStringDecoder>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace tools {

namespace {

// Returns the first character of the line that code page 936 cannot encode, as "U+4E00", or an empty string.
QString missingCharacter(const QString &line) {
    for (const char32_t character : line.toUcs4()) {
        if (!platform::isEncodable(QString::fromUcs4(&character, 1)))
            return u"U+%1"_s.arg(uint(character), 4, 16, QChar(u'0')).toUpper();
    }
    return {};
}

} // namespace

platform::Result<QStringList> readSource(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return platform::Failure{file.errorString()};
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(file.readAll());
    if (decoder.hasError())
        return platform::Failure{u"not UTF-8"_s};
    QStringList lines = text.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].endsWith(u'\r'))
            lines[i].chop(1);
        if (const QString missing = missingCharacter(lines[i]); !missing.isEmpty())
            return platform::Failure{atLine(i, missing + u" has no code in code page 936"_s)};
    }
    return lines;
}

QString atLine(qsizetype index, const QString &what) {
    return u"line %1: "_s.arg(index + 1) + what;
}

int complain(const QString &path, const QString &what) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(what));
    return 1;
}

} // namespace tools
