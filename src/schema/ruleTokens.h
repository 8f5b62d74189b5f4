// Splits a condition into tokens.
#pragma once

#include <QString>
#include <QStringView>
#include <vector>

namespace schema {

enum class TokenKind { Word, Path, Text, Number, Pattern, Sign, End, Wrong };

struct Token {
    TokenKind kind = TokenKind::End;
    QString text;     // without quotation marks or slashes; for Wrong, what is wrong
    qsizetype at = 0; // counted from 0
};

// The last token is End, or Wrong at the first character that starts no token. Chinese words are returned as their
// English counterparts.
std::vector<Token> tokensOf(QStringView condition);

} // namespace schema
