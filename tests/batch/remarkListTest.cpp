// The list of remarks against a model that filters and counts by visiting all of them.
#include "batch/remarkList.h"
#include "batch/refusedRecords.h"
#include "schema/schemaReader.h"
#include "support/dice.h"
#include "support/qtPrinters.h"
#include <set>

using namespace batch;
using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<const schema::Schema> smallSchema() {
    auto read = schema::readSchema(R"({"fields": {
        "100": {"label": "通用", "subfields": {"a": {"label": "代码", "positions": {
            "0": {"start": 0, "end": 0, "label": "类型", "codes": {"a": {"label": "甲"}, " ": {"label": "未用"}}}}}}},
        "200": {"label": "题名", "required": true, "indicator1": {"codes": {"0": {}, "1": {"label": "有"}}},
                "subfields": {"a": {"label": "正题名", "pattern": "^x"}, "b": {"repeatable": true}, "c": {"codes": "none"}}}},
        "rules": [{"class": "甲", "if": "200", "then": "100"}, {"class": "乙", "then": "101"}, {"then": "102"}]})");
    return std::make_shared<const schema::Schema>(std::move(read.value()));
}

struct Model {
    std::vector<Remark> all; // in the order of the list
    std::vector<SilencedRule> silenced;
    RemarkFilter filter;

    static bool silences(const SilencedRule &rule, const Remark &remark, const RuleBook &book) {
        return rule.key == book.keyOf(ruleOf(remark)) && (rule.tag.isEmpty() || rule.tag == remark.tag.text());
    }
    bool isSilenced(const Remark &remark, const RuleBook &book) const {
        return remark.kind != Kind::Unchecked &&
               std::ranges::any_of(silenced, [&](const SilencedRule &rule) { return silences(rule, remark, book); });
    }
    static bool passes(const Remark &remark, const RemarkFilter &filter) {
        return remark.level == filter.level.value_or(remark.level) &&
               ruleOf(remark) == filter.rule.value_or(ruleOf(remark)) && remark.tag == filter.tag.value_or(remark.tag);
    }
    QStringList shown(const RemarkFilter &by, const RuleBook &book) const {
        QStringList texts;
        for (const Remark &remark : all)
            if (!isSilenced(remark, book) && passes(remark, by))
                texts.append(remark.text);
        return texts;
    }
    std::vector<int> records(const RuleBook &book) const {
        std::set<int> records;
        for (const Remark &remark : all)
            if (remark.record >= 0 && !isSilenced(remark, book))
                records.insert(remark.record);
        return {records.begin(), records.end()};
    }
};

Remark anyRemark(Dice &dice, int number) {
    const Kind kind = dice.oneOf(std::array{Kind::Unchecked, Kind::Isbn, Kind::InStore, Kind::Format, Kind::Rule});
    Remark remark(dice.below(6) - 1, kind, dice.oneOf(std::array<QStringView, 4>{u"", u"200", u"010", u"ab"}), 0,
                  QString::number(number));
    remark.check = kind == Kind::Rule ? schema::Check::ExternalRule
                                      : dice.oneOf(std::array{schema::Check::UndefinedField, schema::Check::GivenUp});
    remark.rule = qint16(kind == Kind::Rule ? dice.below(2) : -1);
    remark.level = schema::Level(dice.below(3));
    return remark;
}

} // namespace

TEST(RemarkList, AgreesWithAModelAfterAnyActs) {
    const RuleBook book(smallSchema());
    Dice dice(3);
    for (int round = 0; round < 40; ++round) {
        RemarkList list(nullptr, book);
        Model model;
        for (int act = 0; act < 60; ++act) {
            const Remark some = anyRemark(dice, act);
            const SilencedRule rule{book.keyOf(ruleOf(some)), dice.below(2) ? some.tag.text() : QString()};
            switch (dice.below(6)) {
            case 0:
                if (dice.below(2))
                    model.silenced.push_back(rule);
                else
                    std::erase(model.silenced, rule);
                [[fallthrough]]; // the stored rules are those that are read
            case 1: {
                SilencedRules rules;
                for (const SilencedRule &each : model.silenced)
                    rules.add(each);
                list.silence(SilencedRules(rules.toTexts() + QStringList{u"?"_s, u"\t"_s}));
                break;
            }
            case 2:
                model.filter = {};
                if (dice.below(2))
                    model.filter.level = some.level;
                if (dice.below(2))
                    model.filter.rule = ruleOf(some);
                if (dice.below(2))
                    model.filter.tag = some.tag;
                list.setFilter(model.filter);
                break;
            case 3:
                list.sort();
                std::ranges::stable_sort(model.all, {}, &Remark::record);
                break;
            default:
                list.add(some);
                model.all.push_back(some);
            }
            QStringList shown;
            for (int row = 0; row < list.rowCount(); ++row) {
                shown.append(list.remark(row).text);
                ASSERT_EQ(list.rowOf(list.idOf(row)), row);
            }
            ASSERT_EQ(shown, model.shown(model.filter, book));
            ASSERT_EQ(list.records(), model.records(book));
            RemarkFilter level = model.filter, byRule = model.filter, tag = model.filter;
            level.level.reset();
            byRule.rule.reset();
            tag.tag.reset();
            ASSERT_EQ(list.byLevel().all, model.shown(level, book).size());
            level.level = some.level;
            const auto counted = [](const auto &choices, const auto &value) {
                const auto found = choices.of.find(value);
                return found == choices.of.end() ? 0 : found->second;
            };
            ASSERT_EQ(counted(list.byLevel(), some.level), model.shown(level, book).size());
            byRule.rule = ruleOf(some);
            ASSERT_EQ(counted(list.byRule(), ruleOf(some)), model.shown(byRule, book).size());
            tag.tag = some.tag;
            ASSERT_EQ(counted(list.byTag(), some.tag), model.shown(tag, book).size());
            ASSERT_EQ(list.count() - list.silencedCount(), model.shown({}, book).size());
        }
    }
}

