#include "schema/pattern.h"
#include "platform/boundedExpression.h"
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace schema {

// Reads the alternatives of an expression whose parts are plain characters, "\d", escaped signs and classes of these
// with ranges, with or without a number in braces. The alternatives together are short, so that no text takes long.
class Pattern::Reader {
public:
    explicit Reader(QStringView expression)
        : m_rest(expression) {}

    // Returns nothing if the expression has another part.
    std::vector<Alternative> alternatives();

private:
    std::optional<Alternative> alternative();
    bool addPiece(Alternative &alternative);
    bool addCharacter(Piece &piece, char16_t &last);
    bool addClass(Piece &piece);
    std::optional<int> count();
    bool atEnd() const { return m_rest.isEmpty() || m_rest[0] == u'|'; } // of the alternative
    QChar next() {
        const QChar c = m_rest[0];
        m_rest = m_rest.sliced(1);
        return c;
    }
    bool take(QChar c) {
        const bool found = m_rest.startsWith(c);
        m_rest = m_rest.sliced(found ? 1 : 0);
        return found;
    }

    QStringView m_rest;
};

std::vector<Pattern::Alternative> Pattern::Reader::alternatives() {
    constexpr qsizetype mostCharacters = 100;
    std::vector<Alternative> read;
    qsizetype characters = 0;
    do {
        auto next = alternative();
        if (!next || (characters += next->length) > mostCharacters)
            return {};
        read.push_back(*std::move(next));
    } while (take(u'|'));
    return read;
}

std::optional<Pattern::Alternative> Pattern::Reader::alternative() {
    Alternative read{.fromStart = take(u'^')};
    while (!atEnd() && !read.toEnd) {
        read.toEnd = take(u'$');
        if (!read.toEnd && !addPiece(read))
            return std::nullopt;
    }
    return atEnd() && !read.pieces.empty() ? std::optional(std::move(read)) : std::nullopt;
}

bool Pattern::Reader::addPiece(Alternative &alternative) {
    Piece piece;
    char16_t last = 0;
    if (!(take(u'[') ? addClass(piece) : addCharacter(piece, last)))
        return false;
    const auto number = count();
    piece.count = number.value_or(1);
    alternative.length += piece.count;
    alternative.pieces.push_back(std::move(piece));
    return number.has_value();
}

// Sets `last` to the character if a range may start with it, else to 0.
bool Pattern::Reader::addCharacter(Piece &piece, char16_t &last) {
    char16_t c = next().unicode();
    last = 0;
    if (c == u'\\') {
        if (m_rest.isEmpty())
            return false;
        c = next().unicode();
        if (c == u'd') {
            for (char16_t digit = u'0'; digit <= u'9'; ++digit)
                piece.ascii.set(digit);
            return true;
        }
        if (c >= piece.ascii.size() || QChar(c).isLetterOrNumber())
            return false;
    } else if (QStringView(u"^$.|?*+(){}[]").contains(QChar(c)) || QChar::isSurrogate(c)) {
        return false;
    }
    if (c < piece.ascii.size()) {
        piece.ascii.set(c);
        last = c;
    } else {
        piece.others.append(QChar(c));
    }
    return true;
}

bool Pattern::Reader::addClass(Piece &piece) {
    char16_t last = 0;
    while (!m_rest.isEmpty() && m_rest[0] != u']') {
        if (m_rest.size() > 1 && m_rest[0] == u'-' && m_rest[1] != u']') {
            const char16_t begin = last;
            char16_t end = 0;
            (void)next();
            if (begin == 0 || !addCharacter(piece, end) || end < begin)
                return false;
            for (char16_t c = begin; c <= end; ++c)
                piece.ascii.set(c);
            last = 0;
        } else if (!addCharacter(piece, last)) {
            return false;
        }
    }
    return take(u']') && (piece.ascii.any() || !piece.others.isEmpty());
}

std::optional<int> Pattern::Reader::count() {
    if (!take(u'{'))
        return 1;
    const qsizetype end = m_rest.indexOf(u'}');
    bool isNumber = false;
    const int count = m_rest.left(end).toInt(&isNumber);
    if (end < 0 || !isNumber || count < 1 || count > 100)
        return std::nullopt;
    m_rest = m_rest.sliced(end + 1);
    return count;
}

platform::Result<Pattern> Pattern::compile(const QString &expression) {
    auto general = platform::boundedExpression(expression, QRegularExpression::DotMatchesEverythingOption);
    if (!general)
        return general.failure();
    Pattern pattern;
    pattern.m_expression = expression;
    pattern.m_general = std::move(general).value();
    pattern.m_alternatives = Reader(expression).alternatives();
    if (pattern.m_alternatives.empty())
        pattern.m_general.optimize();
    return pattern;
}

bool Pattern::Alternative::matchesAt(qsizetype at, QStringView text) const {
    for (const Piece &piece : pieces) {
        for (int i = 0; i < piece.count; ++i, ++at) {
            if (!piece.contains(text[at].unicode()))
                return false;
        }
    }
    return true;
}

bool Pattern::Alternative::matches(QStringView text) const {
    const qsizetype latest = text.size() - length;
    const qsizetype first = toEnd ? latest : 0, last = fromStart ? 0 : latest;
    for (qsizetype at = first; at <= last && latest >= 0; ++at) {
        if (matchesAt(at, text))
            return true;
    }
    return false;
}

Matching Pattern::match(QStringView text) const {
    if (!m_alternatives.empty()) {
        const bool found = std::ranges::any_of(m_alternatives, [&](const auto &each) { return each.matches(text); });
        return found ? Matching::Yes : Matching::No;
    }
    const auto found = m_general.match(text);
    if (!found.isValid())
        return Matching::GivenUp;
    return found.hasMatch() ? Matching::Yes : Matching::No;
}

} // namespace schema
