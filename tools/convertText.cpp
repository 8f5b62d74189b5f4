// Turns a UTF-8 text of the source tree into the file that the program reads: code page 936, lines ended by CR LF. A
// character that the code page lacks is an error of the build, told with its line; nothing is written then.
#include "platform/codepage936.h"
#include <QFile>
#include <QStringDecoder>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int complain(const char *path, const QString &what) {
    std::fprintf(stderr, "%s: %s\n", path, qPrintable(what));
    return 1;
}

// The first character of the line without a code, as "U+4E00"; empty where there is none.
QString missingCharacter(const QString &line) {
    for (const uint character : line.toUcs4()) {
        if (!platform::isEncodable(QString::fromUcs4(reinterpret_cast<const char32_t *>(&character), 1)))
            return u"U+%1"_s.arg(character, 4, 16, QChar(u'0')).toUpper();
    }
    return {};
}

} // namespace

int main(int count, char **arguments) {
    if (count != 3)
        return complain(arguments[0], u"usage: convertText UTF8FILE GBKFILE"_s);
    QFile source(QString::fromLocal8Bit(arguments[1]));
    if (!source.open(QIODevice::ReadOnly))
        return complain(arguments[1], source.errorString());
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(source.readAll());
    if (decoder.hasError())
        return complain(arguments[1], u"not UTF-8"_s);
    QStringList lines = text.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].endsWith(u'\r'))
            lines[i].chop(1);
        const QString missing = missingCharacter(lines[i]);
        if (!missing.isEmpty())
            return complain(arguments[1], u"line %1: %2 has no code in code page 936"_s.arg(i + 1).arg(missing));
    }
    QFile target(QString::fromLocal8Bit(arguments[2]));
    const QByteArray bytes = platform::encode(lines.join(u"\r\n"_s));
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size() || !target.flush())
        return complain(arguments[2], target.errorString());
    return 0;
}
