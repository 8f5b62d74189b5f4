// Writes COUNT generated records, each followed by CR LF; with --supplier in the forms in which suppliers send them.
// Usage: makeRecords COUNT FILE [SEED] [--supplier]
#include "tools/supplierForms.h"
#include <QFile>
#include <QStringList>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool writeRecords(QFile &file, qint64 records, quint64 seed, bool asSupplier) {
    constexpr qsizetype blockSize = 1 << 20;
    tools::RecordGenerator generator(seed);
    tools::SupplierForms forms(seed);
    QByteArray block;
    block.reserve(blockSize + 4096);
    for (qint64 i = 0; i < records; ++i) {
        const QByteArray &record = generator.next();
        block.append(asSupplier ? forms.apply(record) : QByteArrayView(record)).append("\r\n");
        if (block.size() < blockSize && i + 1 < records)
            continue;
        if (file.write(block) != block.size())
            return false;
        block.resize(0);
    }
    return file.flush();
}

} // namespace

int main(int count, char **arguments) {
    QStringList given;
    for (int i = 1; i < count; ++i)
        given.append(QString::fromLocal8Bit(arguments[i]));
    const bool asSupplier = given.removeAll(u"--supplier"_s) > 0;
    bool isNumber = given.size() == 2 || given.size() == 3;
    const qint64 records = isNumber ? given[0].toLongLong(&isNumber) : 0;
    const quint64 seed = isNumber && given.size() == 3 ? given[2].toULongLong(&isNumber) : 1;
    if (!isNumber || records < 0) {
        std::fprintf(stderr, "usage: makeRecords COUNT FILE [SEED] [--supplier]\n");
        return 2;
    }
    QFile file(given[1]);
    if (file.open(QIODevice::WriteOnly) && writeRecords(file, records, seed, asSupplier))
        return 0;
    std::fprintf(stderr, "%s: %s\n", qPrintable(given[1]), qPrintable(file.errorString()));
    return 1;
}
