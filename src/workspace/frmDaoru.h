// The pre-read workspace: the records of one file as a list, the current one as a grid of fields. The window is loaded
// before it is shown; its first batch is then read. It stays alive while the remainder is read, record by record.
#pragma once

#include "marc/fieldLookup.h"
#include "marc/preReadStore.h"
#include "platform/host.h"
#include "platform/widgets/flexGrid.h"
#include "platform/widgets/pacedLabel.h"
#include "platform/widgets/window.h"
#include "workspace/cellControls.h"
#include "workspace/fieldCommands.h"
#include "workspace/recordCommands.h"
#include "workspace/recordMoving.h"
#include "workspace/recordReading.h"
#include "workspace/workspaceWindows.h"
#include <QFrame>
#include <array>

namespace workspace {

class frmDaoru final : public platform::Window {
    Q_OBJECT
public:
    frmDaoru(platform::Host &host, WorkspaceWindows windows, QWidget *parent = nullptr);

    // Resets the window and reads the first batch of publicMarcFile. To be called once, before the window is shown.
    void load();
    void loadData();
    void readFirstBatch(const QString &file, int limit);
    void readRemainder(const QString &file, int passOver);

    void showRecord(const marc::RawRecord &record);
    void resetFieldGrid();
    void resetRecordList();
    // The record of the grid as it stands, with the edits of the moment.
    marc::RawRecord madeMyMarc() const;

    marc::PreReadStore &records() { return *m_records; }
    std::shared_ptr<const marc::PreReadStore> sharedRecords() const { return m_records; }
    void setTitle(int row, const QString &title);
    // What readers do about a record with a damaged directory: ask, and show it where wanted.
    marc::DamagedDirectory damagedDirectory();

    QString publicMarcFile; // never changes once the window is loaded
    QString publicTouBiao;  // the leader of the record in Grid1
    QString stopFlag;       // "yes" asks the running read to stop
    QString recordChanged;  // "yes" when Grid1 was edited and not yet taken over into the list

    // Whether the state of the read allows to read all; an open editor holds the button back beside that.
    void allowReadAll(bool allowed);
    // While an editor is open: the grid of fields and the commands are out of reach, the list only where told.
    void holdControls(bool listToo);
    void releaseControls();
    QRect rightHalf() const; // of the field grid, for what is laid over it
    void updateStatus();     // says below the grids what would be lost of the record

    int editRow = 0;     // the row that was clicked last, and the one that an open editor writes to; 0: none yet
    int editCol = 0;     // the column that an open editor writes to
    QString clickMark;   // "MouseDown" between a press of the right button and the click that follows it
    QString public100ZD; // the text handed to and returned by the assistant of field 100

    QFrame *picTiMing;
    platform::FlexGrid *Grid2;
    QFrame *Picture1;
    platform::FlexGrid *Grid1;
    std::array<QLabel *, 3> Label1;
    platform::PacedLabel *Text2;
    platform::PacedLabel *Text3;
    platform::PacedLabel *Text4;
    QLabel *labJinDu; // its text is also the state of the read
    platform::Button *cmdJieShu;
    std::array<platform::Button *, 2> cmdTiMing;
    std::array<platform::Button *, 7> cmdclick;
    CellText *richText; // edits column 4
    CellLine *Text1;    // edits columns 1, 2 and 3
    PickListBox *zdList;
    PickListBox *Zzdlist;
    platform::PacedLabel *labZhuangTai;

protected:
    bool queryUnload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void lay();
    void connectControls();
    void placeOverlays();

    platform::Host &m_host;
    WorkspaceWindows m_windows;
    std::shared_ptr<marc::PreReadStore> m_records = std::make_shared<marc::PreReadStore>();
    RecordMoving m_moving;
    RecordReading m_reading;
    RecordCommands m_commands;
    CellEditors m_editors;
    FieldCommands m_fields;
    bool m_mayReadAll = true; // as far as the state of the read goes
    int m_readsBegun = 0;     // a read that finds a later one begun leaves
    bool m_closed = false;
    QString m_cutOff; // said below the grids of a record that is not shown to its end
};

} // namespace workspace
