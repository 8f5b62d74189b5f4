#include "card/kapian.h"
#include "platform/numbers.h"
#include <algorithm>
#include <array>
#include <functional>

using namespace Qt::StringLiterals;
using platform::trimBlanks;

namespace card {

namespace {

// Full-width and half-width signs are mixed intentionally in these tables.
constexpr auto rules010 = std::to_array<Rule>({
    {u'a', u"\r\n  ISBN ", u"ISBN "},
    {u'b', u"（", u"（", u"）"},
    {u'd', u":", u":"},
    {u'z', u"\r\n  无效的ISBN:", u"无效的ISBN:"},
});

constexpr auto rules200 = std::to_array<Rule>({
    {u'a', u"，"},
    {u'c', u"，"},
    {u'd', u"＝"},
    {u'e', u"："},
    {u'f', u"／", u"", u"", Manner::ComplainAndDrop},
    {u'g', u"；", u"", u"", Manner::ComplainAndStart},
    {u'h', u"·"},
    {u'i', u"，"},
    {u'v', u"．"},
});

constexpr auto rules205 = std::to_array<Rule>({
    {u'a', u"", u"", u"", Manner::Replace, 0},
    {u'f', u"；", u"", u"", Manner::Join, 1},
});

constexpr auto rules206 = std::to_array<Rule>({{u'a', u"、"}});

constexpr auto rules207 = std::to_array<Rule>({{u'a', u"", u"·—", u"", Manner::Replace}});

constexpr auto rules208 = std::to_array<Rule>({
    {u'a', u"", u"", u"", Manner::Replace, 0},
    {u'd', u"=", u"", u"", Manner::Join, 1},
});

// Accumulator 0 is the publication, 1 the manufacture.
constexpr auto rules210 = std::to_array<Rule>({
    {u'a', u"；", u"", u"", Manner::Join, 0},
    {u'b', u"（", u"（", u")", Manner::Join, 0},
    {u'c', u"：", u"：", u"", Manner::Join, 0},
    {u'd', u"，", u"，", u"", Manner::Join, 0},
    {u'e', u"；", u"", u"", Manner::Join, 1},
    {u'f', u",", u"", u"", Manner::Join, 1},
    {u'g', u"：", u"", u"", Manner::Join, 1},
    {u'h', u"，", u"", u"", Manner::Join, 1},
});

constexpr auto rules215 = std::to_array<Rule>({
    {u'a', u"、", u"", u"", Manner::Join, 0},
    {u'c', u"", u"", u"", Manner::Replace, 1},
    {u'd', u"、", u"", u"", Manner::Join, 2},
    {u'e', u"、", u"", u"", Manner::Join, 3},
});

constexpr auto rules225 = std::to_array<Rule>({
    {u'a', u"，"},
    {u'd', u"＝"},
    {u'e', u"："},
    {u'f', u"／", u"", u"", Manner::DropFirst},
    {u'h', u"·"},
    {u'i', u"，"},
    {u'v', u"；"},
    {u'x', u"，"},
});

constexpr auto rules327 = std::to_array<Rule>({{u'a', u"·—"}});

constexpr auto rules686 = std::to_array<Rule>({{u'a', u","}});

template <size_t N>
constexpr bool codesDiffer(const std::array<Rule, N> &rules) {
    return std::ranges::adjacent_find(rules, std::ranges::greater_equal(), &Rule::code) == rules.end();
}
static_assert(codesDiffer(rules010) && codesDiffer(rules200) && codesDiffer(rules205) && codesDiffer(rules208));
static_assert(codesDiffer(rules210) && codesDiffer(rules215) && codesDiffer(rules225));

QString trimmed(Parts &parts) {
    return trimBlanks(parts[0]);
}

// Returns "·—" and the first accumulator, then `sign` and the second one if it is not empty. Returns an empty text if
// the first is empty.
QString dashed(const Parts &parts, QStringView sign) {
    if (parts[0].isEmpty())
        return {};
    return trimBlanks(parts[1].isEmpty() ? QString(u"·—" + parts[0]) : QString(u"·—" + parts[0] + sign + parts[1]));
}

QString finish206(Parts &parts) {
    return parts[0].isEmpty() ? QString() : QString(u"·—" + trimBlanks(parts[0]));
}

QString finish210(Parts &parts) {
    QString text = u"·—" + trimBlanks(parts[0]);
    if (!parts[1].isEmpty())
        text += u"（" + trimBlanks(parts[1]) + u"）";
    return text;
}

QString finish215(Parts &parts) {
    constexpr std::array<QStringView, 4> fronts = {u"", u"：", u"；", u"+"};
    QString text;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (!parts[i].isEmpty())
            text += fronts[i] + parts[i];
    }
    return text.isEmpty() ? text : QString(u"\r\n  " + text);
}

} // namespace

Piece Kapian010(QString &field) {
    return walk(field, rules010, trimmed);
}
Piece Kapian200(QString &field) {
    return walk(field, rules200, trimmed);
}
Piece Kapian205(QString &field) {
    return walk(field, rules205, [](Parts &parts) { return dashed(parts, u","); });
}
Piece Kapian206(QString &field) {
    return walk(field, rules206, finish206);
}
Piece Kapian207(QString &field) {
    return walk(field, rules207, trimmed);
}
Piece Kapian208(QString &field) {
    return walk(field, rules208, [](Parts &parts) { return dashed(parts, u"="); });
}
Piece Kapian210(QString &field) {
    return walk(field, rules210, finish210);
}
Piece Kapian215(QString &field) {
    return walk(field, rules215, finish215);
}
Piece Kapian225(QString &field) {
    return walk(field, rules225, trimmed);
}
Piece Kapian327(QString &field) {
    return walk(field, rules327, trimmed);
}
Piece Kapian686(QString &field) {
    return walk(field, rules686, trimmed);
}

} // namespace card
