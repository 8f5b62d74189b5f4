#include "database/sqlDialect.h"
#include "database/sqlTokens.h"
#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace database {

namespace {

bool isSame(QStringView name, QStringView other) {
    return name.size() == other.size() && name.compare(other, Qt::CaseInsensitive) == 0;
}

bool is(const Token &token, QStringView word) {
    return token.kind == TokenKind::Word && isSame(token.text, word);
}

bool isSign(const Token &token, QChar sign) {
    return token.kind == TokenKind::Sign && token.text[0] == sign;
}

// The rewritten statement: mostly unchanged pieces of the statement, which are copied in long runs.
class Output {
public:
    explicit Output(qsizetype room) { m_text.reserve(room); }

    qsizetype size() const { return m_text.size() + m_standing.size(); }
    // Appends a piece of the statement.
    void take(QStringView piece) {
        if (m_standing.isEmpty() || m_standing.end() != piece.begin()) {
            write();
            m_standing = piece;
        } else {
            m_standing = QStringView(m_standing.begin(), piece.end());
        }
    }
    // Returns the text so far, for changes.
    QString &text() {
        write();
        return m_text;
    }

private:
    void write() { m_text += std::exchange(m_standing, QStringView()); }

    QString m_text;
    QStringView m_standing; // a piece that is not yet appended
};

class Rewriter {
public:
    Rewriter(QStringView statement, const Spelling &spelling, const QStringList &tables)
        : m_spelling(spelling)
        , m_tables(tables)
        , m_tokens(tokensOf(statement)) {}

    QString whole() {
        const qsizetype first = skip(0);
        if (const std::optional<qsizetype> number = topNumber(first))
            return m_tokens[first].text + u' ' + part(skip(*number + 1), m_tokens.size()) +
                   m_spelling.first.toString().arg(m_tokens[*number].text);
        QString out = part(0, m_tokens.size());
        if (first < m_tokens.size() && is(m_tokens[first], u"insert"))
            if (const qsizetype next = skip(first + 1); next < m_tokens.size() && !is(m_tokens[next], u"into"))
                out.insert(m_tokens[first].text.end() - m_tokens[0].text.begin(), u" into"_s);
        return out;
    }

private:
    // Returns the first token from `at` on that is neither blank nor comment.
    qsizetype skip(qsizetype at) const {
        while (at < m_tokens.size() &&
               (m_tokens[at].kind == TokenKind::Blank || m_tokens[at].kind == TokenKind::Comment))
            ++at;
        return at;
    }

    // Returns the number of "select top n", whose "select" is the token `first`.
    std::optional<qsizetype> topNumber(qsizetype first) const {
        const qsizetype top = skip(first + 1);
        const qsizetype number = skip(top + 1);
        if (number >= m_tokens.size() || !is(m_tokens[first], u"select") || !is(m_tokens[top], u"top") ||
            !std::ranges::all_of(m_tokens[number].text, [](QChar sign) { return sign.isDigit(); }))
            return std::nullopt;
        return number;
    }

    QString part(qsizetype from, qsizetype to) {
        constexpr qsizetype roomForSpellings = 64;
        Output out(from < to ? m_tokens[to - 1].text.end() - m_tokens[from].text.begin() + roomForSpellings : 0);
        qsizetype operand = -1;      // start in `out` of the operand of a Like that may follow
        bool patternFollows = false; // a Like without its pattern yet
        for (qsizetype at = from; at < to; ++at) {
            const Token &token = m_tokens[at];
            if (is(token, u"like")) {
                fold(out.text(), operand);
                out.text() += m_spelling.like;
                patternFollows = true;
                continue;
            }
            if (token.kind == TokenKind::Word && !(at > from && isSign(m_tokens[at - 1], u'.')))
                operand = out.size();
            else if (token.kind != TokenKind::Word && token.kind != TokenKind::Blank && !isSign(token, u'.'))
                operand = -1;
            if (const std::optional<qsizetype> end =
                    is(token, u"convert") ? convert(at, to, out.text()) : std::nullopt) {
                at = *end;
                operand = -1;
                continue;
            }
            append(out, token);
            if (patternFollows && token.kind == TokenKind::Literal) {
                out.text() += m_spelling.after;
                patternFollows = false;
            }
        }
        return std::move(out.text());
    }

    // Wraps the name at the end of `out`, the operand of the Like that follows.
    void fold(QString &out, qsizetype operand) const {
        if (m_spelling.folded.isEmpty() || operand < 0)
            return;
        qsizetype end = out.size();
        while (end > operand && out[end - 1].isSpace())
            --end;
        const QString name = out.sliced(operand, end - operand);
        out.replace(operand, end - operand, m_spelling.folded.toString().replace(u"%1"_s, name));
    }

    void append(Output &out, const Token &token) const {
        if (token.kind == TokenKind::Word) {
            out.take(tableSpelling(token.text));
        } else if (token.kind == TokenKind::Bracket && token.text.endsWith(u']')) {
            QString name = token.text.sliced(1, token.text.size() - 2).toString();
            name.replace(u"]]"_s, u"]"_s).replace(m_spelling.quote, QString(2, m_spelling.quote));
            out.text() += m_spelling.quote + name + m_spelling.quote;
        } else {
            out.take(token.text);
        }
    }

    QStringView tableSpelling(QStringView word) const {
        const auto same = [word](QStringView table) { return isSame(table, word); };
        const auto own = std::ranges::find_if(m_tables, same);
        return own == m_tables.end() ? word : QStringView(*own);
    }

    // For convert(varchar(n),x[,111]), also with nvarchar: appends the server's spelling and returns the index of the
    // last token. Returns std::nullopt if the tokens at `at` are something else.
    std::optional<qsizetype> convert(qsizetype at, qsizetype to, QString &out) {
        const qsizetype open = skip(at + 1);
        const qsizetype type = skip(open + 1);
        const qsizetype typeOpen = skip(type + 1);
        const qsizetype length = skip(typeOpen + 1);
        const qsizetype typeClose = skip(length + 1);
        const qsizetype comma = skip(typeClose + 1);
        if (comma >= to || !isSign(m_tokens[open], u'(') ||
            !(is(m_tokens[type], u"varchar") || is(m_tokens[type], u"nvarchar")) || !isSign(m_tokens[typeOpen], u'(') ||
            !isSign(m_tokens[typeClose], u')') || !isSign(m_tokens[comma], u','))
            return std::nullopt;
        qsizetype close = comma + 1;
        qsizetype styleComma = 0;
        for (int depth = 0; close < to && !(depth == 0 && isSign(m_tokens[close], u')')); ++close) {
            depth += isSign(m_tokens[close], u'(') - isSign(m_tokens[close], u')');
            if (depth == 0 && isSign(m_tokens[close], u','))
                styleComma = close;
        }
        if (close >= to || (styleComma && !is(m_tokens[skip(styleComma + 1)], u"111")))
            return std::nullopt;
        const QString operand = part(comma + 1, styleComma ? styleComma : close).trimmed();
        QString spelling = (styleComma ? m_spelling.date : m_spelling.text).toString();
        spelling.replace(u"%2"_s, m_tokens[length].text.toString()).replace(u"%1"_s, operand);
        out += spelling;
        return close;
    }

    const Spelling &m_spelling;
    const QStringList &m_tables;
    Tokens m_tokens;
};

} // namespace

QString rewrite(const QString &statement, Server server, const QStringList &tables) {
    const Spelling &spelling = rowOf(server).spelling;
    return spelling.like.isEmpty() ? statement : Rewriter(statement, spelling, tables).whole();
}

} // namespace database
