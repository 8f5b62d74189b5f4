// Writes COUNT generated records, each followed by CR LF. Usage: makeRecords COUNT FILE [SEED]
#include "tools/recordGenerator.h"
#include <QFile>
#include <cstdio>

int main(int count, char **arguments) {
    bool isNumber = count == 3 || count == 4;
    const qint64 records = isNumber ? QByteArrayView(arguments[1]).toLongLong(&isNumber) : 0;
    const quint64 seed = isNumber && count == 4 ? QByteArrayView(arguments[3]).toULongLong(&isNumber) : 1;
    if (!isNumber || records < 0) {
        std::fprintf(stderr, "usage: makeRecords COUNT FILE [SEED]\n");
        return 2;
    }
    QFile file(QString::fromLocal8Bit(arguments[2]));
    bool good = file.open(QIODevice::WriteOnly);
    tools::RecordGenerator generator(seed);
    QByteArray block;
    constexpr qsizetype blockSize = 1 << 20;
    block.reserve(blockSize + 4096);
    for (qint64 i = 0; good && i < records; ++i) {
        block.append(generator.next()).append("\r\n");
        if (block.size() >= blockSize || i + 1 == records) {
            good = file.write(block) == block.size();
            block.resize(0);
        }
    }
    if (good && file.flush())
        return 0;
    std::fprintf(stderr, "%s: %s\n", arguments[2], qPrintable(file.errorString()));
    return 1;
}