TEST(RemarkList, IsEmptiedInShortSteps) {
    RemarkList list;
    for (int record = 0; record < 25'000; ++record)
        list.add(Remark(record, Kind::Isbn));
    int steps = 1;
    for (int left = list.count(); list.dropSome(); ++steps) {
        EXPECT_LE(left - list.count(), 10'000);
        left = list.count();
    }
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(steps, 3);
}

TEST(RefusedRecords, AreInTheOrderOfTheListAndRemain) {
    marc::PreReadStore store;
    store.setRows(3);
    const NotImported rest{.refused = {{2, u"重复"_s}, {store.rowCount(), u"不在了"_s}},
                           .leftOut = {{1, u"跳过"_s}, {-1, u"没有"_s}}};
    QStringList reasons;
    for (const marc::RefusedRecord &each : rest.inListOrder())
        reasons.append(each.reason);
    EXPECT_EQ(reasons.join(u' '), u"没有 跳过 重复 不在了"_s);
    reasons.clear();
    for (const Remark &remark : remarksOf(rest, store))
        reasons.append(remark.text);
    EXPECT_EQ(reasons.join(u' '), u"重复 跳过"_s);
}

TEST(RuleBook, NamesAndExplainsFaults) {
    const RuleBook book(smallSchema());
    using schema::Check;
    const auto remark = [](Check check, qint16 tag, char16_t code = schema::noCode, qint8 indicator = 0,
                           qint16 start = -1, qint16 rule = -1) {
        return Remark(0, schema::Finding{.check = check,
                                         .rule = rule,
                                         .tag = tag,
                                         .indicator = indicator,
                                         .code = code,
                                         .start = start,
                                         .end = start,
                                         .value = u"乙"_s});
    };
    const auto rows = std::to_array<std::pair<Remark, QString>>({
        {Remark(0, Kind::Isbn), u"isbn ISBN 对照版权页改正010$a；书上就印错的，改记在010$z。"_s},
        {remark(Check::UndefinedCode, 100, u'a', 0, 0),
         u"undefinedCode 未定义的代码 改成可用的一个。100$a第0位 类型。可用：空格 未用；a 甲"_s},
        {remark(Check::InvalidIndicator, 200, schema::noCode, 1),
         u"invalidIndicator 指示符 改成可用的一个；空位在表格里写作#。200 题名，指示符1。可用：0；1 有"_s},
        {remark(Check::UndefinedSubfield, 200, u'z'),
         u"undefinedSubfield 未定义的子字段 看看子字段代码有没有打错。200 题名。可用：$a 正题名；$b；$c"_s},
        {remark(Check::PatternMismatch, 200, u'a'),
         u"patternMismatch 形式不合 照规定的形式改写。200$a 正题名：不可重复。形式：^x"_s},
        {remark(Check::UndefinedCodelist, 200, u'c'),
         u"undefinedCodelist 代码表缺失 所引用的代码表不在模式里，没有检查。把它加进模式。200$c：不可重复。"_s},
        {remark(Check::MissingField, 200), u"missingField 缺必备字段 补上这个字段。200 题名：必备，不可重复。"_s},
        {remark(Check::ExternalRule, 100, schema::noCode, 0, -1, 0),
         u"rule:甲 甲 字段之间的规则。不合本馆做法的，可以在模式里改，或“不再提示”。要求：若 200，则 100"_s},
        {remark(Check::ExternalRule, 102, schema::noCode, 0, -1, 2),
         u"rule:第3条规则 第3条规则 字段之间的规则。不合本馆做法的，可以在模式里改，或“不再提示”。要求：102"_s},
    });
    for (const auto &[each, expected] : rows) {
        const QString key = book.keyOf(ruleOf(each));
        EXPECT_EQ(QString(key + u' ' + book.labelOfKey(key) + u' ' + book.explanationOf(each)), expected);
    }
    EXPECT_EQ(book.labelOfKey(u"rule:从前的"_s), u"从前的"_s);
}
