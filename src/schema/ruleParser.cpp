#include "schema/ruleParser.h"
#include "schema/recordView.h"
#include "schema/ruleTokens.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace schema {

namespace {

constexpr qsizetype longest = 2000; // characters of a condition
constexpr int deepest = 30;         // parentheses and "not" within one another

struct Name {
    QStringView text;
    Operand::Kind kind;
};

constexpr auto functions = std::to_array<Name>({
    {u"count", Operand::Kind::Count},
    {u"length", Operand::Kind::Length},
    {u"year", Operand::Kind::Year},
    {u"isbn", Operand::Kind::Isbn},
    {u"isbns", Operand::Kind::Isbns},
});

constexpr auto constants = std::to_array<Name>({
    {u"today", Operand::Kind::Today},
    {u"thisyear", Operand::Kind::ThisYear},
});

struct Comparison {
    QStringView sign;
    Condition::Kind kind;
};

constexpr auto comparisons = std::to_array<Comparison>({
    {u"=", Condition::Kind::Equal},
    {u"!=", Condition::Kind::NotEqual},
    {u"<", Condition::Kind::Less},
    {u"<=", Condition::Kind::LessOrEqual},
    {u">", Condition::Kind::Greater},
    {u">=", Condition::Kind::GreaterOrEqual},
});

bool hasFlatTag(const Path &path) {
    return path.firstTag == leaderTag || path.lastTag < firstDataTag;
}

bool comparesWholeField(const Operand &operand) {
    return operand.kind != Operand::Kind::Count && std::ranges::any_of(operand.paths, [](const Path &path) {
               return path.part == Path::Part::Field && !hasFlatTag(path);
           });
}

// Reads a path whose form the tokens guarantee.
Path pathOf(QStringView text, const Path *each) {
    Path path;
    path.firstTag = tagNumber(QString(text.first(3).toString()).replace(u'X', u'0'));
    path.lastTag = tagNumber(QString(text.first(3).toString()).replace(u'X', u'9'));
    if (const qsizetype slash = text.indexOf(u'/'); slash >= 0) {
        const QStringView range = text.sliced(slash + 1);
        const qsizetype hyphen = range.indexOf(u'-');
        path.start = range.first(hyphen < 0 ? range.size() : hyphen).toInt();
        path.end = hyphen < 0 ? path.start : range.sliced(hyphen + 1).toInt();
        text = text.first(slash);
    }
    if (text.size() > 4 && text[3] == u'^') {
        path.part = Path::Part::Indicator;
        path.indicator = text[4].unicode() - u'1';
    } else if (text.size() > 4) {
        path.part = text[4] == u'*' ? Path::Part::AnySubfield : Path::Part::Subfield;
        path.code = text[4].unicode();
    }
    path.ofCurrentField = each && path.firstTag == each->firstTag && path.lastTag == each->lastTag;
    return path;
}

class Parser {
public:
    Parser(const QString &text, const Path *each)
        : m_tokens(tokensOf(text))
        , m_each(each) {}

    platform::Result<Condition> condition();

private:
    const Token &token() const { return m_tokens[m_at]; }
    bool isWord(QStringView word) const { return token().kind == TokenKind::Word && token().text == word; }
    bool take(TokenKind kind, QStringView text);
    void refuse(const QString &reason);

    Condition anyOf();
    Condition allOf();
    Condition single();
    Condition nested(Condition::Kind kind);
    Condition comparison();
    void finish(Condition &condition);
    Operand operand(bool onTheRight);
    Paths paths();

