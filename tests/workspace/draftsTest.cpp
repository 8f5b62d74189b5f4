#include "workspace/drafts.h"
#include "support/testFolder.h"
#include <QDir>

using workspace::Drafts;

TEST(Drafts, AreOfferedForTheFileTheyBelongTo) {
    const TestFolder folder;
    const QString source = folder.file(u"书.iso"_s, "records");
    const QString record = u"00026题\x1f"
                           u"a\x1e\x1d\"\\"_s;
    {
        Drafts drafts(folder.path(), source);
        EXPECT_EQ(drafts.look(), Drafts::Found::Nothing);
        drafts.keep(3, record);
        drafts.keep(7, u"x"_s);
        drafts.keep(9, u"y"_s);
        drafts.forget(7);
        EXPECT_TRUE(drafts.unwritten());
        EXPECT_TRUE(drafts.write());
        drafts.keep(3, record);
        EXPECT_FALSE(drafts.unwritten()) << "the same once more";
    } // an end without a drop
    Drafts after(folder.path(), source);
    EXPECT_EQ(after.look(), Drafts::Found::OfThisFile);
    EXPECT_EQ(after.left().keys(), (QList<int>{3, 9}));
    EXPECT_EQ(after.left().value(3), record);

    folder.file(u"书.iso"_s, "other records");
    Drafts older(folder.path(), source);
    EXPECT_EQ(older.look(), Drafts::Found::OfAnOlderFile);
    older.keep(1, u"z"_s);
    EXPECT_TRUE(older.write());
    EXPECT_EQ(Drafts(folder.path(), source).look(), Drafts::Found::OfThisFile);
    older.drop();
    EXPECT_EQ(Drafts(folder.path(), source).look(), Drafts::Found::Nothing);
    EXPECT_TRUE(QFile::exists(older.keptPath()));

    folder.file(QFileInfo(older.keptPath()).completeBaseName(), "{\"records\":{\"a\":1,\"-1\":\"x\"");
    EXPECT_EQ(Drafts(folder.path(), source).look(), Drafts::Found::Nothing) << "damaged";
    Drafts nowhere({}, source);
    nowhere.keep(1, record);
    EXPECT_TRUE(nowhere.write());
    Drafts refused(folder.path(u"没有/"_s), source);
    refused.keep(1, record);
    EXPECT_FALSE(refused.write());
}
