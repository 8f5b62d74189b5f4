#include "workspace/windows/frmDaoru.h"
#include "platform/desktop/screenSize.h"
#include "widgets/button.h"
#include "widgets/foldingRow.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include "workspace/windows/draftBar.h"
#include "workspace/windows/statusPills.h"
#include "workspace/windows/workspaceControls.h"
#include "workspace/windows/workspaceParts.h"
#include "workspace/windows/workspaceRoom.h"
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::column;
using widgets::named;
using widgets::row;
using widgets::stretch;

namespace workspace {

constexpr int firstBatch = 200; // records read before the window is shown

frmDaoru::frmDaoru(platform::Host &host, WorkspaceWindows windows, QWidget *parent)
    : Window(u"frmDaoru"_s, u"套录库数据导入"_s, parent)
    , picTiMing(named(new QFrame(this), u"picTiMing"_s))
    , Grid2(new RecordList(u"Grid2"_s, picTiMing))
    , filterBox(named(new QComboBox(this), u"filterBox"_s, u"列出哪些记录"_s))
    , Picture1(named(new QFrame(this), u"Picture1"_s))
    , Grid1(new FieldGrid(u"Grid1"_s, Picture1))
    , Label1{named(new QLabel(u"当前记录"_s, this), u"Label10"_s), named(new QLabel(u"已经读出"_s, this), u"Label11"_s),
             named(new QLabel(u"估计记录"_s, this), u"Label12"_s)}
    , Text2(numberBox(u"Text2"_s, u"当前记录"_s, this))
    , Text3(numberBox(u"Text3"_s, u"已经读出"_s, this))
    , Text4(numberBox(u"Text4"_s, u"估计记录"_s, this))
    , labJinDu(named(new QLabel(rulesOf(ReadState::Idle).text.toString(), this), u"labJinDu"_s))
    , cmdJieShu(new Button(u"cmdJieShu"_s, u"结束预读"_s, this))
    , cmdTiMing{new Button(u"cmdTiMing0"_s, u"&P 上一条"_s, this), new Button(u"cmdTiMing1"_s, u"&N 下一条"_s, this)}
    , cmdclick(commandButtons(this))
    , labStatus(new StatusPills(u"labStatus"_s, {}, this))
    , findLine(new FindLine(*Grid2, this))
    , cmdProofAll(new Button(u"cmdProofAll"_s, u"&D 校对全部"_s, this))
    , cmdBatch(new Button(u"cmdBatch"_s, u"&L 批量修改…"_s, this))
    , room(new WorkspaceRoom(listSide(filterBox, picTiMing), Picture1, this))
    , draftBar(new DraftBar(this))
    , m_host(host)
    , m_windows(std::move(windows))
    , m_parts(std::make_unique<WorkspaceParts>(WorkspaceParts::Desk{this, publicMarcFile, *Grid1, *Grid2, *findLine,
                                                                    *filterBox, *labStatus, *m_record, host, m_windows},
                                               damagedDirectory())) {
    setUp();
}

frmDaoru::~frmDaoru() = default;

void frmDaoru::setUp() {
    richText = m_parts->editors.richText;
    Text1 = m_parts->editors.Text1;
    zdList = m_parts->fieldCommands.zdList;
    Zzdlist = m_parts->fieldCommands.Zzdlist;
    Grid1->setAccessibleName(u"字段"_s);
    Grid2->setAccessibleName(u"题名列表"_s);
    Grid1->follow(m_record);
    cmdBatch->setVisible(m_parts->changes.isAvailable());
    layOut();
    connectGrids();
    connectHelpers();
    connectButtons();
    recall();
}

void frmDaoru::layOut() {
    picTiMing->setLayout(column({{Grid2, 1}}));
    Picture1->setLayout(column({{Grid1, 1}}));
    for (QFrame *frame : {picTiMing, Picture1})
        frame->layout()->setContentsMargins(0, 0, 0, 0);
    widgets::hint({{cmdProofAll, u"校对读出的全部记录，并查重"},
                   {cmdBatch, u"F9，照一个任务改许多记录：先预览再执行，可以整批撤销"},
                   {cmdTiMing[0], u"Ctrl+PgUp 停在同一个字段"},
                   {cmdTiMing[1], u"Ctrl+PgDn 停在同一个字段；F3 查找，Ctrl+G 按记录号定位"},
                   {Text3, u"导入的只是已经读出的记录"},
                   {Text4, u"文件的行数；读完以后是记录数"},
                   {cmdJieShu, u"不再往下读，已经读出的留下"}});
    setLayout(column({
        draftBar,
        {room, 1},
        row({{labStatus, 1}, findLine}),
        widgets::hairline(this),
        new widgets::FoldingRow({row({Label1[0], Text2, Label1[1], Text3, Label1[2], Text4, labJinDu, stretch()}),
                                 row({stretch(), room->cmdWholeText, cmdProofAll, cmdBatch, cmdJieShu})}),
        new widgets::FoldingRow({row({cmdTiMing[0], cmdTiMing[1], stretch()}), ofOneWidth(cmdclick)}),
    }));
    const QFontMetrics metrics = fontMetrics();
    // The line keeps its space while it is empty and is high enough for the find line.
    labStatus->setMinimumHeight(findLine->sizeHint().height());
    // The window is as wide as the columns of both grids with their scroll bars; the list keeps its width.
    room->addRemarks(m_parts->remarks.pane());
    const int beside = Grid1->verticalScrollBar()->sizeHint().width() + 2 * Grid1->frameWidth();
    const int listWidth = Grid2->toPixels(RecordList::allTwips) + beside;
    const int fieldsWidth = Grid1->horizontalHeader()->length() + beside;
    room->share(listWidth, fieldsWidth);
    const QMargins margins = layout()->contentsMargins();
    const QSize wanted(listWidth + fieldsWidth + room->handleWidth() + margins.left() + margins.right() +
                           metrics.averageCharWidth(),
                       metrics.height() * 36);
    resize(wanted.boundedTo(platform::usableScreenSize(this)));
    widgets::tabInReadingOrder(this);
    Grid2->setFocus();
}

void frmDaoru::connectGrids() {
    connect(Grid2, &RecordList::taken, findLine, &FindLine::forget);
    connect(Grid2, &RecordList::currentMarked, Text2, &widgets::PacedLabel::setText);
    connect(Grid2, &RecordList::leaveCell, this, [this] { m_parts->moving.leaveStep(); });
    connect(Grid2, &RecordList::enterCell, this, [this] { m_parts->moving.enterStep(); });
    connect(Grid1, &FieldGrid::gridClicked, &m_parts->fieldCommands, &FieldCommands::gridClicked);
    connect(Grid1, &FieldGrid::rightPressed, &m_parts->fieldCommands, &FieldCommands::rightPressed);
    connect(Grid1, &FieldGrid::menuKeyPressed, &m_parts->fieldCommands, &FieldCommands::menuKeyPressed);
    connect(Grid1, &FieldGrid::gridActivated, &m_parts->editors, &CellEditors::openContent);
}

void frmDaoru::connectHelpers() {
    connect(&m_parts->editors, &CellEditors::opened, this,
            [this](CellEditors::Hold hold) { holdControls(hold == CellEditors::Hold::FieldsAndList); });
    connect(&m_parts->editors, &CellEditors::closed, this, &frmDaoru::releaseControls);
    connect(&m_parts->reading, &RecordReading::listed, this, &frmDaoru::listed);
    connect(&m_parts->reading, &RecordReading::counted, this,
            [this](qint64 count) { Text4->setText(QString::number(count)); });
    connect(&m_parts->reading, &RecordReading::stateChanged, this, &frmDaoru::enterState);
    connect(&m_parts->drafts, &DraftKeeper::currentRestored, this,
            [this] { showRecord(records().record(Grid2->row())); });
    connect(&m_parts->drafts, &DraftKeeper::offered, draftBar, &DraftBar::offer);
    connect(draftBar, &DraftBar::restoreWanted, this, [this] {
        m_parts->drafts.restore();
        settleDrafts();
    });
    connect(draftBar, &DraftBar::givenUp, &m_parts->drafts, &DraftKeeper::giveUp);
    for (const auto settled : {&DraftBar::restoreWanted, &DraftBar::givenUp})
        connect(draftBar, settled, Grid2, qOverload<>(&QWidget::setFocus));
    connect(room, &WorkspaceRoom::textWanted, this, &frmDaoru::showWholeText);
    connect(&m_parts->keys, &DeskKeys::rowChosen, this, &frmDaoru::showWholeText);
    connect(&m_parts->remarks, &RemarkJumps::rowChosen, this, &frmDaoru::showWholeText);
    connect(Grid1, &FieldGrid::enterCell, this, &frmDaoru::showWholeText);
    connect(Grid1, &FieldGrid::gridClicked, this, &frmDaoru::showWholeText);
    connect(Grid1, &FieldGrid::rearranged, this, &frmDaoru::showWholeText);
    connect(m_record.get(), &EditedRecord::shown, this, &frmDaoru::showWholeText);
    connect(m_record.get(), &EditedRecord::edited, this, &frmDaoru::showWholeText);
    connect(this, &Window::unloaded, this, &frmDaoru::remember);
    connect(this, &Window::unloaded, &m_parts->drafts, &DraftKeeper::write);
    connect(this, &Window::unloaded, &m_parts->reading, &RecordReading::abandon);
    connect(this, &Window::unloaded, &m_parts->remarks, &RemarkJumps::end);
}

void frmDaoru::showWholeText() {
    room->showText(m_record->row(Grid1->row()).value, Grid1->isCoded(Grid1->row()));
}

void frmDaoru::importRecords() {
    const std::optional<ImportOutcome> outcome =
        m_parts->recordCommands.importRecords(m_parts->reading.state(), Text3->pacedText(), m_parts->remarks.leftOut());
    if (!outcome)
        return;
    m_parts->drafts.imported(*outcome);
    m_parts->filter.updateSoon();
    showImported(*outcome);
}

// Moves the focus to the list: Enter on the button would import everything again.
void frmDaoru::showImported(const ImportOutcome &outcome) {
    Grid2->setFocus();
    m_parts->remarks.listRefused(outcome);
    m_parts->status.sayImported({outcome.wentIn, qsizetype(outcome.refused.size()), qsizetype(outcome.leftOut.size())});
}

// Stores the user's layout of the window.
void frmDaoru::remember() {
    room->remember(m_host.remembered());
    widgets::keepColumns(*Grid1, m_host.remembered(), objectName());
}

void frmDaoru::recall() {
    widgets::rememberPlace(this, m_host.remembered());
    room->recall(m_host.remembered());
    widgets::recallColumns(*Grid1, m_host.remembered(), objectName());
}

void frmDaoru::connectButtons() {
    connect(cmdTiMing[0], &Button::clicked, this, [this] { m_parts->moving.step(-1); });
    connect(cmdTiMing[1], &Button::clicked, this, [this] { m_parts->moving.step(1); });
    connect(cmdProofAll, &Button::clicked, &m_parts->remarks, &RemarkJumps::proofAll);
    connect(cmdBatch, &Button::clicked, &m_parts->changes, &ListChanges::open);
    connect(cmdJieShu, &Button::clicked, this, [this] { m_parts->reading.stop(); });
    connect(cmdclick[0], &Button::clicked, this, [this] { m_parts->recordCommands.showCard(u"标准"_s); });
    connect(cmdclick[1], &Button::clicked, this, [this] { m_parts->recordCommands.showCard(u"卡片"_s); });
    connect(cmdclick[2], &Button::clicked, this, [this] { m_parts->recordCommands.proof(); });
    connect(cmdclick[3], &Button::clicked, this, [this] {
        m_parts->reading.all(publicMarcFile);
        if (cmdclick[3]->hasFocus() || cmdclick[4]->hasFocus()) // the focused button was disabled
            Grid2->setFocus();
    });
    connect(cmdclick[4], &Button::clicked, this, [this] { m_host.tell(u"暂无此功能"_s); });
    connect(cmdclick[5], &Button::clicked, this, &frmDaoru::importRecords);
    connect(cmdclick[6], &Button::clicked, this, [this] { unload(); });
}

void frmDaoru::load() {
    enterState(m_parts->reading.state());
    resetFieldGrid();
    loadData();
    m_parts->status.sayDatabaseTrouble(m_windows.databaseTrouble());
}

void frmDaoru::loadData() {
    readFirstBatch(publicMarcFile, firstBatch);
    m_parts->drafts.begin(publicMarcFile);
}

void frmDaoru::readFirstBatch(const QString &file, int limit) {
    m_parts->reading.firstBatch(file, limit);
}

marc::DamagedDirectory frmDaoru::damagedDirectory() {
    return [this](const marc::RawRecord &record) {
        if (m_host.ask(u"地址目次区数据存在错误，本条数据无法处理！\r\n是否查看该条机读数据？（不查看选择‘否’继续）"_s,
                       platform::hintTitle))
            m_windows.showReport(record, this);
    };
}

void frmDaoru::showRecord(const marc::RawRecord &record) {
    m_parts->moving.showRecord(record);
}

marc::RawRecord frmDaoru::madeMyMarc() const {
    return m_record->rebuilt(m_host.now());
}

void frmDaoru::listed(int count) {
    Text3->setPacedNumber(u"%1", count);
    m_parts->drafts.listed(count);
    if (count == 1)
        showRecord(records().record(0));
}

void frmDaoru::enterState(ReadState state) {
    labJinDu->setText(rulesOf(state).text.toString());
    labJinDu->repaint();
    allowReadAll();
    cmdJieShu->setEnabled(rulesOf(state).mayStop);
    settleDrafts();
}

// Once all records are listed, no draft waits for its record any more.
void frmDaoru::settleDrafts() {
    if (m_parts->reading.isAtEnd())
        m_parts->drafts.readToTheEnd(records().rowCount());
}

// The button is also disabled while an editor is open.
void frmDaoru::allowReadAll() {
    cmdclick[3]->setEnabled(rulesOf(m_parts->reading.state()).mayReadAll && !m_parts->editors.isOpen());
}

void frmDaoru::holdControls(bool listToo) {
    allowCommands(false);
    Grid2->setEnabled(!listToo);
}

// Enables or disables all that an open editor disables, except the list.
void frmDaoru::allowCommands(bool allowed) {
    Grid1->setEnabled(allowed);
    m_parts->remarks.allow(allowed);
    for (Button *button : cmdclick)
        button->setEnabled(allowed);
    for (Button *button : cmdTiMing)
        button->setEnabled(allowed);
    for (QWidget *addition :
         std::initializer_list<QWidget *>{draftBar, findLine, filterBox, cmdProofAll, cmdBatch, room->cmdWholeText})
        addition->setEnabled(allowed);
}

void frmDaoru::releaseControls() {
    allowCommands(true);
    Grid2->setEnabled(true);
    allowReadAll(); // depends on the state of reading too
}

bool frmDaoru::queryUnload() {
    if (rulesOf(m_parts->reading.state()).running) {
        m_host.tell(u"预读还没有结束，请先结束预读！"_s);
        return false;
    }
    return m_host.ask(u"确实要退出吗？"_s, platform::hintTitle, platform::Answer::No);
}

} // namespace workspace
