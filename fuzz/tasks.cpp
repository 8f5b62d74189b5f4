// A task and a record. The input has two parts, separated by a record terminator; in the record, field terminators
// separate the fields, whose first three characters are the tag.
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "marc/isoWriter.h"
#include "platform/codepage936.h"
#include "tasks/stepWords.h"
#include "tasks/taskFile.h"
#include "tasks/taskRun.h"

using namespace Qt::StringLiterals;

namespace fuzz {

namespace {

marc::FieldedRecord recordOf(const QString &text) {
    marc::FieldedRecord record{u"00000nam0 2200000   450 "_s, {}};
    for (const QString &field : text.split(QChar(marc::fieldTerminator)))
        record.fields.push_back({field.left(3).leftJustified(3), field.mid(3)});
    return record;
}

platform::Result<tasks::TaskRun> prepared(const tasks::Task &task) {
    static const auto pinyin = std::make_shared<tasks::PinyinReader>(tasks::PinyinReader::open().value());
    return tasks::TaskRun::prepare(task, {QDate(2026, 1, 31), u"f.iso"_s, 1}, tasks::Fit::GbkRecord, pinyin);
}

void change(const tasks::Task &task, const marc::FieldedRecord &before) {
    auto run = prepared(task), again = prepared(task);
    require(run.ok() && again.ok(), "a task that can be read can be run");
    marc::FieldedRecord record = before, silent = before;
    const tasks::Outcome outcome = run.value().apply(record, {}, {.list = true});
    require(again.value().apply(silent).changed == outcome.changed && silent == record,
            "the result does not depend on the list of changes");
    require((record != before) == outcome.changed, "a record is changed only if that is reported");
    require(outcome.why.isEmpty() || !outcome.changed, "a record that cannot be changed stays as it was");
    require(!outcome.changed || !run.value().changes().empty(), "a change is listed");
    if (!outcome.changed)
        return;
    marc::IsoWriter writer;
    const bool couldBeWritten = writer.make(before).isEmpty();
    require(!couldBeWritten || writer.make(record).isEmpty(), "a changed record fits the format");
}

} // namespace

void tasks(QByteArrayView bytes) {
    const QList<QByteArray> parts = bytes.toByteArray().split(char(marc::recordTerminator));
    const auto read = tasks::readTask(parts[0]);
    if (!read) {
        require(!read.failure().description.isEmpty(), "a refused task has a reason");
        return;
    }
    const QByteArray written = tasks::writtenTask(read.value());
    const auto again = tasks::readTask(written);
    require(again.ok() && again.value() == read.value(), "a task is read as it was written");
    for (const tasks::Step &step : read.value().steps)
        require(!describe(step).isEmpty(), "a step has words");
    change(read.value(), recordOf(platform::decode(parts.value(1))));
}

} // namespace fuzz
