#include "batch/recordDraw.h"
#include <algorithm>
#include <random>
#include <set>

using namespace Qt::StringLiterals;

namespace batch {

namespace {

QString lineOf(const Remark &remark, const RemarkList &remarks) {
    const QString tag = remark.tag.isEmpty() ? QString() : remark.tag.text() + u'　';
    return schema::nameOf(remark.level) + u'　' + tag + remarks.rules().wordsOf(remark);
}

} // namespace

std::vector<int> drawRows(const marc::PreReadStore &records, int rows, quint32 seed, int wanted) {
    std::vector<int> filled;
    rows = std::min(rows, records.rowCount());
    for (int row = 0; row < rows && int(filled.size()) <= wanted; ++row)
        if (!records.record(row).isEmpty())
            filled.push_back(row);
    if (int(filled.size()) <= wanted)
        return filled;
    // The distributions of the standard library differ between libraries; the generator does not.
    std::mt19937 lots(seed);
    std::set<int> drawn;
    while (int(drawn.size()) < wanted) {
        const auto row = int(quint64(lots()) * quint64(rows) >> 32);
        if (!records.record(row).isEmpty())
            drawn.insert(row);
    }
    return {drawn.begin(), drawn.end()};
}

RecordDraw drawRecords(const marc::PreReadStore &records, const RemarkList &remarks, int rows, quint32 seed) {
    RecordDraw draw{.seed = seed};
    for (const int row : drawRows(records, rows, seed))
        draw.records.push_back({row, records.title(row), {}});
    for (const Remark &remark : remarks.all()) {
        const auto drawn = std::ranges::lower_bound(draw.records, remark.record, {}, &DrawnRecord::record);
        if (drawn != draw.records.end() && drawn->record == remark.record && !remarks.isSilenced(remark))
            drawn->remarks.append(lineOf(remark, remarks));
    }
    return draw;
}

} // namespace batch