    std::vector<Token> m_tokens;
    size_t m_at = 0;
    const Path *m_each;
    int m_depth = 0;
    QString m_fault;
};

platform::Result<Condition> Parser::condition() {
    Condition all = anyOf();
    if (token().kind != TokenKind::End)
        refuse(u"这里应当结束，或接and、or"_s);
    if (!m_fault.isEmpty())
        return platform::Failure{m_fault};
    return all;
}

// Keeps the first reason; the other functions then return without a result.
void Parser::refuse(const QString &reason) {
    if (m_fault.isEmpty())
        m_fault = u"第%1个字符：%2"_s.arg(token().at + 1).arg(token().kind == TokenKind::Wrong ? token().text : reason);
}

bool Parser::take(TokenKind kind, QStringView text) {
    if (token().kind != kind || token().text != text)
        return false;
    ++m_at;
    return true;
}

Condition Parser::anyOf() {
    Condition first = allOf();
    if (!isWord(u"or"))
        return first;
    Condition any{.kind = Condition::Kind::Or};
    any.parts.push_back(std::move(first));
    while (m_fault.isEmpty() && take(TokenKind::Word, u"or"))
        any.parts.push_back(allOf());
    return any;
}

Condition Parser::allOf() {
    Condition first = single();
    if (!isWord(u"and"))
        return first;
    Condition all{.kind = Condition::Kind::And};
    all.parts.push_back(std::move(first));
    while (m_fault.isEmpty() && take(TokenKind::Word, u"and"))
        all.parts.push_back(single());
    return all;
}

Condition Parser::single() {
    if (take(TokenKind::Word, u"not"))
        return nested(Condition::Kind::Not);
    if (take(TokenKind::Sign, u"("))
        return nested(Condition::Kind::And);
    return comparison();
}

// The condition after "not", or, for And, the one in parentheses.
Condition Parser::nested(Condition::Kind kind) {
    Condition outer{.kind = kind};
    if (++m_depth > deepest) {
        refuse(u"括号或not太多层"_s);
        return outer;
    }
    outer.parts.push_back(kind == Condition::Kind::Not ? single() : anyOf());
    if (kind == Condition::Kind::And && !take(TokenKind::Sign, u")"))
        refuse(u"缺少“)”"_s);
    --m_depth;
    return outer;
}

Condition Parser::comparison() {
    Condition made;
    made.every = take(TokenKind::Word, u"every");
    made.left = operand(false);
    if (m_fault.isEmpty())
        finish(made);
    if (made.kind == Condition::Kind::Present) {
        if (made.every || made.left.kind != Operand::Kind::Values)
            refuse(u"这里应有比较"_s);
    } else if (comparesWholeField(made.left) || comparesWholeField(made.right)) {
        --m_at;
        refuse(u"比较时应写明子字段，如200$a"_s);
    }
    return made;
}

// Reads the operator and what follows it; without an operator the condition is that of presence.
void Parser::finish(Condition &condition) {
    for (const Comparison &row : comparisons) {
        if (take(TokenKind::Sign, row.sign)) {
            condition.kind = row.kind;
            condition.right = operand(true);
            return;
        }
    }
    condition.negated = token().text == u"!~";
    if (take(TokenKind::Sign, u"~") || take(TokenKind::Sign, u"!~")) {
        condition.kind = Condition::Kind::Matches;
        auto pattern = Pattern::compile(token().text);
        if (token().kind != TokenKind::Pattern || !pattern)
            return refuse(pattern ? u"这里应有 /正则表达式/"_s : pattern.failure().description);
        condition.pattern = std::make_shared<const Pattern>(std::move(pattern.value()));
        ++m_at;
    } else if (take(TokenKind::Word, u"in")) {
        condition.kind = Condition::Kind::In;
        condition.right = operand(true);
        if (condition.right.kind != Operand::Kind::Values && condition.right.kind != Operand::Kind::Text)
            refuse(u"in后面应为子字段或文字"_s);
    } else if (take(TokenKind::Word, u"is")) {
        condition.kind = Condition::Kind::Is;
        condition.predicate = token().kind == TokenKind::Word ? predicateNamed(token().text) : nullptr;
        if (!condition.predicate)
            return refuse(u"is后面没有“%1”这个名称"_s.arg(token().text));
        ++m_at;
    }
}

Operand Parser::operand(bool onTheRight) {
    const Token first = token();
    Operand made;
    const auto named = [&first](const Name &name) { return first.kind == TokenKind::Word && name.text == first.text; };
    // On the right, three digits alone are a number, unless they are the tag of a flat field.
    const bool isNumber =
        first.kind == TokenKind::Number || (onTheRight && first.kind == TokenKind::Path && first.text.size() == 3 &&
                                            first.text[0].isDigit() && !first.text.startsWith(u"00"));
    if (const auto function = std::ranges::find_if(functions, named); function != functions.end()) {
        ++m_at;
        made.kind = function->kind;
        if (!take(TokenKind::Sign, u"("))
            refuse(u"缺少“(”"_s);
        made.paths = paths();
        if (m_fault.isEmpty() && !take(TokenKind::Sign, u")"))
            refuse(u"缺少“)”"_s);
    } else if (const auto constant = std::ranges::find_if(constants, named); constant != constants.end()) {
        ++m_at;
        made.kind = constant->kind;
    } else if (isNumber || first.kind == TokenKind::Text) {
        ++m_at;
        made.kind = Operand::Kind::Text;
        made.text = first.text;
    } else {
        made.paths = paths();
    }
    return made;
}

Paths Parser::paths() {
    Paths read;
    do {
        if (token().kind != TokenKind::Path) {
            refuse(u"这里应有字段，如200或200$a"_s);
            break;
        }
        read.push_back(pathOf(token().text, m_each));
        if (read.back().start > read.back().end)
            refuse(u"字符位的起止颠倒了"_s);
        ++m_at;
    } while (take(TokenKind::Sign, u","));
    return read;
}

} // namespace

platform::Result<Condition> parseCondition(const QString &text, const Path *each) {
    if (text.size() > longest)
        return platform::Failure{u"条件太长"_s};
    return Parser(text, each).condition();
}

} // namespace schema
