#include "marc/recordSearch.h"
#include "platform/codepage936.h"
#include "support/dice.h"
#include "support/qtPrinters.h"

using namespace marc;

namespace {

std::vector<int> search(const PreReadStore &store, const QString &text, SearchPlace place = SearchPlace::WholeRecord) {
    RecordSearch search(store, text, place);
    while (search.step()) {
    }
    return search.hits();
}

} // namespace

// Searching bytes finds the same records as searching texts, even if the bytes match across two characters.
TEST(RecordSearch, FindsTheRecordsThatContainTheText) {
    const QString characters = u"aAzZ_啊丄丂A9@红楼梦\u0391\u03b1"_s; // the trail bytes of some are ASCII letters
    Dice dice(936);
    PreReadStore store;
    store.setRows(400);
    std::vector<QString> texts(400);
    for (int row = 0; row < 400; ++row) {
        for (qsizetype i = dice.below(12); i > 0; --i)
            texts[size_t(row)] += characters[dice.below(characters.size())];
        store.setRecord(row, texts[size_t(row)]);
    }
    store.setRecord(7, u"\u4dae红"_s); // stored as text, because it cannot be encoded
    texts[7] = u"\u4dae红"_s;
    for (int i = 0; i < 200; ++i) {
        QString wanted;
        for (qsizetype length = 1 + dice.below(3); length > 0; --length)
            wanted += characters[dice.below(characters.size())];
        std::vector<int> expected;
        for (int row = 0; row < 400; ++row)
            if (texts[size_t(row)].toLower().contains(wanted.toLower()))
                expected.push_back(row);
        EXPECT_EQ(search(store, wanted), expected) << wanted.toStdString();
    }
    EXPECT_EQ(search(store, u"\u4dae"_s), std::vector<int>{7});
    EXPECT_TRUE(search(store, {}).empty());
}

TEST(RecordSearch, StepsThroughTheHitsAroundTheEnd) {
    PreReadStore store;
    for (const int row : {2, 5, 11})
        store.setTitle(row, u"史记 Annals"_s);
    RecordSearch found(store, u"annals"_s, SearchPlace::Title);
    while (found.step()) {
    }
    QList<int> walk;
    for (const int row : {0, 2, 10, 11})
        walk << found.after(row) << found.before(row) << found.number(row);
    EXPECT_EQ(walk, (QList<int>{2, 11, 0, 5, 11, 1, 11, 5, 0, 2, 5, 3}));
    store.setRows(30);
    store.setTitle(29, u"annals"_s); // listed while the search runs
    while (found.step()) {
    }
    EXPECT_EQ(found.after(11), 29);
    EXPECT_EQ(RecordSearch(store, u"x"_s, SearchPlace::Title).after(3), -1);
}
