// Any file tidied into each form: the result is complete, can be read, and does not change when it is tidied again.
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "marc/recordCutter.h"
#include "tidy/tidyRun.h"
#include <QFile>

using namespace Qt::StringLiterals;
using namespace tidy;

namespace fuzz {

namespace {

struct Tidied {
    TidyResult result;
    QByteArray bytes;
};

QByteArray takeContents(const QString &path) {
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    file.remove();
    return bytes;
}

std::optional<Tidied> tidied(QByteArrayView source, TargetForm form) {
    const TidyFiles files(scratchFolder() + u"tidied.iso");
    std::optional<TidyRun> run;
    run.emplace(scratchFile(u"untidy", source), files.target, form);
    bool good = run->open().ok();
    for (bool more = good; good && more;) {
        const auto stepped = run->step();
        good = stepped.ok();
        more = good && stepped.value();
    }
    good = good && run->close().ok();
    const TidyResult result = run->result();
    run.reset();
    require(good || files.existing().isEmpty(), "a failed run leaves no files");
    if (!good)
        return std::nullopt;
    require(result.in == result.out + result.unreadable.count, "each record is written or kept as unreadable");
    require(result.unreadable.count == 0 || QFile::exists(result.unreadableFile), "unusable records are kept");
    Tidied made{result, takeContents(result.target)};
    for (const QString &path : files.existing())
        QFile::remove(path);
    return made;
}

void requireRight(QByteArrayView record) {
    const auto number = [&](qsizetype at, qsizetype width) { return record.sliced(at, width).toInt(); };
    const qsizetype base = record.indexOf('\x1E') + 1;
    require(number(0, 5) == record.size() && number(12, 5) == base && (base - 25) % 12 == 0, "the leader is right");
    qsizetype end = base;
    for (qsizetype entry = 24; entry + 12 < base; entry += 12) {
        require(base + number(entry + 7, 5) == end, "a field begins where the one before it ends");
        end += number(entry + 3, 4);
        require(record[end - 1] == '\x1E', "a field ends with a terminator");
    }
    require(end == record.size() - 1, "only the record terminator follows the fields");
}

} // namespace

void tidy(QByteArrayView bytes) {
    if (const auto gbk = tidied(bytes, TargetForm::GbkIso)) {
        auto cutter = marc::RecordCutter::open(scratchFile(u"read", gbk->bytes));
        qint64 read = 0;
        for (; cutter.value().next(); ++read)
            requireRight(cutter.value().bytes());
        require(read == gbk->result.out, "the program reads every record written");
        const auto again = tidied(gbk->bytes, TargetForm::GbkIso);
        require(read == 0 || again, "a tidied file is a record file");
        if (again && again->result.encoding == marc::FileEncoding::Gbk)
            require(again->bytes == gbk->bytes && again->result.unreadable.count == 0,
                    "tidying a tidied file changes nothing");
    }
    // XML without a record is refused when it is read back.
    if (const auto xml = tidied(bytes, TargetForm::MarcXml); xml && xml->result.out > 0) {
        const auto back = tidied(xml->bytes, TargetForm::MarcXml);
        require(back && !back->result.broken && back->result.out == xml->result.out, "the XML is complete");
        require(back->bytes == xml->bytes, "tidying tidied XML changes nothing");
    }
    tidied(bytes, TargetForm::Utf8Iso);
}

} // namespace fuzz
