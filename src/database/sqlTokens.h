// Splits a statement into words, literals and the rest, so that text in a literal is never taken for a word.
#pragma once

#include <QStringView>
#include <QVarLengthArray>

namespace database {

enum class TokenKind {
    Blank,   // white space
    Comment, // "-- ..." up to the line end, "/* ... */"
    Literal, // '...' with '' for an apostrophe
    Quoted,  // "..."
    Bracket, // [...] with ]] for a closing bracket
    Word,    // letters, digits and _; numbers too
    Sign,    // one other character
};

struct Token {
    TokenKind kind;
    QStringView text; // a view of the statement; includes quotes and brackets
};

using Tokens = QVarLengthArray<Token, 128>; // enough for most statements without an allocation

// Returns the tokens of the whole statement, in order and without gaps. An unclosed literal, name or comment reaches to
// the end.
Tokens tokensOf(QStringView statement);

} // namespace database
