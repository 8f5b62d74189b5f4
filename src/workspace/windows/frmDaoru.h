// The pre-read workspace: the records of one file as a list, and the current record as a grid of fields. load() reads
// the first batch before the window is shown. The window stays responsive while the remaining records are read.
#pragma once

#include "widgets/window.h"
#include "workspace/editedRecord.h"
#include "workspace/preReadEngine.h"
#include "workspace/windows/fieldGrid.h"
#include "workspace/windows/recordList.h"
#include "workspace/windows/workspaceWindows.h"
#include <array>
#include <memory>

class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
namespace platform {
class Host;
}
namespace widgets {
class Button;
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

    // Resets the window and reads the first batch of publicMarcFile. Call once, before the window is shown.
    void load();
    void loadData();
    void readFirstBatch(const QString &file, int limit);

    void showRecord(const marc::RawRecord &record);
    void resetFieldGrid() { m_record->reset(); }
    // Returns the record of the grid with its current edits.
    marc::RawRecord madeMyMarc() const;

    EditedRecord &record() { return *m_record; }
    marc::PreReadStore &records() { return Grid2->records(); }

    QString publicMarcFile; // does not change after load()
    const QString &publicTouBiao() const { return m_record->state().leader; }
    bool recordChanged() const { return m_record->state().edited; }
    WorkspaceParts &parts() { return *m_parts; }

    QFrame *picTiMing;
    RecordList *Grid2;
    QComboBox *filterBox; // above Grid2
    QFrame *Picture1;
    FieldGrid *Grid1;
    std::array<QLabel *, 3> Label1;
    widgets::PacedLabel *Text2;
    widgets::PacedLabel *Text3;
    widgets::PacedLabel *Text4;
    QLabel *labJinDu; // the state of reading
    widgets::Button *cmdJieShu;
    std::array<widgets::Button *, 2> cmdTiMing;
    std::array<widgets::Button *, 7> cmdclick;
    widgets::PacedLabel *labStatus;
    FindLine *findLine;
    widgets::Button *cmdProofAll; // 校对全部
    widgets::Button *cmdBatch;    // 批量修改…
    WorkspaceRoom *room;          // contains list, fields and whole text
    DraftBar *draftBar;
    CellText *richText; // these four belong to the helpers
    QLineEdit *Text1;
    widgets::ChoiceList *zdList;
    widgets::ChoiceList *Zzdlist;

protected:
    bool queryUnload() override;

private:
    void setUp();
    void layOut();
    void remember();
    void recall();
    void importRecords();
    void showImported(const ImportOutcome &outcome);
    void showWholeText();
    void connectGrids();
    void connectHelpers();
    void connectButtons();

    void listed(int count);
    void enterState(ReadState state);
    void settleDrafts();
    void allowReadAll();
    void allowCommands(bool allowed);
    void holdControls(bool listToo);
    void releaseControls();
    // Returns the handler of records with a damaged directory: it asks whether to show the record.
    marc::DamagedDirectory damagedDirectory();

    platform::Host &m_host;
    WorkspaceWindows m_windows;
    std::shared_ptr<EditedRecord> m_record = std::make_shared<EditedRecord>();
    std::unique_ptr<WorkspaceParts> m_parts;
};

} // namespace workspace
