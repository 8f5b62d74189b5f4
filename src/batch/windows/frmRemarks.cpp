#include "batch/windows/frmRemarks.h"
#include "batch/wholeFile.h"
#include "platform/paths.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPointer>
#include <QScreen>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace batch {

namespace {

constexpr int allKinds = -1;

QString withCount(QStringView name, int count) {
    return name + u" (" + QString::number(count) + u')';
}

} // namespace

frmRemarks::frmRemarks(platform::Host &host, QWidget *parent)
    : Window(u"frmRemarks"_s, u"校对全部"_s, parent)
    , labLeibie(named(new QLabel(u"类别(&F)："_s, this), u"labLeibie"_s))
    , cmbLeibie(named(new QComboBox(this), u"cmbLeibie"_s))
    , labJindu(new widgets::PacedLabel(u"labJindu"_s, {}, this))
    , cmdStop(new Button(u"cmdStop"_s, u"&S 停止"_s, this))
    , Grid1(new widgets::FlexGrid(u"Grid1"_s, RemarkList().columnCount(), 1, this))
    , labShuoming(named(new QLabel(this), u"labShuoming"_s))
    , cmdCopy(new Button(u"cmdCopy"_s, u"&C 复制"_s, this))
    , cmdSave(new Button(u"cmdSave"_s, u"&T 另存为…"_s, this))
    , cmdIso(new Button(u"cmdIso"_s, u"&I 存为机读文件…"_s, this))
    , cmdQuit(new Button(u"cmdQuit"_s, u"&Q 关闭"_s, this))
    , m_host(host) {
    Grid1->setAccessibleName(u"校对结果"_s);
    lay();
    widgets::hint({{Grid1, u"回车或双击：到这条记录、这个字段"},
                   {cmdStop, u"不再往下校对，已经发现的留下"},
                   {cmdCopy, u"复制列出的全部结果"},
                   {cmdSave, u"把列出的结果存为文本表格"},
                   {cmdIso, u"把这些记录存成机读目录文件，改正后再导入"}});
    cmdStop->hide();
    cmdIso->hide();
    showKinds();

    connect(labJindu, &widgets::PacedLabel::aboutToShow, this, [this] {
        showKinds();
        showRow();
    });
    connect(cmbLeibie, &QComboBox::activated, this, &frmRemarks::filter);
    connect(Grid1, &widgets::FlexGrid::enterCell, this, &frmRemarks::showRow);
    connect(Grid1, &widgets::FlexGrid::gridActivated, this, &frmRemarks::activateRow);
    connect(cmdStop, &Button::clicked, this, &frmRemarks::stop);
    connect(cmdCopy, &Button::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_list->tabSeparated(u"\n")); });
    connect(cmdSave, &Button::clicked, this, &frmRemarks::saveTable);
    connect(cmdIso, &Button::clicked, this, &frmRemarks::saveRecords);
    connect(cmdQuit, &Button::clicked, this, &frmRemarks::unload);
    widgets::rememberPlace(this, m_host.remembered());
}

void frmRemarks::lay() {
    cmbLeibie->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    widgets::keepPlace(cmdStop);
    Grid1->setFormat(RemarkList::headings.toString());
    Grid1->horizontalHeader()->setStretchLastSection(true);
    labShuoming->setTextFormat(Qt::PlainText);
    labShuoming->setWordWrap(true);
    labShuoming->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    labShuoming->setTextInteractionFlags(Qt::TextSelectableByMouse);
    setLayout(widgets::column({widgets::row({widgets::labelled(labLeibie, cmbLeibie), {labJindu, 1}, cmdStop}),
                               {Grid1, 1},
                               labShuoming,
                               widgets::row({widgets::stretch(), cmdCopy, cmdSave, cmdIso, cmdQuit})}));
    fitWidths();
}

// Widths in characters of the font, whatever its size.
void frmRemarks::fitWidths() {
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({4, 13, 5, 3, 12});
    for (std::size_t column = 0; column < characters.size(); ++column)
        Grid1->setColumnTwips(int(column), Grid1->toTwips(character * characters[column]));
    labShuoming->setFixedHeight(3 * fontMetrics().lineSpacing());
}

void frmRemarks::changeEvent(QEvent *event) {
    Window::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitWidths();
}

QSize frmRemarks::sizeHint() const {
    const QSize wanted(fontMetrics().horizontalAdvance(u'书') * 68, fontMetrics().lineSpacing() * 32);
    constexpr int frame = 40; // and the title bar
    return wanted.boundedTo(screen()->availableSize() - QSize(frame, 2 * frame)).expandedTo(minimumSizeHint());
}

int frmRemarks::begin(const QString &caption, std::shared_ptr<const marc::PreReadStore> records) {
    setWindowTitle(caption);
    m_records = std::move(records);
    m_refused.clear();
    m_proved = 0;
    m_list = std::make_shared<RemarkList>();
    Grid1->bind(m_list);
    cmbLeibie->clear();
    showKinds();
    showRow();
    cmdIso->hide();
    cmdStop->hide();
    m_running = false;
    if (!testAttribute(Qt::WA_Resized)) // a dialog would take two thirds of the screen at most
        resize(sizeHint());
    show();
    raise();
    activateWindow();
    return ++m_run;
}

void frmRemarks::proofAll(std::shared_ptr<const marc::PreReadStore> records, ProofOne proof,
                          const database::SessionState &state) {
    BatchProof proving(records, std::move(proof));
    const int run = begin(u"校对全部"_s, std::move(records));
    m_running = true;
    cmdStop->show();
    Grid1->setFocus();
    if (!prove(proving, run))
        return;
    DuplicateSearch searching(state, proving.takeSought());
    if (search(searching, run))
        finish(u"校对");
}

