#include "proof/structuralProof.h"
#include <array>

using namespace Qt::StringLiterals;

namespace proof {

namespace {

enum class Kind { Required, Single }; // required fields must not be repeated either

struct Rule {
    QStringView tag;
    Kind kind;
};

// In the order of the report.
constexpr auto rules = std::to_array<Rule>({
    {u"000", Kind::Required}, {u"100", Kind::Required}, {u"101", Kind::Required}, {u"200", Kind::Required},
    {u"801", Kind::Required}, {u"005", Kind::Single},   {u"102", Kind::Single},   {u"105", Kind::Single},
    {u"106", Kind::Single},   {u"110", Kind::Single},   {u"120", Kind::Single},   {u"124", Kind::Single},
    {u"125", Kind::Single},   {u"126", Kind::Single},   {u"127", Kind::Single},   {u"131", Kind::Single},
    {u"140", Kind::Single},   {u"191", Kind::Single},   {u"207", Kind::Single},   {u"208", Kind::Single},
    {u"210", Kind::Single},   {u"211", Kind::Single},   {u"225", Kind::Single},   {u"317", Kind::Single},
    {u"322", Kind::Single},   {u"324", Kind::Single},   {u"325", Kind::Single},   {u"327", Kind::Single},
    {u"345", Kind::Single},   {u"518", Kind::Single},   {u"700", Kind::Single},   {u"710", Kind::Single},
    {u"720", Kind::Single},   {u"802", Kind::Single},
});
static_assert(rules.size() == 34);

constexpr size_t noTag = 1000;

// Returns the number of a tag of three digits, else noTag.
constexpr size_t numberOf(QStringView tag) {
    size_t number = tag.size() == 3 ? 0 : noTag;
    for (qsizetype i = 0; number < noTag && i < tag.size(); ++i)
        number = tag[i] >= u'0' && tag[i] <= u'9' ? number * 10 + (tag[i].unicode() - u'0') : noTag;
    return number;
}

constexpr qint8 noRule = -1;

// The indexes of the rules by tag number.
constexpr auto ruleOfTag = [] {
    std::array<qint8, noTag + 1> indexes{};
    indexes.fill(noRule);
    for (size_t i = 0; i < rules.size(); ++i)
        indexes[numberOf(rules[i].tag)] = qint8(i);
    return indexes;
}();

} // namespace

std::vector<Fault> proofFields(const marc::FieldRows &rows) {
    std::array<int, rules.size()> counts{};
    std::array<qsizetype, rules.size()> second{}; // element of the second occurrence
    for (qsizetype at = 0; at < rows.size(); ++at) {
        const qint8 rule = ruleOfTag[numberOf(rows[at].identifier)];
        if (rule != noRule && ++counts[size_t(rule)] == 2)
            second[size_t(rule)] = at;
    }
    std::vector<Fault> faults;
    for (size_t i = 0; i < rules.size(); ++i) {
        const bool isMissing = counts[i] == 0 && rules[i].kind == Kind::Required;
        if (!isMissing && counts[i] <= 1)
            continue;
        const QString tag = rules[i].tag.toString();
        if (isMissing)
            faults.push_back({FaultKind::Missing, tag, {}, tag + u"字段（必备字段）不存在！"});
        else
            faults.push_back({FaultKind::Repeated, tag, second[i], tag + u"字段（不可重复字段）重复！"});
    }
    return faults;
}

} // namespace proof
