#include "workspace/recordReading.h"
#include "marc/recordReader.h"
#include "workspace/frmDaoru.h"

using namespace Qt::StringLiterals;

namespace workspace {

RecordReading::RecordReading(frmDaoru &form, platform::Host &host, RecordMoving &moving)
    : m_form(form)
    , m_host(host)
    , m_moving(moving) {}

std::optional<platform::LineReader> RecordReading::open(const QString &file) {
    auto reader = platform::LineReader::open(file);
    if (reader)
        return std::move(reader).value();
    m_host.tell(u"打开文件失败，无法导入，请重新选择"_s, u"操作提示"_s);
    return std::nullopt;
}

void RecordReading::say(QStringView text) {
    m_form.labJinDu->setText(text.toString());
    m_form.labJinDu->repaint();
}

ReadEnd RecordReading::read(platform::LineReader &reader, ReadRange range, bool first) {
    const int begun = ++m_readsBegun;
    const ReadWatcher watcher{
        .yield = [this] { m_host.yield(); },
        .abandoned = [this, begun] { return begun != m_readsBegun; },
        .stopRequested = [this] { return m_form.stopFlag == u"yes"; },
        .damaged = m_form.damagedDirectory(),
        .listed =
            [this, first](int count) {
                m_form.Text3->setPacedText(QString::number(count));
                m_form.Grid2->sourceHasGrown();
                if (first && count == 1)
                    m_form.showRecord(m_form.records().record(0));
            },
    };
    const ReadEnd end = readRecords(reader, range, m_form.records(), watcher);
    if (end.atEnd)
        m_form.Text4->setText(QString::number(end.count));
    return end;
}

void RecordReading::finish() {
    say(ended);
    m_form.cmdJieShu->setEnabled(false);
    m_form.stopFlag.clear();
}

void RecordReading::firstBatch(const QString &file, int limit) {
    m_form.resetRecordList();
    m_form.Text3->setText(u"0"_s);
    auto reader = open(file);
    if (!reader)
        return;
    say(u"正在预读.......");
    if (const auto estimate = marc::lineCount(file))
        m_form.Text4->setText(QString::number(estimate.value()));
    const ReadEnd end = read(*reader, {.passOver = 0, .limit = limit}, true);
    reader.reset();
    if (end.abandoned)
        return;
    m_form.Grid2->setRow(0);
    m_moving.clickStep();
    finish();
}

void RecordReading::remainder(const QString &file, int passOver) {
    if (passOver <= 0)
        return;
    auto reader = open(file);
    if (!reader)
        return;
    say(u"正在继续预读.......");
    const ReadEnd end = read(*reader, {.passOver = passOver}, false);
    if (!end.abandoned)
        finish();
}

void RecordReading::all() {
    m_form.allowReadAll(false);
    m_form.stopFlag.clear();
    m_form.cmdJieShu->setEnabled(true);
    say(u"正在预读......");
    m_form.readRemainder(m_form.publicMarcFile, m_form.records().rowCount());
}

void RecordReading::stop() {
    m_form.cmdJieShu->setEnabled(false);
    m_form.stopFlag = u"yes"_s;
    say(ended);
    m_form.allowReadAll(true);
}

} // namespace workspace
