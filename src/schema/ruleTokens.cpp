#include "schema/ruleTokens.h"
#include <QRegularExpression>
#include <array>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

struct Synonym {
    QStringView chinese, english;
};

constexpr auto synonyms = std::to_array<Synonym>({
    {u"且", u"and"},
    {u"或", u"or"},
    {u"非", u"not"},
    {u"每个", u"every"},
    {u"见于", u"in"},
    {u"是", u"is"},
    {u"个数", u"count"},
    {u"长度", u"length"},
    {u"年", u"year"},
    {u"今天", u"today"},
    {u"今年", u"thisyear"},
});

QString inEnglish(const QString &word) {
    for (const Synonym &synonym : synonyms) {
        if (word == synonym.chinese)
            return synonym.english.toString();
    }
    return word.toLower();
}

class Tokenizer {
public:
    explicit Tokenizer(QStringView condition)
        : m_text(condition) {}

    std::vector<Token> all();

private:
    Token next();
    bool takeDelimited(QChar delimiter, Token &token);

    QStringView m_text;
    qsizetype m_at = 0;
};

// Reads up to the closing delimiter; "\" before a delimiter is dropped, before anything else it stays.
bool Tokenizer::takeDelimited(QChar delimiter, Token &token) {
    for (++m_at; m_at < m_text.size(); ++m_at) {
        if (m_text[m_at] == delimiter) {
            ++m_at;
            return true;
        }
        if (m_text[m_at] == u'\\' && m_at + 1 < m_text.size()) {
            if (m_text[m_at + 1] != delimiter)
                token.text += u'\\';
            ++m_at;
        }
        token.text += m_text[m_at];
    }
    return false;
}

Token Tokenizer::next() {
    static const QRegularExpression path(
        uR"(\G(?:LDR|[0-9X]{3}(?:\$(?:\*|[0-9A-Za-z])|\^[12])?)(?:/\d{1,5}(?:-\d{1,5})?)?(?![0-9A-Za-z$^]))"_s);
    static const QRegularExpression number(uR"(\G\d{1,9}(?![0-9A-Za-z]))"_s);
    static const QRegularExpression word(uR"(\G(?:[A-Za-z][A-Za-z0-9]*|\p{Han}+))"_s);
    static const QRegularExpression sign(uR"(\G(?:!=|<=|>=|!~|[=<>~(),]))"_s);
    while (m_at < m_text.size() && m_text[m_at].isSpace())
        ++m_at;
    Token token{TokenKind::End, {}, m_at};
    if (m_at == m_text.size())
        return token;
    if (m_text[m_at] == u'\'' || m_text[m_at] == u'/') {
        token.kind = m_text[m_at] == u'/' ? TokenKind::Pattern : TokenKind::Text;
        if (takeDelimited(m_text[m_at], token))
            return token;
        return {TokenKind::Wrong, u"后面的引号或“/”没有结束"_s, token.at};
    }
    for (const auto &[shape, kind] : {std::pair(&path, TokenKind::Path), std::pair(&number, TokenKind::Number),
                                      std::pair(&word, TokenKind::Word), std::pair(&sign, TokenKind::Sign)}) {
        if (const auto found = shape->match(m_text, m_at); found.hasMatch()) {
            m_at = found.capturedEnd();
            token.kind = kind;
            token.text = kind == TokenKind::Word ? inEnglish(found.captured()) : found.captured();
            return token;
        }
    }
    return {TokenKind::Wrong, u"“%1”看不懂"_s.arg(m_text.sliced(m_at, qMin(qsizetype(10), m_text.size() - m_at))),
            m_at};
}

std::vector<Token> Tokenizer::all() {
    std::vector<Token> tokens;
    do {
        tokens.push_back(next());
    } while (tokens.back().kind != TokenKind::End && tokens.back().kind != TokenKind::Wrong);
    return tokens;
}

} // namespace

std::vector<Token> tokensOf(QStringView condition) {
    return Tokenizer(condition).all();
}

} // namespace schema
