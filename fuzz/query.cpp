// The logic of the query dialogs under arbitrary sequences of presses, applied to two builders: one with the values of
// the input, one with harmless values. If no value contains an apostrophe, the results differ only in their literals.
#include "app/startUp.h"
#include "catalogue/listStatements.h"
#include "catalogue/queryBuilder.h"
#include "database/sqlDialect.h"
#include "fuzz/apart.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace catalogue;
using database::Server;

namespace fuzz {

namespace {

constexpr auto servers =
    std::to_array<Server>({Server::Sqlite, Server::PostgreSql, Server::MariaDb, Server::SqlServer});

struct Pair {
    explicit Pair(const QueryRules &rules)
        : real(rules)
        , harmless(rules) {
        for (QueryBuilder *builder : {&real, &harmless})
            require(builder
                        ->load(u"bookname,author,bookcount,catatime"_s, u"书名,著者,册数,入库日期"_s,
                               u"字符,字符,数字,日期"_s)
                        .ok(),
                    "the four fields can be loaded");
    }
    QueryBuilder real;
    QueryBuilder harmless;
    QStringList values; // values of text fields as the server should read them
    bool torn = false;  // a value contains an apostrophe, which is not escaped
};

void addCondition(Pair &pair, Input &input) {
    const int field = input.below(5) - (input.byte() == 255);
    const bool known = field >= 0 && field < pair.real.fieldDefs().size();
    const FieldType type = known ? pair.real.fieldDefs()[field].fieldType : FieldType::Text;
    const QStringList offered = operatorsOf(type);
    const QString sign = offered[input.below(int(offered.size()))];
    const QString value = type == FieldType::Number ? input.number() : input.text();
    if (!pair.real.addCondition(field, sign, value))
        return;
    const bool number = type == FieldType::Number;
    const auto ofNumber = [](QChar c) { return (c >= u'0' && c <= u'9') || QStringView(u"+-. ").contains(c); };
    require(!number || std::ranges::all_of(value, ofNumber), "text outside the literals is a number");
    require(pair.harmless.addCondition(field, sign, number ? value : u"v"_s), "any text is accepted as a condition");
    pair.torn = pair.torn || value.contains(u'\'');
    if (type == FieldType::Text)
        pair.values.append(sign == u"包含" ? QString(u'%' + value + u'%') : value);
}

void checkStatements(Pair &pair) {
    const Query real = pair.real.findData();
    const Query harmless = pair.harmless.findData();
    require(real.order == harmless.order, "values do not affect the sort order");
    if (pair.torn)
        return;
    for (auto *statement : {catalogueStatement, storeStatement, deleteAllStatement}) {
        const QString text = statement(real.condition.sql, real.order);
        const QString model = statement(harmless.condition.sql, harmless.order);
        require(apart(text).outside == apart(model).outside, "typed values appear only in literals");
        for (const Server server : servers) {
            const Apart spelled = apart(database::rewrite(text, server, app::tableNames()));
            require(spelled.outside == apart(database::rewrite(model, server, app::tableNames())).outside,
                    "the text outside the literals does not depend on values");
            for (const QString &value : pair.values)
                require(spelled.literals.contains(value), "a value reaches the server as it was typed");
        }
    }
}

// Performs one press on both builders.
void press(Pair &pair, Input &input) {
    constexpr auto labels = std::to_array<QStringView>({u"书名", u"著者", u"册数", u"入库日期", u"", u"别的"});
    const int what = input.below(8);
    const QString label = input.oneOf(labels).toString();
    const bool ascending = input.flag();
    if (what < 4)
        return addCondition(pair, input);
    for (QueryBuilder *builder : {&pair.real, &pair.harmless}) {
        if (what == 4)
            builder->merge();
        else if (what == 5)
            builder->addSortTerm(label, ascending);
        else if (what == 6 && label.isEmpty())
            builder->clear();
        else
            builder->chooseField(label.size());
    }
    if (what == 6 && label.isEmpty()) {
        pair.values.clear();
        pair.torn = false;
    }
}

} // namespace

void query(QByteArrayView bytes) {
    Input input(bytes);
    Pair pair(input.flag() ? catalogueRules : storeRules);
    for (int presses = 0; presses < 40 && !input.atEnd(); ++presses)
        press(pair, input);
    checkStatements(pair);
}

} // namespace fuzz
