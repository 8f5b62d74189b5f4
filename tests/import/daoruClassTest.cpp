// The key of an inserted row, if the server does not return it.
#include "import/daoruClass.h"
#include "support/databaseServers.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"

// An insert into a view with a trigger returns no key. The row is the one after the earlier keys, if it is the only one
// and holds the record; otherwise it may be that of another user.
TEST(Daoru, FindsTheKeyOfItsRowInTheStore) {
    const TestDatabase database;
    ScriptedHost host;
    platform::RunBoxes boxes(host);
    const auto import = [&](const QString &title, const QList<qint64> &earlier) {
        const auto done = importing::daoruRecord(recordOf(u"200=1 $a"_s + title), database.state, boxes, earlier);
        EXPECT_TRUE(done.wentIn) << done.fault.toStdString();
        return done.key.value_or(-1);
    };
    EXPECT_EQ(import(u"一"_s, {}), 1);
    const QString insert = u"insert into rows (bookname,marc) values (new.bookname,new.marc"_s;
    const QString trigger = u"create trigger put instead of insert on taoluTable begin "_s + insert;
    database.run(u"alter table taoluTable rename to rows; create view taoluTable as select * from rows"_s);
    auto connection = database.open();
    const auto rule = [&](const QString &end) {
        ASSERT_TRUE(connection.value().execute(u"drop trigger if exists put"_s));
        ASSERT_TRUE(connection.value().execute(trigger + end + u"); end"));
        database.endKeptLinks(); // a session still has the key of its last insert into a table
    };
    rule({});
    EXPECT_EQ(import(u"二"_s, {1}), 2);
    EXPECT_EQ(import(u"三"_s, {2, 1}), 3);
    EXPECT_EQ(import(u"四"_s, {}), -1) << "no key after which to search";
    EXPECT_EQ(import(u"五"_s, {3}), -1) << "the row 4 is another one";
    rule(u"||' '"_s);
    EXPECT_EQ(import(u"六"_s, {5}), -1) << "the row holds another record";
    EXPECT_EQ(database.column(u"select zskid from rows"_s).size(), 6);
}
