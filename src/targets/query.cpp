#include "targets/query.h"
#include "platform/codepage936.h"
#include "targets/isbnForms.h"
#include <algorithm>

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::Result;

namespace targets {

namespace {

constexpr qsizetype longestTerm = 1000; // characters

using Terms = std::vector<std::pair<Use, QStringList>>; // alternatives for each part

Terms termsOf(const Query &query) {
    Terms terms;
    const auto add = [&](Use use, const QStringList &alternatives) {
        if (!alternatives.isEmpty() && !alternatives.front().isEmpty())
            terms.emplace_back(use, alternatives);
    };
    add(Use::Isbn, isbnForms(normalizedTerm(query.isbn)));
    add(Use::Title, {normalizedTerm(query.title)});
    add(Use::Author, {normalizedTerm(query.author)});
    add(Use::Publisher, {normalizedTerm(query.publisher)});
    add(Use::Year, {normalizedTerm(query.year)});
    add(Use::Any, {normalizedTerm(query.words)});
    return terms;
}

// Escapes bytes, not characters: the second byte of a character in GBK may be a backslash, and the server reads bytes.
QByteArray quoted(const QString &term, const Target &target) {
    const QByteArray bytes = target.queryCharset == QueryCharset::Gbk ? platform::encode(term) : term.toUtf8();
    QByteArray text("\"");
    for (const char byte : bytes) {
        const bool isWildcard = !target.asksPqf() && (byte == '*' || byte == '?' || byte == '^');
        if (byte == '"' || byte == '\\' || isWildcard)
            text.append('\\');
        text.append(byte);
    }
    return text.append('"');
}

QByteArray pqfTerm(const QString &attributes, const QString &term, const Target &target) {
    QByteArray text;
    for (const QString &attribute : attributes.split(u' '))
        text.append("@attr ").append(attribute.toLatin1()).append(' ');
    return text.append(quoted(term, target));
}

QByteArray cqlTerm(const QString &index, const QString &term, const Target &target) {
    const QByteArray relation = index.contains(u' ') ? index.section(u' ', 1).toLatin1() : QByteArray("=");
    return index.section(u' ', 0, 0).toLatin1() + ' ' + relation + ' ' + quoted(term, target);
}

// PQF has operators in front of two operands.
QByteArray joinedPqf(const QByteArrayList &operands, const QByteArray &operation) {
    QByteArray text;
    for (qsizetype i = 1; i < operands.size(); ++i)
        text.append(operation).append(' ');
    return text.append(operands.join(' '));
}

} // namespace

bool Query::isEmpty() const {
    return termsOf(*this).empty();
}

QString normalizedTerm(const QString &term) {
    QString text = term;
    text.removeIf([](QChar c) {
        return (c.category() == QChar::Other_Control && !c.isSpace()) || c.category() == QChar::Other_Format;
    });
    return text.normalized(QString::NormalizationForm_C).simplified().left(longestTerm);
}

Result<QByteArray> composeQuery(const Query &query, const Target &target) {
    const Terms terms = termsOf(query);
    if (terms.empty())
        return Failure{u"请输入检索词！"_s};
    QByteArrayList parts;
    for (const auto &[use, alternatives] : terms) {
        const QString &attribute = attributeOf(target.attributes, use);
        if (attribute.isEmpty())
            return Failure{u"目标“%1”不能按%2检索"_s.arg(target.name, useNames[size_t(use)])};
        QByteArrayList choices;
        for (const QString &term : alternatives) {
            if (target.queryCharset == QueryCharset::Gbk && !platform::isEncodable(term))
                return Failure{u"目标“%1”的检索词用 GBK，“%2”里有 GBK 没有的字"_s.arg(target.name, term)};
            choices.append(target.asksPqf() ? pqfTerm(attribute, term, target) : cqlTerm(attribute, term, target));
        }
        if (target.asksPqf())
            parts.append(joinedPqf(choices, "@or"));
        else
            parts.append(choices.size() > 1 ? '(' + choices.join(" or ") + ')' : choices.front());
    }
    return target.asksPqf() ? joinedPqf(parts, "@and") : parts.join(" and ");
}

} // namespace targets
