#include "marc/isoFields.h"
#include "marc/recordMaking.h"

using namespace marc;

TEST(IsoFields, DamagedDirectoriesAreRepairedOrRefused) {
    enum Directory { Right, Converted, Repaired, Refused };
    const QString text = recordOf(u"001=x|200=10$a甲$f乙|606=  $a丙|905=  $a丁"_s);
    const QByteArray good = platform::encode(text);
    const QByteArray other = platform::encode(recordOf(u"005=yz|210=  $c子丑寅|700= 0$a卯|995=  $a辰巳"_s));
    const auto replaced = [&](qsizetype at, const char *bytes) {
        return QByteArray(good).replace(at, qsizetype(qstrlen(bytes)), bytes);
    };
    const auto without = [&](qsizetype at, qsizetype count = 1) { return QByteArray(good).remove(at, count); };
    const auto swapped = [&]() -> QByteArray { // swaps the entries of 200 and 606
        return good.first(36) + good.sliced(48, 12) + good.sliced(36, 12) + good.sliced(60);
    };
    const std::tuple<const char *, QByteArray, Directory> rows[] = {
        {"undamaged", good, Right},
        {"no terminator", good.chopped(1), Right},
        {"wrapped", QByteArray(good).replace("\x1E", "\x1E\r\n").insert(30, '\n'), Right},
        {"wrapped and damaged", replaced(40, "80000500").insert(30, "\r\n"), Repaired},
        {"a line feed in a field", QByteArray(good).replace("\xB6\xA1", "a\n"), Right},
        {"lengths of another encoding", text.toUtf8(), Converted},
        {"entries in another order", swapped(), Right},
        {"a wrong length and start", replaced(40, "80000500"), Repaired},
        {"a digit of a length lost", without(41), Repaired},
        {"the last digit lost", without(71), Repaired},
        {"a byte too many", QByteArray(good).insert(52, 'x'), Repaired},
        {"an invalid start", replaced(43, "?????"), Repaired},
        {"a start twice", replaced(55, "00002"), Repaired},
        {"a length of 0", replaced(27, "0000"), Repaired},
        {"no tag", replaced(48, "6 6"), Refused},
        {"no tag before an invalid start", replaced(36, "2-0").replace(43, 5, "?????"), Refused},
        {"a byte too many in a tag", QByteArray(good).insert(50, 'x'), Refused},
        {"two bytes too many", QByteArray(good).insert(52, "xx"), Refused},
        {"a damaged tag", without(37), Refused},
        {"a whole entry missing", without(36, 12), Refused},
        {"two entries damaged differently", without(65).remove(53, 1), Refused},
        {"a field without its terminator", QByteArray(good).replace("\xB6\xA1\x1E", "\xB6\xA1"), Refused},
        {"no field terminator", QByteArray(good).replace('\x1E', ' '), Refused},
        {"a terminator in the leader", replaced(23, "\x1E"), Refused},
        {"shorter than a leader", "x\x1E\x1D", Refused},
        {"empty", "", Refused},
    };
    IsoFields fields;
    for (const auto &[what, bytes, directory] : rows) {
        ASSERT_TRUE(fields.take(other)); // its tags and texts must not be taken for those of the row
        ASSERT_EQ(fields.take(bytes), directory != Refused) << what;
        EXPECT_EQ(fields.directoryRight(), directory == Right) << what;
        if (directory == Refused)
            continue;
        EXPECT_EQ(fields.directoryDamaged(), directory == Repaired) << what;
        EXPECT_EQ(fields.leader(), QByteArrayView(good).first(24)) << what;
        if (bytes == swapped()) {
            EXPECT_EQ(fields.tags(), "001606200905");
            EXPECT_EQ(fields.data().first(10), QByteArrayView("x\x1E  \x1F"
                                                              "a\xB1\xFB\x1E"
                                                              "1"));
        } else {
            const QByteArray &data = directory == Converted || bytes.contains("a\n") ? bytes : good;
            EXPECT_EQ(fields.tags(), "001200606905") << what;
            EXPECT_EQ(fields.data(), QByteArrayView(data).sliced(73).chopped(1)) << what;
        }
    }
}
