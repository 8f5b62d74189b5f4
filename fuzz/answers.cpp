// An answer of another library's catalogue, in each charset: the decoded record fits the forms of the program.
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "targets/batchJournal.h"
#include "targets/fieldComparison.h"
#include "targets/recordDecoder.h"
#include "targets/recordSummary.h"
#include "targets/takenRecords.h"
#include "targets/targetFile.h"
#include <QFile>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace targets;

namespace fuzz {

namespace {

bool isMark(QChar c) {
    return c == u'\u0098' || c == u'\u009C' || c == u'\n' || c == u'\r';
}

void requireClean(const marc::FieldedRecord &record) {
    require(record.leader.size() == marc::leaderLength && !record.fields.empty(), "a record has a leader and fields");
    for (const marc::Field &field : record.fields) {
        require(field.tag.size() == marc::tagLength, "a tag has three characters");
        require(std::ranges::none_of(field.content, isMark), "marks and line breaks are removed");
    }
}

void requireKept(const marc::FieldedRecord &record) {
    BatchJournal journal;
    const QString path = scratchFile(u"journal", {});
    Outcome outcome{.state = Outcome::State::Found, .target = u"t"_s, .record = record};
    require(journal.begin(path, {u"1"_s}).ok() && journal.add(0, outcome).ok(), "an outcome is written");
    const auto read = BatchJournal().resume(path);
    require(read.ok() && read.value().outcomes.front().record.fields.size() == record.fields.size(),
            "the journal gives the record back");
    const auto taken = writeTaken(scratchFolder(), QDate(2026, 1, 1), {&record, 1});
    require(taken.ok() == rowsOf(record).has_value(), "the grid shows what a file can hold");
    if (taken)
        QFile::remove(taken.value().path);
}

} // namespace

void answers(QByteArrayView bytes) {
    for (const auto charset :
         {RecordCharset::Automatic, RecordCharset::Utf8, RecordCharset::Gbk, RecordCharset::Marc8}) {
        const auto decoded = RecordDecoder(charset).decode(bytes);
        if (!decoded) {
            require(!decoded.failure().description.isEmpty(), "a refusal has a reason");
            continue;
        }
        const marc::FieldedRecord &record = decoded.value().record;
        requireClean(record);
        summaryOf(record);
        isbnsOf(record);
        require(essentialFields(record) <= int(essentialUnimarc.size()), "an essential field counts once");
        if (const auto rows = rowsOf(record)) {
            for (const ComparedField &row : compareFields(*rows, *rows))
                require(row.state() == ComparedField::State::Same, "a record equals itself");
        }
        if (charset == RecordCharset::Automatic)
            requireKept(record);
    }
    if (const auto list = parseTargets(bytes.toByteArray()))
        require(parseTargets(targetsAsJson(list.value(), Passwords::Kept)).value() == list.value(),
                "a list of targets is written as it was read");
}

} // namespace fuzz
