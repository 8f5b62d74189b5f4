// Conditions, groups and sort terms of the query dialogs, and the statements built from them.
#include "catalogue/queryBuilder.h"
#include "support/qtPrinters.h"

using namespace catalogue;

namespace {

enum Field { Bookname, Author, Isbn, Count, Catatime };

class QueryBuilderTest : public testing::Test {
protected:
    QueryBuilderTest() {
        EXPECT_TRUE(builder.load(u"bookname,author,isbn,bookcount,catatime"_s, u"书名,著者,ISBN,册数,入库日期"_s,
                                 u"字符,字符,字符,数字,日期"_s));
    }
    QueryBuilder builder{catalogueRules};
};

TEST_F(QueryBuilderTest, ComposesAFragmentForEachTypeAndOperator) {
    const std::tuple<Field, QString, QString, QString> rows[] = {
        {Bookname, u"等于"_s, u"红楼梦"_s, u"bookname='红楼梦'"_s},
        {Bookname, u"不等于"_s, u" a "_s, u"bookname<>' a '"_s},
        {Bookname, u"包含"_s, u"abc"_s, u"bookname Like '%abc%'"_s},
        {Author, u"等于"_s, u"O'Neill"_s, u"author='O'Neill'"_s},
        {Count, u"不小于"_s, u" -2.5"_s, u"bookcount>= -2.5"_s},
        {Count, u"大于"_s, u"1e3"_s, {}},
        {Catatime, u"等于"_s, u"2005-03-__"_s, u"Convert(varchar(10),catatime,111) Like '2005/03/__'"_s},
        {Catatime, u"不等于"_s, u"2005-03-__"_s, u"Convert(varchar(10),catatime,111) <>'2005/03/__'"_s},
        {Catatime, u"大于"_s, u"2005-__-__"_s, u"Convert(varchar(10),catatime,111) >'2005/99/99'"_s},
        {Catatime, u"不小于"_s, u"2005-1_-__"_s, u"Convert(varchar(10),catatime,111) >='2005/10/00'"_s},
        {Catatime, u"小于"_s, u"2005-__-__"_s, u"Convert(varchar(10),catatime,111) <'2005/00/00'"_s},
        {Catatime, u"不大于"_s, u"2005-02-__"_s, u"Convert(varchar(10),catatime,111) <='2005/02/99'"_s},
        {Catatime, u"等于"_s, u"____-__-__"_s, {}},
        {Bookname, u"等于"_s, u""_s, {}},
    };
    for (const auto &[field, fuhao, value, sql] : rows) {
        builder.clear();
        EXPECT_EQ(builder.addCondition(field, fuhao, value), !sql.isNull()) << value.toStdString();
        EXPECT_EQ(builder.curSql(), sql);
    }
    for (const int none : {-1, 5})
        EXPECT_FALSE(builder.addCondition(none, u"等于"_s, u"a"_s));
}

TEST_F(QueryBuilderTest, JoinsConditionsAndGroups) {
    const auto add = [&](Field field, const QString &value) { builder.addCondition(field, u"等于"_s, value); };
    add(Bookname, u"a"_s);
    add(Author, u"b"_s);
    EXPECT_EQ(builder.findData().condition.sql, u"bookname='a' And author='b'"_s);
    EXPECT_EQ(builder.signSql(), u"书名'等于'a;著者'等于'b"_s);

    builder.merge();
    builder.merge(); // nothing left to merge
    EXPECT_EQ(builder.findData().condition.sql, u"(bookname='a' And author='b')"_s);
    EXPECT_EQ(builder.totalSql(), QStringList{u"书名'等于'a;著者'等于'b"_s});
    EXPECT_EQ(builder.signSql() + builder.curSql(), QString());

    add(Isbn, u"c"_s);
    EXPECT_EQ(builder.findData().condition.sql, u"(bookname='a' And author='b') OR (isbn='c')"_s);
    builder.merge();
    EXPECT_EQ(builder.unionSql(), u"(bookname='a' And author='b') OR (isbn='c')"_s);
}

TEST_F(QueryBuilderTest, SortsByAFieldOnceAndForgetsAllOnClear) {
    EXPECT_TRUE(builder.addSortTerm(u"书名"_s, true) && builder.addSortTerm(u"入库日期"_s, false));
    EXPECT_FALSE(builder.addSortTerm({}, true));
    EXPECT_EQ(builder.findData().order, u"bookname Asc,catatime Desc"_s);
    EXPECT_EQ(builder.lOrderby(), u"'书名'升;'入库日期'降"_s);
    EXPECT_EQ(builder.sortLabels(), (QStringList{u"著者"_s, u"ISBN"_s, u"册数"_s}));

    builder.addCondition(Bookname, u"等于"_s, u"a"_s);
    builder.merge();
    builder.clear();
    EXPECT_EQ(builder.sortLabels(), builder.labels());
    const Query query = builder.findData();
    EXPECT_EQ(query.condition.sql + query.condition.words + query.order + builder.lOrderby() +
                  builder.totalSql().join(u';'),
              QString());
}

TEST_F(QueryBuilderTest, ListsOperatorsAgainOnlyForAnotherType) {
    EXPECT_TRUE(builder.chooseField(Bookname) && !builder.chooseField(Author) && builder.chooseField(Catatime));
    EXPECT_FALSE(builder.chooseField(99));
    EXPECT_EQ(operatorsOf(FieldType::Text).join(u' '), u"等于 不等于 包含"_s);
    EXPECT_EQ(operatorsOf(FieldType::Date).join(u' '), u"等于 不等于 大于 不小于 小于 不大于"_s);
    builder.addCondition(Bookname, u"等于"_s, u"a"_s);
    builder.unload();
    EXPECT_TRUE(builder.chooseField(Catatime) && builder.signSql().isEmpty());
}

TEST(QueryRules, TheStoreDialogSupportsFewerFieldsAndNoDates) {
    const auto list = [](int count) { return QStringList(count, u"f"_s).join(u','); };
    QueryBuilder store(storeRules);
    ASSERT_TRUE(store.load(list(46), list(46), u"日期,数字"_s));
    EXPECT_EQ(store.fieldDefs().size(), 46);
    EXPECT_EQ(store.fieldDefs()[0].fieldType, FieldType::Text);
    EXPECT_EQ(store.fieldDefs()[1].fieldType, FieldType::Number);
    EXPECT_TRUE(!store.load(list(47), list(47), {}) && QueryBuilder(catalogueRules).load(list(47), list(47), {}));
}

} // namespace
