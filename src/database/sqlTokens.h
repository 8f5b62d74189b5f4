// A statement cut into words, literals and the rest, so that what stands in a literal is never taken for a word.
#pragma once

#include <QStringView>
#include <QVarLengthArray>

namespace database {

enum class TokenKind {
    Blank,   // white space
    Comment, // "-- ..." up to its line end, "/* ... */"
    Literal, // '...' with '' for an apostrophe
    Quoted,  // "..."
    Bracket, // [...] with ]] for a closing bracket
    Word,    // letters, digits and _; numbers too
    Sign,    // one other character
};

struct Token {
    TokenKind kind;
    QStringView text; // into the statement; quotes and brackets included
};

using Tokens = QVarLengthArray<Token, 128>; // so many without a call for memory, which is what most statements have

// The whole statement, in order, nothing left out. What is opened and never closed reaches to the end.
Tokens tokensOf(QStringView statement);

} // namespace database
