#include "database/sqlTokens.h"

namespace database {

namespace {

bool isWordCharacter(QChar c) {
    const char16_t unit = c.unicode();
    if (unit < 0x80) // as nearly all characters are
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9') ||
               unit == u'_';
    return c.isLetterOrNumber();
}

// Returns the end of a run that is terminated by `close`, not by a doubled `close`.
qsizetype closedEnd(QStringView text, qsizetype from, QChar close) {
    for (qsizetype at = from + 1; (at = text.indexOf(close, at)) >= 0; at += 2)
        if (at + 1 == text.size() || text[at + 1] != close)
            return at + 1;
    return text.size();
}

qsizetype endAfter(QStringView text, qsizetype from, QStringView close) {
    const qsizetype found = text.indexOf(close, from + 2);
    return found < 0 ? text.size() : found + close.size();
}

template <class Belongs>
qsizetype runEnd(QStringView text, qsizetype at, Belongs belongs) {
    while (at < text.size() && belongs(text[at]))
        ++at;
    return at;
}

struct Cut {
    TokenKind kind;
    qsizetype end;
};

Cut cutAt(QStringView text, qsizetype at) {
    const QChar c = text[at];
    const QStringView rest = text.sliced(at);
    if (c.isSpace())
        return {TokenKind::Blank, runEnd(text, at, [](QChar next) { return next.isSpace(); })};
    if (isWordCharacter(c))
        return {TokenKind::Word, runEnd(text, at, isWordCharacter)};
    if (c == u'\'')
        return {TokenKind::Literal, closedEnd(text, at, c)};
    if (c == u'"')
        return {TokenKind::Quoted, closedEnd(text, at, c)};
    if (c == u'[')
        return {TokenKind::Bracket, closedEnd(text, at, u']')};
    if (rest.startsWith(u"--"))
        return {TokenKind::Comment, endAfter(text, at, u"\n")};
    if (rest.startsWith(u"/*"))
        return {TokenKind::Comment, endAfter(text, at, u"*/")};
    return {TokenKind::Sign, at + 1};
}

} // namespace

Tokens tokensOf(QStringView statement) {
    Tokens tokens;
    for (qsizetype at = 0; at < statement.size();) {
        const Cut cut = cutAt(statement, at);
        tokens.push_back({cut.kind, statement.sliced(at, cut.end - at)});
        at = cut.end;
    }
    return tokens;
}

} // namespace database
