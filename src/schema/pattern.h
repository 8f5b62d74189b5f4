// A regular expression of a schema or a rule, as in ECMAScript, with "." matching line ends too. Matching takes bounded
// time for every expression and text: a match that needs too many steps is stopped.
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
    // Expressions such as "^[0-9]{8}[X-]$|图|表" are matched without the library: alternatives of a fixed length.
    struct Piece {
        std::bitset<128> ascii;
        QString others; // the characters of the set that are not ASCII
        int count = 1;  // of characters, one after the other, that are in the set

        bool contains(char16_t c) const { return c < ascii.size() ? ascii.test(c) : others.contains(QChar(c)); }
    };
    struct Alternative {
        bool fromStart = false; // has "^"
        bool toEnd = false;     // has "$"
        std::vector<Piece> pieces;
        qsizetype length = 0;

        bool matches(QStringView text) const;
        bool matchesAt(qsizetype at, QStringView text) const;
    };
    class Reader;

    QString m_expression;
    std::vector<Alternative> m_alternatives; // empty if the expression has another form
    QRegularExpression m_general;
};

} // namespace schema
