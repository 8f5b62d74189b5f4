// The card text of single fields. Each formatter uses its argument up, as walk() tells: called a second time on the
// same variable it finds nothing and gives the empty text (Kapian210 the bare dash).
#pragma once

#include "card/subfieldWalk.h"

namespace card {

Piece Kapian010(QString &field); // ISBN and price
Piece Kapian200(QString &field); // title; the box about a missing one where $f or $g comes ahead of it
Piece Kapian205(QString &field); // edition
Piece Kapian206(QString &field); // scale of maps
Piece Kapian207(QString &field); // numbering of serials; the last $a wins
Piece Kapian208(QString &field); // kind of printed music
Piece Kapian210(QString &field); // publication
Piece Kapian215(QString &field); // physical description, on a line of its own
Piece Kapian225(QString &field); // series, without its brackets
Piece Kapian327(QString &field); // contents
Piece Kapian686(QString &field); // other classification

} // namespace card
