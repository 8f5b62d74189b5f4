#include "workspace/windows/remarkJumps.h"
#include <QApplication>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {
constexpr QStringView editorOpen = u"请先结束编辑（回车写入，Esc 放弃）";
constexpr QStringView wayBack = u"F8 回到结果表";
} // namespace

RemarkJumps::RemarkJumps(const Parts &parts, const WorkspaceWindows &windows, File file)
    : m_parts(parts) {
    if (windows.makeRemarks)
        m_pane = windows.makeRemarks(needs(std::move(file)));
}

RemarksNeeds RemarkJumps::needs(File file) {
    return {.records = m_parts.list.sharedRecords(),
            .file = std::move(file.path),
            .recordsInFile = std::move(file.records),
            .jump = [this](const marc::FieldPlace &place) { jump(place, wayBack.toString()); },
            .leave = [this] { m_parts.fields.setFocus(); },
            .tell = [this](const QString &words) { Q_EMIT told(words); },
            .changed = [this] { Q_EMIT remarksChanged(); },
            .checkChanged = [this] { Q_EMIT checkChanged(); }};
}

void RemarkJumps::show() {
    if (!m_pane.widget)
        return;
    m_pane.widget->show();
    m_pane.widget->setFocus();
}

void RemarkJumps::proofAll() {
    show();
    m_pane.proofAll();
}

void RemarkJumps::listRefused(const ImportOutcome &outcome) {
    m_pane.listRefused(outcome);
    if (outcome.refusedWanted)
        show();
}

void RemarkJumps::showOrHide() {
    if (!m_parts.keys.isFree())
        return Q_EMIT told(editorOpen.toString());
    if (m_pane.isEmpty())
        return Q_EMIT told(u"还没有校对结果，也没有未成功记录"_s);
    if (!m_pane.widget->isAncestorOf(QApplication::focusWidget()))
        return show();
    m_parts.fields.setFocus();
    m_pane.widget->hide();
}

void RemarkJumps::allow(bool allowed) {
    if (m_pane.widget)
        m_pane.widget->setEnabled(allowed);
}

void RemarkJumps::step(int by) {
    if (!m_parts.keys.isFree())
        return Q_EMIT told(editorOpen.toString());
    const RemarksPane::Step step = m_pane.step(by);
    if (step.place)
        jump(*step.place, step.words);
    else
        Q_EMIT told(step.words);
}

void RemarkJumps::jump(const marc::FieldPlace &place, const QString &words) {
    if (!m_parts.keys.isFree())
        return Q_EMIT told(editorOpen.toString());
    const marc::PreReadStore &records = m_parts.list.records();
    if (place.record >= records.rowCount() || records.number(place.record).isEmpty())
        return Q_EMIT told(u"列表里没有第 %1 条记录"_s.arg(place.record + 1));
    m_parts.keys.goToRecord(place.record);
    m_parts.fields.setFocus();
    if (place.fieldRow > 0)
        return goToField(place, words);
    Q_EMIT told(words);
}

void RemarkJumps::goToField(const marc::FieldPlace &place, const QString &words) {
    const auto trail = followField(m_parts.list.records().recordsSince(place.moment, place.record),
                                   m_parts.record.rows(), place.fieldRow - 1);
    if (!trail)
        return Q_EMIT told(u"这个字段已经找不到了，可能已删除；"_s + words);
    m_parts.fields.setRow(int(trail->element) + 1);
    Q_EMIT rowChosen();
    Q_EMIT told((trail->subfieldLost ? u"这个子字段已经找不到了，可能已删除，这是它的字段；"_s : QString()) + words);
}

} // namespace workspace
