// The line below the field grid: collects its texts from their sources and follows their signals.
#pragma once

#include "widgets/pacedLabel.h"
#include "workspace/recordReading.h"
#include "workspace/statusFacts.h"
#include "workspace/windows/cellEditors.h"
#include "workspace/windows/draftKeeper.h"

namespace workspace {

class StatusLine final : public QObject {
public:
    struct Sources {
        EditedRecord &record;
        RecordList &list;
        CellEditors &editors;
        RecordReading &reading;
        DraftKeeper &drafts;
    };
    StatusLine(widgets::PacedLabel &label, const Sources &sources);

    void say(const QString &remark);               // shown until the next remark
    void sayOfRecord(const QString &deed);         // shown until another record is shown
    void sayOfRow(const QString &remark);          // about the current row of the grid
    void sayDatabaseTrouble(const QString &words); // empty: no trouble is known
    void sayImported(const ImportedNow &imported); // shown until the list changes

private:
    void follow();
    void update();

    widgets::PacedLabel &m_label;
    Sources m_sources;
    StatusFacts m_facts;
};

} // namespace workspace
