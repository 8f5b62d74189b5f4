#include "marc/configurationFiles.h"
#include "marc/fieldLookup.h"
#include "marc/preReadStore.h"
#include "marc/recordMaking.h"
#include "marc/recordWriter.h"
#include "support/dice.h"

using namespace marc;
using namespace std::string_literals;

namespace {

// Bytes that often look like a record or a configuration file: terminators, digits, halves of characters, line ends.
QByteArray nearlySense(Dice &dice) {
    static const std::string all =
        "\x1F,\x1F\x31,\x1E,\x1D,\r,\n,\r\n,\0,\xB0,\xB0\xA1,\xFF,\x80, ,#,$,a,[,],[200],-1,9,?,00049,"
        "0000,200001000000,410002000005,001-00100000,300xxxx99999"s;
    static const QList<QByteArray> pieces = QByteArray::fromStdString(all).split(',');
    QByteArray bytes = dice.below(3) ? QByteArray("00000nam0 2200049   450 ") : QByteArray();
    if (dice.below(2))
        bytes += dice.text<QByteArray>(pieces.last(5), 4) + "\x1E";
    return bytes + dice.text<QByteArray>(pieces, 60);
}

TEST(AnyBytes, AreReadShownAndRebuiltWithoutACrash) {
    Dice dice(3);
    const TestFolder folder;
    const QDateTime now(QDate(2026, 3, 9), QTime(8, 5, 7));
    for (int round = 0; round < 60; ++round) {
        QByteArray records;
        for (int i = 0; i < 100; ++i)
            records += nearlySense(dice) + "\x1D\r\n";
        const QString path = folder.file(u"records"_s, records);
        folder.file(descriptionFile.toString(), nearlySense(dice) + "\r\n[200]\r\n" + nearlySense(dice));
        folder.file(subfieldListFile.toString(), nearlySense(dice) + "\r\n[200]\r\n" + nearlySense(dice));
        auto reader = platform::LineReader::open(path);
        RecordCutter cutter(reader.value());
        PreReadStore store;
        while (cutter.next()) {
            const RawRecord record = cutter.record();
            ASSERT_EQ(record.indexOf(QChar(recordTerminator)), record.size() - 1);
            ASSERT_EQ(readZd(record, u"200a", {}), readZd(record, cutter.bytes(), u"200a", {}));
            store.setRecord(0, record, cutter.bytes());
            ASSERT_EQ(store.record(0), record);
            ShownRecord shown = showRecord(record);
            ASSERT_FALSE(shown.rows.isEmpty());
            fillDescriptions(shown.rows, folder.path());
            const RawRecord rebuilt = madeMyMarc(shown.rows, shown.leader, now);
            ASSERT_TRUE(shown.leader.size() < leaderLength || !showRecord(rebuilt).damaged)
                << brief(shown.rows).toStdString();
        }
        readSubfieldList(folder.path(), u"200"_s);
    }
}

} // namespace
