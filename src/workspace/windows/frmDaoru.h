// The pre-read workspace: the records of one file as a list, the current one as a grid of fields. The window is loaded
// before it is shown; its first batch is then read. It stays alive while the remainder is read, record by record.
#pragma once

#include "platform/host.h"
#include "widgets/pacedLabel.h"
#include "widgets/window.h"
#include "workspace/windows/deskKeys.h"
#include "workspace/windows/draftBar.h"
#include "workspace/windows/draftKeeper.h"
#include "workspace/windows/fieldCommands.h"
#include "workspace/windows/findLine.h"
#include "workspace/windows/recordCommands.h"
#include "workspace/windows/recordMoving.h"
#include "workspace/windows/recordReading.h"
#include "workspace/windows/remarkJumps.h"
#include "workspace/windows/statusLine.h"
#include "workspace/windows/workspaceRoom.h"
#include <QFrame>
#include <QLabel>
#include <array>
#include <memory>

namespace workspace {

class frmDaoru final : public widgets::Window {
    Q_OBJECT
public:
    frmDaoru(platform::Host &host, WorkspaceWindows windows, QWidget *parent = nullptr);

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
    DraftKeeper &drafts() { return m_drafts; }
    int editRow() const { return m_editors.editRow; }
    bool clickMark() const { return m_fields.clickMark; }

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
    CellText *richText; // these four are m_editors' and m_fields'
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
    void holdControls(CellEditors::Hold hold);
    void releaseControls();
    // What readers do about a record with a damaged directory: ask, and show it where wanted.
    marc::DamagedDirectory damagedDirectory();

    platform::Host &m_host;
    WorkspaceWindows m_windows;
    std::shared_ptr<EditedRecord> m_record = std::make_shared<EditedRecord>();
    CellEditors m_editors;
    FieldCommands m_fields;
    RecordMoving m_moving;
    RecordReading m_reading;
    RecordCommands m_commands;
    DraftKeeper m_drafts;
    DeskKeys m_keys;
    RemarkJumps m_remarks;
    StatusLine m_status;
};

} // namespace workspace
