// Owns the windows that the commands open. Creates each window when it is used and connects it to those it opens.
#pragma once

#include "app/windows/catalogueWindows.h"
#include "app/windows/commands.h"
#include "app/windows/targetWindows.h"
#include "workspace/windows/workspaceWindows.h"

namespace app {

class marcMain;

class DeskWindows final : public CommandWindows {
public:
    DeskWindows(platform::Host &host, const database::SessionState &state);

    // Sets the frame, which contains the list windows and is the parent of the dialogs. It must remain valid during
    // use.
    void setFrame(marcMain *frame);

    void selectMarcFile(const QString &file) override;
    void tidyFile(const QString &source) override;
    void fetchRecords() override { m_targets.search(m_frame); }
    void showTasks() override;
    void queryCatalogue(const QueryLists &lists) override { m_catalogue.queryCatalogue(lists); }
    void queryStore(const QueryLists &lists) override { m_catalogue.queryStore(lists); }
    void splitFile() override;
    void mergeFiles() override;
    void showHelp() override;
    void showAbout() override;
    void showNotice() override;
    QString connectionText() const override { return m_state.connectionString; }
    void endRuns() override { m_catalogue.endRuns(); }

private:
    void showTidy(const QString &source, QWidget *owner);
    void showWorkspace(const QString &file, QWidget *owner);
    workspace::WorkspaceWindows workspaceWindows();
    std::function<void()> makeBatch(const workspace::BatchNeeds &needs, QWidget *owner);
    workspace::RemarksPane makeRemarks(const workspace::RemarksNeeds &needs);
    void showReport(const QString &text, QWidget *owner);
    void showCard(const marc::RawRecord &record, const QString &mode, const marc::RecordStep &step, QWidget *owner);
    workspace::ImportOutcome runImport(std::shared_ptr<const marc::PreReadStore> records, const QString &count,
                                       const std::vector<marc::RefusedRecord> &leaveOut, QWidget *owner);

    platform::Host &m_host;
    const database::SessionState &m_state;
    QList<qint64> m_lastImport; // keys of the rows added by the last import
    CatalogueWindows m_catalogue;
    TargetWindows m_targets;
    QWidget *m_frame = nullptr;
};

} // namespace app
