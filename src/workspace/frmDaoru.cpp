#include "workspace/frmDaoru.h"
#include "marc/configurationFiles.h"
#include "marc/recordWriter.h"
#include "platform/paths.h"
#include "platform/widgets/layout.h"
#include "workspace/fieldGrid.h"

using namespace Qt::StringLiterals;
using platform::Button;
using platform::column;
using platform::row;

namespace workspace {

namespace {

const QString boxTitle = u"操作提示"_s;
constexpr QStringView readEnded = u"预读结束";
constexpr int firstBatch = 200; // records read before the window is shown
constexpr int fieldColumns = 5;
constexpr int listColumns = 3;

struct CommandCaption {
    QStringView caption;
    QStringView hint;
};
constexpr auto commandCaptions = std::to_array<CommandCaption>({
    {u"&B 标准式", u"按标准式查看marc数据"},
    {u"&K 卡片式", u"按卡片式查看marc数据"},
    {u"&J 校对", u"校对marc数据"},
    {u"&A 全部", u"读取机读目录全部数据"},
    {u"&M 生成拼音", u"生成拼音"},
    {u"&S 导入", u"将预读出的机读数据保存为新文件"},
    {u"&Q 退出", u"退出"},
});

std::array<Button *, 7> commands(QWidget *parent) {
    std::array<Button *, 7> made{};
    for (size_t i = 0; i < made.size(); ++i) {
        made[i] = new Button(u"cmdclick"_s + QString::number(i), commandCaptions[i].caption.toString(), parent);
        made[i]->setToolTip(commandCaptions[i].hint.toString());
    }
    return made;
}

// A number beside its label, as large as any count of records.
platform::PacedLabel *numberBox(const QString &name, const QString &meaning, QWidget *parent) {
    auto *box = new platform::PacedLabel(name, {}, parent);
    box->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(u"9999999999"_s));
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setAccessibleName(meaning);
    return box;
}

QGroupBox *frameOf(const QString &name, QWidget *parent) {
    auto *frame = new QGroupBox(parent);
    frame->setObjectName(name);
    frame->setFlat(true);
    return frame;
}

QLabel *label(const QString &name, const QString &text, QWidget *parent) {
    auto *made = new QLabel(text, parent);
    made->setObjectName(name);
    return made;
}

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
    , labJinDu(label(u"labJinDu"_s, readEnded.toString(), this))
    , cmdJieShu(new Button(u"cmdJieShu"_s, u"结束预读"_s, this))
    , cmdTiMing{new Button(u"cmdTiMing0"_s, u"&P 上一条"_s, this), new Button(u"cmdTiMing1"_s, u"&N 下一条"_s, this)}
    , cmdclick(commands(this))
    , m_host(host)
    , m_windows(std::move(windows))
    , m_moving(*this, host)
    , m_commands(*this, host, m_windows) {
    Grid1->setAccessibleName(u"字段"_s);
    Grid2->setAccessibleName(u"题名列表"_s);
    lay();
    connectControls();
}

void frmDaoru::lay() {
    picTiMing->setLayout(column({{Grid2, 1}}));
    Picture1->setLayout(column({{Grid1, 1}}));
    for (QGroupBox *frame : {picTiMing, Picture1})
        frame->layout()->setContentsMargins(0, 0, 0, 0);
    setLayout(column({
        {row({{picTiMing, 2}, {Picture1, 7}}), 1},
        row({Label1[0], Text2, Label1[1], Text3, Label1[2], Text4, labJinDu, platform::stretch(), cmdJieShu}),
        row({cmdTiMing[0], cmdTiMing[1], platform::stretch(), cmdclick[0], cmdclick[1], cmdclick[2], cmdclick[3],
             cmdclick[4], cmdclick[5], cmdclick[6]}),
    }));
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 150, metrics.height() * 34);
    Grid2->setFocus();
}

