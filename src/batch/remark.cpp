#include "batch/remark.h"
#include "batch/bookIdentity.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

using schema::Level;

// A repeated field is an error only if the schema says so, see FormatProof: the table of "校对" is stricter than the
// format.
constexpr std::array<Level, kindCount> levels = {
    Level::Warning, Level::Error,   Level::Error, Level::Warning, Level::Error, Level::Error,   Level::Error,
    Level::Warning, Level::Warning, Level::Error, Level::Hint,    Level::Error, Level::Warning,
};

constexpr QStringView leaderRow = u"000"; // the leader's tag on the field grid

QString tagOf(const schema::Finding &finding) {
    if (finding.tag == schema::unknownTag)
        return finding.value;
    return finding.tag == schema::leaderTag ? leaderRow.toString() : schema::tagName(finding.tag);
}

} // namespace

schema::Level levelOf(Kind kind) {
    return levels[size_t(kind)];
}

Tag::Tag(QStringView text) {
    const qsizetype size = std::min(text.size(), qsizetype(m_characters.size()));
    std::copy_n(text.utf16(), size, m_characters.begin());
}

QString Tag::text() const {
    const auto end = std::ranges::find(m_characters, u'\0');
    return QStringView(m_characters.data(), end - m_characters.begin()).toString();
}

Remark::Remark(int record, Kind kind, QStringView tag, int fieldRow, QString text)
    : record(record)
    , fieldRow(fieldRow)
    , text(std::move(text))
    , tag(tag)
    , kind(kind)
    , level(levelOf(kind)) {}

Remark::Remark(int record, const schema::Finding &finding)
    : record(record)
    , fieldRow(finding.element >= 0 ? gridRow(finding.element) : 0)
    , text(finding.value)
    , tag(tagOf(finding))
    , kind(finding.rule >= 0 ? Kind::Rule : Kind::Format)
    , level(finding.level)
    , check(finding.check)
    , indicator(finding.indicator)
    , code(finding.code)
    , start(finding.start)
    , end(finding.end)
    , rule(finding.rule) {}

schema::Finding findingOf(const Remark &remark) {
    const QString tag = remark.tag.text();
    return {.level = remark.level,
            .check = remark.check,
            .rule = remark.rule,
            .tag = qint16(tag == leaderRow ? schema::leaderTag : schema::tagNumber(tag)),
            .indicator = remark.indicator,
            .code = remark.code,
            .start = remark.start,
            .end = remark.end,
            .element = remark.fieldRow > 0 ? remark.fieldRow - 1 : -1,
            .value = remark.text};
}

} // namespace batch
