#include "marc/preReadStore.h"
#include "marc/recordMaking.h"

using namespace marc;

namespace {

TEST(PreReadStore, StartsWithTwentyRowsAndGrows) {
    PreReadStore store;
    store.setRows(5);
    EXPECT_EQ(store.rowCount(), 20);
    store.setRows(21);
    EXPECT_EQ(store.rowCount(), 21);
    EXPECT_TRUE(store.isEmpty(20));
    store.setNumber(20, 21);
    store.setTitle(20, u"题名€"_s);
    store.setRecord(20, u"记录"_s);
    EXPECT_EQ(store.text(20, 0) + store.text(20, 1) + store.text(20, 2), u"21题名€记录"_s);
    EXPECT_FALSE(store.isEmpty(20));
    store.reset();
    EXPECT_EQ(store.rowCount(), 20);
    EXPECT_EQ(store.text(19, 0) + store.text(19, 1) + store.text(19, 2), u"");
}

TEST(PreReadStore, GivesBackTheTextWhateverTheBytesWere) {
    const std::pair<QString, QByteArray> cases[] = {
        {u"数据库\x1D"_s, platform::encode(u"数据库\x1D")},
        {u"\uFFFD\uFFFD\x1D"_s, "\xB0\xA1\x1D"}, // two lines, decoded apart
        {u"\uFFFDx"_s, "\xB0x"},
        {u"数据"_s, {}},
        {u"ก字"_s, {}}, // a character without a code
        {u""_s, {}},
    };
    PreReadStore store;
    for (const auto &[text, bytes] : cases) {
        store.setRecord(0, text, bytes);
        EXPECT_EQ(store.record(0), text);
        EXPECT_EQ(store.isEmpty(0), text.isEmpty());
    }
}

} // namespace
