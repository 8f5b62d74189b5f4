// The keys of the books against a model that keeps all of them in order.
#include "batch/soughtBooks.h"
#include "support/dice.h"
#include <map>

using namespace batch;

TEST(KeyedList, FindsAllEntriesOfEachKeyHoweverManySlotsItHas) {
    struct Entry {
        quint64 key = 0;
        int next = -1;
    };
    KeyedList<Entry> list;
    std::map<quint64, std::set<int>> model;
    Dice dice(7);
    EXPECT_EQ(list.first(1), KeyedList<Entry>::none);
    for (int size = 1; size <= 1500; ++size) {
        const auto key = quint64(dice.below(3) ? dice.below(40) : dice.below(100'000)) << (dice.below(2) ? 0 : 33);
        list.add({.key = key});
        model[key].insert(size - 1);
        if (size > 40 && size % 61 != 0)
            continue;
        for (const auto &[each, entries] : model) {
            std::set<int> found;
            for (int at = list.first(each); at != KeyedList<Entry>::none; at = list.after(at))
                ASSERT_TRUE(found.insert(at).second);
            ASSERT_EQ(found, each == 0 ? std::set<int>() : entries) << each << " of " << size;
            ASSERT_TRUE(each == 0 || list.first(each) == *entries.begin()) << "not the one that was added first";
        }
    }
    EXPECT_EQ(list.first(100'001), KeyedList<Entry>::none);
}
