#include "marc/preReadStore.h"
#include "marc/recordMaking.h"

using namespace marc;

TEST(PreReadStore, OnlyGrowsAndGivesBackTheTextWhateverTheBytesWere) {
    const std::pair<QString, QByteArray> cases[] = {
        {u"数据库\x1D"_s, platform::encode(u"数据库\x1D")},
        {u"\uFFFD\uFFFD\x1D"_s, "\xB0\xA1\x1D"}, // two lines, decoded apart
        {u"\uFFFDx"_s, "\xB0x"},
        {u"数据"_s, {}},
        {u"ก字"_s, {}}, // a character without a code
        {u""_s, {}},
    };
    PreReadStore store;
    for (const auto &[wanted, rows] : {std::pair(5, 20), std::pair(21, 21), std::pair(20, 21)}) {
        store.setRows(wanted);
        EXPECT_EQ(store.rowCount(), rows);
    }
    EXPECT_EQ(store.text(20, 0) + store.text(20, 1) + store.text(20, 2), u"");
    for (const auto &[text, bytes] : cases) {
        store.setRecord(0, text, bytes);
        EXPECT_EQ(store.record(0), text);
    }
}
