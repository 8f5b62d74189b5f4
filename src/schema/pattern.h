// A regular expression of a schema or a rule, as in ECMAScript, with "." matching line ends too. Matching takes bounded
// time for every expression and text: a match that needs too many steps is given up.
#pragma once

#include "platform/result.h"
#include <QRegularExpression>
#include <bitset>
#include <vector>

namespace schema {

enum class Matching { Yes, No, GivenUp };

class Pattern {
public:
    // Fails with the reason and the position, counted from 1, if the expression is malformed.
    static platform::Result<Pattern> compile(const QString &expression);

    // Returns whether the text contains a match.
    Matching match(QStringView text) const;
    const QString &expression() const { return m_expression; }

private:
    // A piece of an expression such as "^[0-9]{8}[X-]$": a set of characters and its number.
    struct Piece {
        std::bitset<128> set;
        int count = 1;
    };
    static std::vector<Piece> piecesOf(QStringView expression);
    bool matchesPieces(QStringView text) const;

    QString m_expression;
    std::vector<Piece> m_pieces; // empty if the expression has another form
    QRegularExpression m_general;
};

} // namespace schema
