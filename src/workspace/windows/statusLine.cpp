#include "workspace/windows/statusLine.h"

namespace workspace {

StatusLine::StatusLine(widgets::PacedLabel &label, const Sources &sources)
    : m_label(label)
    , m_sources(sources) {
    follow();
}

void StatusLine::follow() {
    connect(&m_sources.record, &EditedRecord::shown, this, [this] { sayOfRecord({}); });
    connect(&m_sources.record, &EditedRecord::edited, this, &StatusLine::update);
    for (const auto told : {&CellEditors::typed, &CellEditors::moved})
        connect(&m_sources.editors, told, this, &StatusLine::update);
    connect(&m_sources.editors, &CellEditors::opened, this, &StatusLine::update); // no key reports this position
    connect(&m_sources.drafts, &DraftKeeper::told, this, &StatusLine::say);
    connect(&m_sources.drafts, &DraftKeeper::fault, this, [this](const QString &words) {
        m_facts.draftFault = words;
        update();
    });
    connect(&m_sources.reading, &RecordReading::lookedAt, this,
            [this](const marc::FileCounts &file) { m_facts.file = file; });
    connect(&m_sources.reading, &RecordReading::listed, this, [this] { m_facts.imported.reset(); });
    connect(&m_sources.reading, &RecordReading::stateChanged, this, &StatusLine::update);
    connect(&m_sources.list, &RecordList::taken, this, [this] { m_facts.imported.reset(); });
}

void StatusLine::say(const QString &remark) {
    m_facts.remark = remark;
    update();
}

void StatusLine::sayOfRecord(const QString &deed) {
    m_facts.deed = deed;
    update();
}

void StatusLine::sayOfRow(const QString &remark) {
    if (m_facts.rowRemark == remark)
        return;
    m_facts.rowRemark = remark;
    update();
}

void StatusLine::sayDatabaseTrouble(const QString &words) {
    m_facts.databaseTrouble = words;
    update();
}

void StatusLine::sayImported(const ImportedNow &imported) {
    m_facts.imported = imported;
    update();
}

void StatusLine::update() {
    const CellEditors &editors = m_sources.editors;
    const RecordState &state = m_sources.record.state();
    m_facts.warning = editors.warning();
    m_facts.column = editors.position();
    m_facts.columns = m_facts.column ? editors.limit() : std::nullopt;
    m_facts.assistant = m_facts.column && editors.hasAssistant();
    m_facts.fieldsCameOrWent = state.rowsCameOrWent && !state.edited;
    m_facts.changed = m_sources.drafts.changed();
    m_facts.read = m_sources.reading.listedCount();
    m_facts.readToTheEnd = m_sources.reading.isAtEnd();
    m_label.setText(statusLine(m_facts));
}

} // namespace workspace
