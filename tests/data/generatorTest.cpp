#include "support/qtPrinters.h"
#include "tools/recordGenerator.h"
#include <QCryptographicHash>

// The sum was taken once, of whole and varied records; another one on some machine, or after a change, makes
// benchmarks incomparable.
TEST(Generator, GivesTheSameBytesForTheSameSeed) {
    tools::RecordGenerator generator(1);
    QByteArray bytes;
    for (int i = 0; i < 500; ++i)
        bytes.append(generator.next()).append("\r\n");
    EXPECT_EQ(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex(),
              "f3284be1a9dd03a2a2116f331a3924d6c53452db");
}
