#include "platform/boundedExpression.h"

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr QStringView limits = u"(*LIMIT_MATCH=20000)(*LIMIT_DEPTH=2000)";
constexpr qsizetype longest = 4000; // characters of an expression

// Rewrites "\u4E00" and "\u{4E00}" in the spelling of the library.
QString inLibrarySpelling(const QString &expression) {
    static const QRegularExpression escape(uR"((?<!\\)((?:\\\\)*)\\u(?:\{([0-9A-Fa-f]{1,6})\}|([0-9A-Fa-f]{4})))"_s);
    return QString(expression).replace(escape, uR"(\1\x{\2\3})"_s);
}

} // namespace

Result<QRegularExpression> boundedExpression(const QString &expression, QRegularExpression::PatternOptions options) {
    if (expression.isEmpty() || expression.size() > longest)
        return Failure{u"正则表达式为空或太长"_s};
    QRegularExpression compiled(limits + inLibrarySpelling(expression), options);
    if (!compiled.isValid()) {
        const qsizetype at = qMax(compiled.patternErrorOffset() - limits.size(), qsizetype(0));
        return Failure{u"正则表达式有误，第%1个字符：%2"_s.arg(at + 1).arg(compiled.errorString())};
    }
    return compiled;
}

} // namespace platform
