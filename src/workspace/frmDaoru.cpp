#include "workspace/frmDaoru.h"
#include "marc/configurationFiles.h"
#include "marc/recordWriter.h"
#include "platform/paths.h"
#include "platform/widgets/layout.h"
#include "workspace/fieldGrid.h"
#include "workspace/workspaceControls.h"
#include <QEvent>
#include <QScreen>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using platform::Button;
using platform::column;
using platform::row;

namespace workspace {

namespace {

const QString boxTitle = u"操作提示"_s;
constexpr int firstBatch = 200; // records read before the window is shown
constexpr int fieldColumns = 5;
constexpr int listColumns = 3;

} // namespace

frmDaoru::frmDaoru(platform::Host &host, WorkspaceWindows windows, QWidget *parent)
    : Window(u"frmDaoru"_s, u"套录库数据导入"_s, parent)
    , picTiMing(frameOf(u"picTiMing"_s, this))
    , Grid2(new platform::FlexGrid(u"Grid2"_s, listColumns, 0, picTiMing))
    , Picture1(frameOf(u"Picture1"_s, this))
    , Grid1(new platform::FlexGrid(u"Grid1"_s, fieldColumns, 1, Picture1))
    , Label1{label(u"Label10"_s, u"当前记录"_s, this), label(u"Label11"_s, u"已经读出"_s, this),
             label(u"Label12"_s, u"估计记录"_s, this)}
    , Text2(numberBox(u"Text2"_s, u"当前记录"_s, this))
    , Text3(numberBox(u"Text3"_s, u"已经读出"_s, this))
    , Text4(numberBox(u"Text4"_s, u"估计记录"_s, this))
    , labJinDu(label(u"labJinDu"_s, RecordReading::ended.toString(), this))
    , cmdJieShu(new Button(u"cmdJieShu"_s, u"结束预读"_s, this))
    , cmdTiMing{new Button(u"cmdTiMing0"_s, u"&P 上一条"_s, this), new Button(u"cmdTiMing1"_s, u"&N 下一条"_s, this)}
    , cmdclick(commandButtons(this))
    , richText(new CellText(u"richText"_s, Picture1))
    , Text1(new CellLine(u"Text1"_s, Picture1))
    , zdList(new PickListBox(u"zdList"_s, u"可添加的字段"_s, Picture1))
    , Zzdlist(new PickListBox(u"Zzdlist"_s, u"可添加的子字段"_s, Picture1))
    , labZhuangTai(new platform::PacedLabel(u"labZhuangTai"_s, {}, this))
    , m_host(host)
    , m_windows(std::move(windows))
    , m_moving(*this, host)
    , m_reading(*this, host, m_moving)
    , m_commands(*this, host, m_windows)
    , m_editors(*this, host, m_windows)
    , m_fields(*this, host, m_editors) {
    Grid1->setAccessibleName(u"字段"_s);
    Grid2->setAccessibleName(u"题名列表"_s);
    lay();
    connectControls();
}

void frmDaoru::lay() {
    picTiMing->setLayout(column({{Grid2, 1}}));
    Picture1->setLayout(column({{Grid1, 1}}));
    for (QFrame *frame : {picTiMing, Picture1})
        frame->layout()->setContentsMargins(0, 0, 0, 0);
    setLayout(column({
        {row({picTiMing, {Picture1, 1}}), 1},
        labZhuangTai,
        row({Label1[0], Text2, Label1[1], Text3, Label1[2], Text4, labJinDu, platform::stretch(), cmdJieShu}),
        row({cmdTiMing[0], cmdTiMing[1], platform::stretch(), cmdclick[0], cmdclick[1], cmdclick[2], cmdclick[3],
             cmdclick[4], cmdclick[5], cmdclick[6]}),
    }));
    const QFontMetrics metrics = fontMetrics();
    labZhuangTai->setMinimumHeight(metrics.height()); // its place is kept while there is nothing to say
    richText->setFont(Grid1->font());
    Text1->setFont(Grid1->font());
    // As wide as the columns of both grids, with their scroll bars; the list keeps its width.
    const int beside = Grid1->verticalScrollBar()->sizeHint().width() + 2 * Grid1->frameWidth();
    picTiMing->setFixedWidth(Grid2->toPixels(recordListTwips) + beside);
    const QMargins margins = layout()->contentsMargins();
    const QSize wanted(picTiMing->width() + Grid1->toPixels(fieldGridTwips) + beside + layout()->spacing() +
                           margins.left() + margins.right() + metrics.averageCharWidth(),
                       metrics.height() * 36);
    resize(wanted.boundedTo(screen()->availableSize()));
    Grid2->setFocus();
}

void frmDaoru::connectControls() {
    connect(Grid2, &platform::FlexGrid::gridClicked, this, [this] { m_moving.clickStep(); });
    connect(Grid2, &platform::FlexGrid::keyReleased, this, [this](int key) { m_moving.keyStep(key); });
    connect(Grid2, &platform::FlexGrid::leaveCell, this, [this] { m_moving.leaveStep(); });
    connect(Grid2, &platform::FlexGrid::enterCell, this, [this] { m_moving.enterStep(); });
    connect(Grid1, &platform::FlexGrid::gridClicked, this, [this] { m_fields.gridClicked(); });
    connect(Grid1, &platform::FlexGrid::gridActivated, this, [this] { m_editors.openContent(); });
    connect(Grid1, &platform::FlexGrid::rightPressed, this, [this] { m_fields.rightPressed(); });
    connect(Grid1, &platform::FlexGrid::menuKeyPressed, this, [this] { m_fields.menuKeyPressed(); });
    for (const QScrollBar *bar : {Grid1->horizontalScrollBar(), Grid1->verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] { m_editors.place(); });
    connect(richText, &QPlainTextEdit::textChanged, this, [this] { updateStatus(); });
    Grid1->viewport()->installEventFilter(this);
    connect(cmdTiMing[0], &Button::clicked, this, [this] { m_moving.step(-1); });
    connect(cmdTiMing[1], &Button::clicked, this, [this] { m_moving.step(1); });
    connect(cmdJieShu, &Button::clicked, this, [this] { m_reading.stop(); });
    connect(cmdclick[0], &Button::clicked, this, [this] { m_commands.showCard(u"标准"_s); });
    connect(cmdclick[1], &Button::clicked, this, [this] { m_commands.showCard(u"卡片"_s); });
    connect(cmdclick[2], &Button::clicked, this, [this] { m_commands.proof(); });
    connect(cmdclick[3], &Button::clicked, this, [this] { m_reading.all(); });
    connect(cmdclick[4], &Button::clicked, this, [this] { m_host.tell(u"暂无此功能"_s, boxTitle); });
    connect(cmdclick[5], &Button::clicked, this, [this] { m_commands.importRecords(); });
    connect(cmdclick[6], &Button::clicked, this, [this] { unload(); });
    connect(this, &Window::unloaded, this, [this] { m_reading.abandon(); });
}

void frmDaoru::load() {
    cmdJieShu->setEnabled(false);
    stopFlag.clear();
    recordChanged.clear();
    editRow = 0;
    editCol = 0;
    clickMark.clear();
    resetFieldGrid();
    loadData();
}

void frmDaoru::loadData() {
    readFirstBatch(publicMarcFile, firstBatch);
}

void frmDaoru::readFirstBatch(const QString &file, int limit) {
    m_reading.firstBatch(file, limit);
}

void frmDaoru::readRemainder(const QString &file, int passOver) {
    m_reading.remainder(file, passOver);
}

marc::DamagedDirectory frmDaoru::damagedDirectory() {
    return [this](const marc::RawRecord &record) {
        if (m_host.ask(u"地址目次区数据存在错误，本条数据无法处理！\r\n是否查看该条机读数据？（不查看选择‘否’继续）"_s,
                       boxTitle))
            m_windows.showReport(record, this);
    };
}

void frmDaoru::showRecord(const marc::RawRecord &record) {
    resetFieldGrid();
    marc::ShownRecord shown = marc::showRecord(record);
    publicTouBiao = shown.leader;
    if (shown.damaged) {
        damagedDirectory()(record);
    } else {
        const QString complaint = marc::fillDescriptions(shown.rows, platform::pathWithSlash(m_host.programFolder()));
        showFieldRows(*Grid1, shown.rows);
        m_cutOff = cutOffWarning(shown);
        if (!complaint.isEmpty())
            m_host.tell(complaint, boxTitle);
    }
    formatFieldGrid(*Grid1);
    m_editors.keepInSight(); // the list stays in reach of an open Text1
    updateStatus();
}

void frmDaoru::resetFieldGrid() {
    Grid1->clear();
    Grid1->setRows(2);
    m_cutOff.clear();
    formatFieldGrid(*Grid1);
}

void frmDaoru::resetRecordList() {
    m_records->reset();
    Grid2->clear();
    Grid2->bind(m_records);
    formatRecordList(*Grid2);
}

marc::RawRecord frmDaoru::madeMyMarc() const {
    return marc::madeMyMarc(fieldRows(*Grid1), publicTouBiao, m_host.now());
}

void frmDaoru::setTitle(int row, const QString &title) {
    m_records->setTitle(row, title);
    Grid2->viewport()->update();
}

void frmDaoru::allowReadAll(bool allowed) {
    m_mayReadAll = allowed;
    cmdclick[3]->setEnabled(allowed && Grid1->isEnabled());
}

void frmDaoru::holdControls(bool listToo) {
    Grid1->setEnabled(false);
    Grid2->setEnabled(!listToo);
    for (Button *button : cmdclick)
        button->setEnabled(false);
    for (Button *button : cmdTiMing)
        button->setEnabled(false);
}

void frmDaoru::releaseControls() {
    Grid1->setEnabled(true);
    Grid2->setEnabled(true);
    for (Button *button : cmdclick)
        button->setEnabled(true);
    for (Button *button : cmdTiMing)
        button->setEnabled(true);
    allowReadAll(m_mayReadAll); // an edit does not give back what the state of the read has taken
}

QRect frmDaoru::rightHalf() const {
    QRect half = Grid1->geometry();
    half.setLeft(half.left() + half.width() / 2);
    return half;
}

void frmDaoru::updateStatus() {
    marc::FieldRows rows = fieldRows(*Grid1);
    if (richText->isVisible() && editRow >= 1 && editRow <= rows.size())
        rows[editRow - 1].value = richText->text();
    QStringList warnings{m_cutOff, contentWarning(rows)};
    warnings.removeAll(QString());
    labZhuangTai->setText(warnings.join(u' '));
}

// What lies over the grid follows it, once the grid has laid itself out anew.
bool frmDaoru::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Grid1->viewport() && event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(this, &frmDaoru::placeOverlays, Qt::QueuedConnection);
    return Window::eventFilter(watched, event);
}

void frmDaoru::placeOverlays() {
    m_editors.keepInSight();
    zdList->setGeometry(rightHalf());
    Zzdlist->setGeometry(rightHalf());
}

bool frmDaoru::queryUnload() {
    if (!labJinDu->isHidden() && labJinDu->text() != RecordReading::ended) {
        m_host.tell(u"预读还没有结束，请先结束预读！"_s, boxTitle);
        return false;
    }
    return m_host.ask(u"确实要退出吗？"_s, boxTitle, platform::Answer::No);
}

} // namespace workspace
