// The card texts of single fields. Each formatter consumes its argument like walk(): a second call with the same
// variable finds no subfield and returns an empty text (Kapian210 only the dash).
#pragma once

#include "card/subfieldWalk.h"

namespace card {

Piece Kapian010(QString &field); // ISBN and price
Piece Kapian200(QString &field); // title; a message if $f or $g precedes it
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
