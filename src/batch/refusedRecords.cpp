#include "batch/refusedRecords.h"
#include "platform/byteFile.h"
#include "platform/codepage936.h"
#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

bool stands(const marc::RefusedRecord &refused, const marc::PreReadStore &records) {
    return refused.record >= 0 && refused.record < records.rowCount();
}

} // namespace

RefusedRecords NotImported::inListOrder() const {
    RefusedRecords all = refused;
    all.insert(all.end(), leftOut.begin(), leftOut.end());
    std::ranges::stable_sort(all, {}, &marc::RefusedRecord::record);
    return all;
}

QString NotImported::words() const {
    const QString skipped = leftOut.empty() ? QString() : u"，跳过查重命中的 %1 条"_s.arg(leftOut.size());
    return u"未成功 %1 条"_s.arg(refused.size()) + skipped;
}

std::vector<Remark> remarksOf(const NotImported &rest, const marc::PreReadStore &records) {
    std::vector<Remark> remarks;
    for (const auto &[rows, kind] : {std::pair(&rest.refused, Kind::Refused), {&rest.leftOut, Kind::LeftOut}})
        for (const marc::RefusedRecord &row : *rows)
            if (stands(row, records))
                remarks.emplace_back(row.record, kind, QString(), 0, row.reason);
    return remarks;
}

RefusedRecords duplicatesIn(const RemarkList &remarks) {
    std::map<int, QString> found;
    for (const Remark &remark : remarks.all())
        if (remark.kind == Kind::InStore) {
            QString &reason = found[remark.record];
            reason += (reason.isEmpty() ? u"没有导入："_s : u"；"_s) + remark.text;
        }
    RefusedRecords duplicates;
    for (const auto &[record, reason] : found)
        duplicates.push_back({record, reason});
    return duplicates;
}

platform::Status saveRefused(const QString &path, const RefusedRecords &refused, const marc::PreReadStore &records) {
    auto file = platform::SavedFile::create(path);
    if (!file)
        return file.failure();
    for (const marc::RefusedRecord &row : refused) {
        if (!stands(row, records))
            continue;
        const QByteArray line = platform::encode(records.record(row.record)) + "\r\n";
        if (const platform::Status written = file.value().write(line); !written)
            return written;
    }
    return file.value().commit();
}

} // namespace batch
