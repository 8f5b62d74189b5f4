#include "batch/refusedRecords.h"
#include "batch/wholeFile.h"
#include "platform/codepage936.h"

namespace batch {

namespace {

constexpr qsizetype pieceSize = 1 << 20;

bool stands(const marc::RefusedRecord &refused, const marc::PreReadStore &records) {
    return refused.record >= 0 && refused.record < records.rowCount();
}

} // namespace

std::vector<Remark> remarksOf(const RefusedRecords &refused, const marc::PreReadStore &records) {
    std::vector<Remark> remarks;
    for (const marc::RefusedRecord &row : refused)
        if (stands(row, records))
            remarks.push_back({row.record, records.title(row.record), Kind::Refused, {}, 0, row.reason});
    return remarks;
}

platform::Status saveRefused(const QString &path, const RefusedRecords &refused, const marc::PreReadStore &records) {
    auto next = refused.begin();
    return writeWholeFile(path, [&] {
        QByteArray piece;
        for (; next != refused.end() && piece.size() < pieceSize; ++next)
            if (stands(*next, records))
                piece += platform::encode(records.record(next->record)) + "\r\n";
        return piece;
    });
}

} // namespace batch
