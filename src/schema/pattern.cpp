#include "schema/pattern.h"
#include "platform/boundedExpression.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

// Reads one set of characters at the start of `rest` and removes it. Returns std::nullopt for anything but a plain
// character, "\d", an escaped sign and a class of these with ranges.
class SetReader {
public:
    explicit SetReader(QStringView rest)
        : m_rest(rest) {}

    bool atEnd() const { return m_rest.isEmpty(); }
    std::optional<std::bitset<128>> set();
    std::optional<int> count();
    bool take(QChar c) {
        if (!m_rest.startsWith(c))
            return false;
        m_rest = m_rest.sliced(1);
        return true;
    }

private:
    bool addCharacter(std::bitset<128> &set, char16_t &last);
    bool addClass(std::bitset<128> &set);

    QStringView m_rest;
};

bool SetReader::addCharacter(std::bitset<128> &set, char16_t &last) {
    char16_t c = m_rest[0].unicode();
    m_rest = m_rest.sliced(1);
    if (c == u'\\') {
        if (m_rest.isEmpty())
            return false;
        c = m_rest[0].unicode();
        m_rest = m_rest.sliced(1);
        if (c == u'd') {
            for (char16_t digit = u'0'; digit <= u'9'; ++digit)
                set.set(digit);
            last = 0;
            return true;
        }
        if (c >= 128 || QChar(c).isLetterOrNumber())
            return false;
    } else if (c >= 128 || QStringView(u"^$.|?*+(){}[]").contains(QChar(c))) {
        return false;
    }
    set.set(c);
    last = c;
    return true;
}

bool SetReader::addClass(std::bitset<128> &set) {
    char16_t last = 0;
    while (!m_rest.isEmpty() && !m_rest.startsWith(u']')) {
        if (m_rest.size() > 1 && m_rest[0] == u'-' && m_rest[1] != u']') {
            char16_t end = 0;
            const char16_t begin = last;
            m_rest = m_rest.sliced(1);
            if (begin == 0 || !addCharacter(set, end) || end < begin)
                return false;
            for (char16_t c = begin; c <= end; ++c)
                set.set(c);
            last = 0;
        } else if (!addCharacter(set, last)) {
            return false;
        }
    }
    return take(u']') && set.any();
}

std::optional<std::bitset<128>> SetReader::set() {
    std::bitset<128> read;
    char16_t last = 0;
    if (take(u'['))
        return addClass(read) ? std::optional(read) : std::nullopt;
    return !atEnd() && addCharacter(read, last) ? std::optional(read) : std::nullopt;
}

std::optional<int> SetReader::count() {
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

} // namespace

platform::Result<Pattern> Pattern::compile(const QString &expression) {
    auto general = platform::boundedExpression(expression, QRegularExpression::DotMatchesEverythingOption);
    if (!general)
        return general.failure();
    Pattern pattern;
    pattern.m_expression = expression;
    pattern.m_general = std::move(general).value();
    pattern.m_pieces = piecesOf(expression);
    if (pattern.m_pieces.empty())
        pattern.m_general.optimize();
    return pattern;
}

std::vector<Pattern::Piece> Pattern::piecesOf(QStringView expression) {
    if (expression.size() < 3 || !expression.startsWith(u'^') || !expression.endsWith(u'$'))
        return {};
    std::vector<Piece> pieces;
    SetReader reader(expression.sliced(1).chopped(1));
    while (!reader.atEnd()) {
        const auto set = reader.set();
        const auto count = set ? reader.count() : std::nullopt;
        if (!count)
            return {};
        pieces.push_back({*set, *count});
    }
    return pieces;
}

bool Pattern::matchesPieces(QStringView text) const {
    qsizetype at = 0;
    for (const Piece &piece : m_pieces) {
        for (int i = 0; i < piece.count; ++i, ++at) {
            if (at >= text.size() || text[at].unicode() >= 128 || !piece.set.test(text[at].unicode()))
                return false;
        }
    }
    return at == text.size();
}

Matching Pattern::match(QStringView text) const {
    if (!m_pieces.empty())
        return matchesPieces(text) ? Matching::Yes : Matching::No;
    const auto found = m_general.match(text);
    if (!found.isValid())
        return Matching::GivenUp;
    return found.hasMatch() ? Matching::Yes : Matching::No;
}

} // namespace schema