void frmDaoru::connectControls() {
    connect(Grid2, &platform::FlexGrid::gridClicked, this, [this] { m_moving.clickStep(); });
    connect(Grid2, &platform::FlexGrid::keyReleased, this, [this](int key) { m_moving.keyStep(key); });
    connect(Grid2, &platform::FlexGrid::leaveCell, this, [this] { m_moving.leaveStep(); });
    connect(Grid2, &platform::FlexGrid::enterCell, this, [this] { m_moving.enterStep(); });
    connect(cmdTiMing[0], &Button::clicked, this, [this] { m_moving.step(-1); });
    connect(cmdTiMing[1], &Button::clicked, this, [this] { m_moving.step(1); });
    connect(cmdJieShu, &Button::clicked, this, [this] { stopReading(); });
    connect(cmdclick[0], &Button::clicked, this, [this] { m_commands.showCard(u"标准"_s); });
    connect(cmdclick[1], &Button::clicked, this, [this] { m_commands.showCard(u"卡片"_s); });
    connect(cmdclick[2], &Button::clicked, this, [this] { m_commands.proof(); });
    connect(cmdclick[3], &Button::clicked, this, [this] { readAll(); });
    connect(cmdclick[4], &Button::clicked, this, [this] { m_host.tell(u"暂无此功能"_s, boxTitle); });
    connect(cmdclick[5], &Button::clicked, this, [this] { m_commands.importRecords(); });
    connect(cmdclick[6], &Button::clicked, this, [this] { unload(); });
    connect(this, &Window::unloaded, this, [this] { m_closed = true; });
}

void frmDaoru::load() {
    cmdJieShu->setEnabled(false);
    stopFlag.clear();
    recordChanged.clear();
    resetFieldGrid();
    loadData();
}

void frmDaoru::loadData() {
    readFirstBatch(publicMarcFile, firstBatch);
}

std::optional<platform::LineReader> frmDaoru::open(const QString &file) {
    auto reader = platform::LineReader::open(file);
    if (reader)
        return std::move(reader).value();
    m_host.tell(u"打开文件失败，无法导入，请重新选择"_s, boxTitle);
    return std::nullopt;
}

void frmDaoru::sayState(QStringView text) {
    labJinDu->setText(text.toString());
    labJinDu->repaint();
}

ReadEnd frmDaoru::read(platform::LineReader &reader, ReadRange range, bool first) {
    const int begun = ++m_readsBegun;
    const ReadWatcher watcher{
        .yield = [this] { m_host.yield(); },
        .abandoned = [this, begun] { return m_closed || begun != m_readsBegun; },
        .stopRequested = [this] { return stopFlag == u"yes"; },
        .damaged = damagedDirectory(),
        .listed =
            [this, first](int count) {
                Text3->setPacedText(QString::number(count));
                Grid2->sourceHasGrown();
                if (first && count == 1)
                    showRecord(m_records->record(0));
            },
    };
    const ReadEnd end = readRecords(reader, range, *m_records, watcher);
    if (end.atEnd)
        Text4->setText(QString::number(end.count));
    return end;
}

void frmDaoru::endRead() {
    sayState(readEnded);
    cmdJieShu->setEnabled(false);
    stopFlag.clear();
}

void frmDaoru::readFirstBatch(const QString &file, int limit) {
    resetRecordList();
    auto reader = open(file);
    if (!reader)
        return;
    sayState(u"正在预读.......");
    if (const auto estimate = marc::lineCount(file))
        Text4->setText(QString::number(estimate.value()));
    const ReadEnd end = read(*reader, {.passOver = 0, .limit = limit}, true);
    reader.reset();
    if (end.abandoned)
        return;
    Grid2->setRow(0);
    m_moving.clickStep();
    endRead();
}

void frmDaoru::readRemainder(const QString &file, int passOver) {
    if (passOver <= 0)
        return;
    auto reader = open(file);
    if (!reader)
        return;
    sayState(u"正在继续预读.......");
    const ReadEnd end = read(*reader, {.passOver = passOver}, false);
    if (!end.abandoned)
        endRead();
}

void frmDaoru::readAll() {
    cmdclick[3]->setEnabled(false);
    stopFlag.clear();
    cmdJieShu->setEnabled(true);
    sayState(u"正在预读......");
    readRemainder(publicMarcFile, m_records->rowCount());
}

void frmDaoru::stopReading() {
    cmdJieShu->setEnabled(false);
    stopFlag = u"yes"_s;
    sayState(readEnded);
    cmdclick[3]->setEnabled(true);
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
        return formatFieldGrid(*Grid1);
    }
    const QString complaint = marc::fillDescriptions(shown.rows, platform::pathWithSlash(m_host.programFolder()));
    showFieldRows(*Grid1, shown.rows);
    if (!complaint.isEmpty())
        m_host.tell(complaint, boxTitle);
    formatFieldGrid(*Grid1);
}

void frmDaoru::resetFieldGrid() {
    Grid1->clear();
    Grid1->setRows(2);
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

bool frmDaoru::queryUnload() {
    if (!labJinDu->isHidden() && labJinDu->text() != readEnded) {
        m_host.tell(u"预读还没有结束，请先结束预读！"_s, boxTitle);
        return false;
    }
    return m_host.ask(u"确实要退出吗？"_s, boxTitle, platform::Answer::No);
}

} // namespace workspace
