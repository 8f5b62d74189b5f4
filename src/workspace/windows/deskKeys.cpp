#include "workspace/windows/deskKeys.h"
#include "platform/desktop/frontWindow.h"
#include <QShortcut>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace workspace {

DeskKeys::DeskKeys(const Parts &parts, QWidget *window)
    : m_parts(parts)
    , m_window(window) {
    bindAll();
    connect(&m_parts.find, &FindLine::wanted, this, [this](int row) {
        goToRecord(row);
        goToWords(m_parts.find.wholeRecordWords());
    });
    connect(&m_parts.find, &FindLine::closed, this, [this] { m_parts.list.setFocus(); });
    connect(&m_parts.list, &RecordList::lettersTyped, this, [this](const QString &text) {
        if (isFree())
            m_parts.find.open(FindLine::Place::Title, text);
    });
    connect(&m_parts.commands, &FieldCommands::told, this, &DeskKeys::told);
    connect(&m_parts.fields, &FieldGrid::tagTyped, this, &DeskKeys::goToTag);
}

template <class Act>
void DeskKeys::bind(QWidget *where, const QKeySequence &key, Qt::ShortcutContext context, Act act) {
    auto *shortcut = new QShortcut(key, where, nullptr, nullptr, context);
    connect(shortcut, &QShortcut::activated, this, [this, act] {
        if (!platform::isBlocked(m_window))
            act();
    });
}

void DeskKeys::bindAll() {
    const auto inWindow = [this](const QKeySequence &key, auto act) { bind(m_window, key, Qt::WindowShortcut, act); };
    const auto whenFree = [&](const QKeySequence &key, auto act) {
        inWindow(key, [this, act] {
            if (!isFree())
                return;
            m_parts.commands.dismissLists();
            act();
        });
    };
    whenFree(Qt::ControlModifier | Qt::Key_PageUp, [this] { stepAtField(-1); });
    whenFree(Qt::ControlModifier | Qt::Key_PageDown, [this] { stepAtField(1); });
    // An open editor and the find line have their own undo.
    whenFree(QKeySequence::Undo, [this] { goBack(m_parts.record.undo(), u"已撤销："_s, u"没有可撤销的修改"_s); });
    whenFree(Qt::ControlModifier | Qt::Key_Y,
             [this] { goBack(m_parts.record.redo(), u"已重做："_s, u"没有可重做的修改"_s); });
    whenFree(Qt::Key_F3, [this] {
        if (m_parts.find.isVisible())
            m_parts.find.next();
        else
            m_parts.find.open(FindLine::Place::WholeRecord);
    });
    whenFree(Qt::ShiftModifier | Qt::Key_F3, [this] { m_parts.find.previous(); });
    whenFree(Qt::ControlModifier | Qt::Key_G, [this] { m_parts.find.open(FindLine::Place::Number); });
    inWindow(Qt::Key_F6, [this] { m_parts.editors.openLarge(); });
    inWindow(Qt::Key_F8, [this] { Q_EMIT remarksWanted(); });
    inWindow(Qt::Key_F4, [this] { wantRemark(1); });
    inWindow(Qt::ShiftModifier | Qt::Key_F4, [this] { wantRemark(-1); });
    whenFree(Qt::Key_F9, [this] { Q_EMIT changesWanted(); });
    whenFree(Qt::ControlModifier | Qt::Key_T, [this] { Q_EMIT fetchWanted(); });
    const QList<QKeySequence> keys = FieldCommands::keys();
    for (int item = 1; item <= keys.size(); ++item)
        if (!keys[item - 1].isEmpty() && keys[item - 1] != QKeySequence(Qt::Key_Return)) // handled by the grid itself
            bind(&m_parts.fields, keys[item - 1], Qt::WidgetShortcut,
                 [this, item] { m_parts.commands.runByKey(item); });
}

// In the lists over the grid the key has no meaning.
void DeskKeys::wantRemark(int by) {
    if (!m_parts.commands.zdList->hasFocus() && !m_parts.commands.Zzdlist->hasFocus())
        Q_EMIT remarkWanted(by);
}

void DeskKeys::stepAtField(int by) {
    const int before = m_parts.list.row();
    m_stay.leave(m_parts.record.rows(), m_parts.fields.row());
    m_parts.moving.step(by);
    if (m_parts.list.row() == before)
        return;
    m_parts.fields.setRow(m_stay.enter(m_parts.record.rows()));
    Q_EMIT rowChosen();
    if (!m_stay.missingTag().isEmpty())
        Q_EMIT told(u"没有字段 "_s + m_stay.missingTag());
}

// Makes the changed row current, so that the user sees what was undone.
void DeskKeys::goBack(const std::optional<EditedRecord::Gone> &gone, const QString &done, const QString &nothing) {
    if (!gone)
        return Q_EMIT told(nothing);
    m_parts.fields.setRow(gone->row);
    Q_EMIT rowChosen();
    Q_EMIT told(done + gone->words);
}

void DeskKeys::goToRecord(int row) {
    if (row != m_parts.list.row() && m_parts.list.isEnabled())
        m_parts.list.clickRow(row);
}

// Moves to the first row of the current record whose content contains the words, ignoring case.
void DeskKeys::goToWords(const QString &words) {
    const marc::FieldRows &rows = m_parts.record.rows();
    const auto found = std::ranges::find_if(rows, [&](const marc::FieldRow &row) {
        return !words.isEmpty() && row.value.contains(words, Qt::CaseInsensitive);
    });
    if (found == rows.end())
        return;
    m_parts.fields.setRow(int(found - rows.begin()) + 1);
    Q_EMIT rowChosen();
}

void DeskKeys::goToTag(const QString &digits) {
    const marc::FieldRows &rows = m_parts.record.rows();
    const auto found = std::ranges::find_if(rows, [&](const marc::FieldRow &row) {
        return row.identifier.size() == 3 && row.identifier >= digits && marc::isFieldRow(row);
    });
    if (found == rows.end())
        return Q_EMIT told(u"没有字段 "_s + digits);
    m_parts.fields.setRow(int(found - rows.begin()) + 1);
    m_parts.editors.editRow = m_parts.fields.row();
    Q_EMIT told({});
    Q_EMIT rowChosen();
}

} // namespace workspace
