// The pre-read workspace: the records of one file as a list, the current one as a grid of fields. The window is loaded
// before it is shown; its first batch is then read. It stays alive while the remainder is read, record by record.
#pragma once

#include "widgets/window.h"
#include "workspace/editedRecord.h"
#include "workspace/preReadEngine.h"
#include "workspace/windows/fieldGrid.h"
#include "workspace/windows/recordList.h"
#include "workspace/windows/workspaceWindows.h"
#include <QFrame>
#include <QLabel>
#include <array>
#include <memory>

class QLineEdit;
namespace platform {
class Host;
}
namespace widgets {
class ChoiceList;
class PacedLabel;
} // namespace widgets

namespace workspace {

class CellText;
class DraftBar;
class FindLine;
class WorkspaceRoom;
struct WorkspaceParts;

class frmDaoru final : public widgets::Window {
    Q_OBJECT
public:
    frmDaoru(platform::Host &host, WorkspaceWindows windows, QWidget *parent = nullptr);
    ~frmDaoru() override;

    // Resets the window and reads the first batch of publicMarcFile. To be called once, before the window is shown.
    void load();
    void loadData();
    void readFirstBatch(const QString &file, int limit);

    void showRecord(const marc::RawRecord &record);
    void resetFieldGrid();
    // The record of the grid as it stands, with the edits of the moment.
    marc::RawRecord madeMyMarc() const;

    EditedRecord &record() { return *m_record; }
    marc::PreReadStore &records() { return Grid2->records(); }

    QString publicMarcFile; // never changes once the window is loaded
    const QString &publicTouBiao() const { return m_record->state().leader; }
    bool recordChanged() const { return m_record->state().edited; }
    WorkspaceParts &parts() { return *m_parts; }

    QFrame *picTiMing;
    RecordList *Grid2;
    QFrame *Picture1;
    FieldGrid *Grid1;
    std::array<QLabel *, 3> Label1;
    widgets::PacedLabel *Text2;
    widgets::PacedLabel *Text3;
    widgets::PacedLabel *Text4;
    QLabel *labJinDu; // the state of the read
    widgets::Button *cmdJieShu;
    std::array<widgets::Button *, 2> cmdTiMing;
    std::array<widgets::Button *, 7> cmdclick;
    widgets::PacedLabel *labZhuangTai;
    FindLine *findLine;
    widgets::Button *cmdJiaoDuiAll; // 校对全部
    WorkspaceRoom *room;            // list, fields, whole text
    DraftBar *draftBar;
    CellText *richText; // these four belong to the helpers
    QLineEdit *Text1;
    widgets::ChoiceList *zdList;
    widgets::ChoiceList *Zzdlist;

protected:
    bool queryUnload() override;

private:
    void setUp();
    void lay();
    void remember();
    void recall();
    void importRecords();
    void showImported(const ImportOutcome &outcome);
    void showWholeText();
    void connectGrids();
    void connectHelpers();
    void connectRemarks();
    void connectButtons();

    void listed(int count);
    void enterState(ReadState state);
    void settleDrafts();
    void allowReadAll();
    void allowCommands(bool allowed);
    void holdControls(bool listToo);
    void releaseControls();
    // What readers do about a record with a damaged directory: ask, and show it where wanted.
    marc::DamagedDirectory damagedDirectory();

    platform::Host &m_host;
    WorkspaceWindows m_windows;
    std::shared_ptr<EditedRecord> m_record = std::make_shared<EditedRecord>();
    std::unique_ptr<WorkspaceParts> m_parts;
};

} // namespace workspace
