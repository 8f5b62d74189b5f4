#include "shippedFiles.h"
#include "support/qtPrinters.h"
#include "tools/recordGenerator.h"
#include <QCryptographicHash>
#include <QSet>
#include <gtest/gtest.h>

namespace {

QByteArray generated(quint64 seed, int count) {
    tools::RecordGenerator generator(seed);
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(generator.next()).append("\r\n");
    return bytes;
}

} // namespace

TEST(Generator, MakesWholeVariedRecordsOfRealisticSize) {
    const QList<QByteArray> records = recordLines(generated(3, 2000));
    QSet<QByteArray> titles;
    qsizetype bytes = 0;
    for (const QByteArray &record : records) {
        const RawFields read = checkedFields(record);
        ASSERT_EQ(read.fault, QString());
        for (const RawField &field : read.fields) {
            if (field.tag == "200")
                titles.insert(field.content);
        }
        bytes += record.size();
    }
    EXPECT_EQ(records.size(), 2000);
    EXPECT_GT(titles.size(), 1900);
    EXPECT_GT(bytes / records.size(), 700);
    EXPECT_LT(bytes / records.size(), 900);
}

// The sum was taken once; another one on some machine, or after a change, makes benchmarks incomparable.
TEST(Generator, GivesTheSameBytesForTheSameSeed) {
    const QByteArray sum = QCryptographicHash::hash(generated(1, 500), QCryptographicHash::Sha1).toHex();
    EXPECT_EQ(sum, QByteArray("f3284be1a9dd03a2a2116f331a3924d6c53452db"));
}