// Lets events in; false where the run is over. Nothing of the window may be touched then.
bool frmRemarks::goesOn(int run) {
    const QPointer<frmRemarks> self(this);
    m_host.yield();
    if (!self || run != m_run)
        return false;
    const bool inSight = isVisible() && (!parentWidget() || parentWidget()->isVisible());
    if (!inSight)
        stop();
    return inSight;
}

bool frmRemarks::prove(BatchProof &proving, int run) {
    while (proving.hasNext()) {
        take(proving.step());
        m_proved = proving.proved();
        labJindu->setPacedText(
            u"正在校对：%1/%2，发现 %3 处"_s.arg(m_proved).arg(proving.total()).arg(m_list->found()));
        if (!goesOn(run))
            return false;
    }
    return true;
}

bool frmRemarks::search(DuplicateSearch &searching, int run) {
    while (searching.hasNext()) {
        take(searching.step());
        labJindu->setPacedText(u"正在查重："_s + searching.progressText());
        if (!goesOn(run))
            return false;
    }
    return true;
}

void frmRemarks::take(std::vector<Remark> remarks) {
    if (remarks.empty())
        return;
    for (Remark &remark : remarks)
        m_list->add(std::move(remark));
    Grid1->sourceHasGrown();
}

void frmRemarks::stop() {
    if (m_running)
        finish(u"已停止，校对");
}

void frmRemarks::finish(QStringView opening) {
    ++m_run;
    m_running = false;
    if (cmdStop->hasFocus())
        Grid1->setFocus();
    cmdStop->hide();
    const int current = Grid1->row() > 0 ? m_list->idOf(Grid1->row() - 1) : -1;
    m_list->sort();
    Grid1->bind(m_list);
    Grid1->setRow(m_list->rowOf(current) + 1);
    labJindu->setText(u"%1 %2 条，发现 %3 处"_s.arg(opening).arg(m_proved).arg(m_list->found()) +
                      (m_list->count(Kind::Unchecked) ? u"，有的未能检查" : u""));
    showKinds();
    showRow();
}

void frmRemarks::showRefused(std::vector<Refused> refused, std::shared_ptr<const marc::PreReadStore> records) {
    begin(u"未成功记录"_s, std::move(records));
    m_refused = std::move(refused);
    take(remarksOf(m_refused, *m_records));
    m_list->sort();
    Grid1->bind(m_list);
    Grid1->setFocus();
    cmdIso->show();
    labJindu->setText(u"未成功 %1 条"_s.arg(m_list->found()));
    showKinds();
    showRow();
}

// Kinds are added as they come and never go, so that the one chosen stays.
void frmRemarks::showKinds() {
    if (cmbLeibie->count() == 0)
        cmbLeibie->addItem({}, allKinds);
    cmbLeibie->setItemText(0, withCount(u"全部", m_list->count()));
    int place = 1;
    for (int kind = 0; kind < int(kindCount); ++kind) {
        const int count = m_list->count(Kind(kind));
        if (count == 0)
            continue;
        const QString text = withCount(nameOf(Kind(kind)), count);
        if (place >= cmbLeibie->count() || cmbLeibie->itemData(place).toInt() != kind)
            cmbLeibie->insertItem(place, text, kind);
        else if (cmbLeibie->itemText(place) != text)
            cmbLeibie->setItemText(place, text);
        ++place;
    }
}

void frmRemarks::filter() {
    const int kind = cmbLeibie->currentData().toInt();
    m_list->setFilter(kind == allKinds ? std::nullopt : std::optional(Kind(kind)));
    Grid1->bind(m_list);
    showRow();
}

void frmRemarks::showRow() {
    const int row = Grid1->row() - 1;
    labShuoming->setText(row < 0 || row >= m_list->rowCount() ? QString() : m_list->remark(row).text);
}

void frmRemarks::activateRow() {
    const int row = Grid1->row() - 1;
    if (row < 0 || row >= m_list->rowCount() || m_list->remark(row).record < 0)
        return;
    const Remark &remark = m_list->remark(row);
    Q_EMIT jump(remark.record, remark.fieldRow);
}

// The path to write to; empty where none was chosen, or an existing file is to stay.
QString frmRemarks::chooseTarget(const QString &title, const QString &filter, QStringView suffix) {
    QString path = m_host.chooseFile({.title = title, .filter = filter, .kind = platform::FileDialogKind::Save});
    if (path.isEmpty())
        return {};
    if (!path.sliced(platform::folderOf(path).size()).contains(u'.'))
        path += suffix;
    const bool mayWrite = !platform::fileExists(path) || m_host.ask(u"文件【"_s + path + u"】已经存在，是否替换？",
                                                                    platform::hintTitle, platform::Answer::No);
    return mayWrite ? path : QString();
}

void frmRemarks::tellSaved(const platform::Status &saved, const QString &path) {
    if (saved)
        labJindu->setText(u"已保存到 "_s + path);
    else
        m_host.tell(u"保存失败：【"_s + saved.failure().description + u"】");
}

void frmRemarks::saveTable() {
    const QString path = chooseTarget(u"另存为"_s, u"文本表格(*.tsv)|*.tsv|所有文件(*.*)|*.*"_s, u".tsv");
    if (!path.isEmpty())
        tellSaved(saveRemarks(path, *m_list), path);
}

void frmRemarks::saveRecords() {
    const QString path = chooseTarget(u"存为机读文件"_s, u"机读目录文件(*.iso)|*.iso|所有文件(*.*)|*.*"_s, u".iso");
    if (!path.isEmpty())
        tellSaved(saveRefused(path, m_refused, *m_records), path);
}

} // namespace batch
