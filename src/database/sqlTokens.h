// A statement cut into words, literals and the rest, so that what stands in a literal is never taken for a word.
#pragma once

#include <QStringView>
#include <vector>

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

// The whole statement, in order, nothing left out. What is opened and never closed reaches to the end.
std::vector<Token> tokensOf(QStringView statement);

} // namespace database
