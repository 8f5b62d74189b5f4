#include "workspace/windows/fieldHistory.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

QString nameOf(const marc::FieldRows &rows, qsizetype at) {
    const QString tag = tagOf(rows, int(at) + 1);
    const QString own = rows[at].identifier;
    return own == tag ? tag : QString(tag + own);
}

bool same(const marc::FieldRow &one, const marc::FieldRow &other) {
    return one.fieldLabel == other.fieldLabel && one.identifier == other.identifier &&
           one.subfieldLabel == other.subfieldLabel && one.value == other.value;
}

// In words what lies between two states of a record.
QString differenceOf(const marc::FieldRows &before, const marc::FieldRows &after) {
    const auto [left, right] = std::ranges::mismatch(before, after, same);
    const qsizetype at = left - before.begin();
    if (after.size() > before.size())
        return u"添加 " + nameOf(after, std::min(at, after.size() - 1));
    if (after.size() < before.size())
        return u"删除 " + nameOf(before, std::min(at, before.size() - 1));
    return at < before.size() ? u"修改 " + nameOf(before, at) : u"修改"_s;
}

} // namespace

class FieldHistory::Step final : public QUndoCommand {
public:
    Step(FieldHistory &history, Moment before, Moment after)
        : QUndoCommand(differenceOf(before.rows, after.rows))
        , m_history(history)
        , m_before(std::move(before))
        , m_after(std::move(after)) {}

    void undo() override { m_history.put(m_before); }
    void redo() override {
        if (std::exchange(m_done, true))
            m_history.put(m_after);
    }

private:
    FieldHistory &m_history;
    Moment m_before, m_after;
    bool m_done = false; // the stack does a step that it is given; this one is done already
};

FieldHistory::FieldHistory(EditedRecord &record)
    : m_record(record) {
    connect(&record, &EditedRecord::shown, this, [this] {
        if (!m_putting)
            beginAnew();
    });
    connect(&record, &EditedRecord::changed, this, [this] {
        if (!m_putting && !std::exchange(m_noting, true))
            QMetaObject::invokeMethod(this, &FieldHistory::note, Qt::QueuedConnection);
    });
    beginAnew();
}

FieldHistory::Moment FieldHistory::moment() const {
    return {m_record.rows(), m_record.publicTouBiao, m_record.recordChanged, m_record.rowsCameOrWent};
}

void FieldHistory::beginAnew() {
    m_stack.clear();
    m_last = {m_record.rows(), m_record.publicTouBiao, false, false}; // a record that was shown is as it was read
}

// Behind the event that changed the record, so that all of it is one step.
void FieldHistory::note() {
    m_noting = false;
    Moment now = moment();
    if (!std::ranges::equal(m_last.rows, now.rows, same))
        m_stack.push(new Step(*this, m_last, now));
    m_last = std::move(now);
}

void FieldHistory::put(const Moment &moment) {
    m_putting = true;
    m_record.put(moment.rows, moment.leader);
    m_record.recordChanged = moment.changed;
    m_record.rowsCameOrWent = moment.cameOrWent;
    m_putting = false;
    m_last = moment;
}

void FieldHistory::undo() {
    if (!m_stack.canUndo())
        return Q_EMIT went(u"没有可撤销的修改"_s);
    const QString words = m_stack.undoText();
    m_stack.undo();
    Q_EMIT went(u"已撤销：" + words);
}

void FieldHistory::redo() {
    if (!m_stack.canRedo())
        return Q_EMIT went(u"没有可重做的修改"_s);
    const QString words = m_stack.redoText();
    m_stack.redo();
    Q_EMIT went(u"已重做：" + words);
}

} // namespace workspace
