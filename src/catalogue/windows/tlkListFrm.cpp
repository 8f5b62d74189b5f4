#include "catalogue/windows/tlkListFrm.h"
#include "catalogue/listStatements.h"
#include "catalogue/listTexts.h"
#include "catalogue/sortOrder.h"
#include "platform/fileFilters.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "widgets/foldingRow.h"
#include "widgets/layout.h"
#include "widgets/styleTokens.h"
#include "widgets/waitCursor.h"
#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;
using platform::Answer;
using widgets::Button;

namespace catalogue {

TLKListFrm::TLKListFrm(const database::SessionState &state, platform::Host &host, StoreListWindows windows,
                       QWidget *parent)
    : ListWindow(u"TLKListFrm"_s, u"套录库检索"_s, u"控制号|正题名|第一责任者|ISBN|分类号|页数|尺寸|版本"_s, parent)
    , lCounts(widgets::named(new QLabel(countText(0), this), u"lCounts"_s))
    , conditionWords(new widgets::PacedLabel(u"conditionWords"_s, {}, this))
    , markedRows(new widgets::PacedLabel(u"markedRows"_s, {}, this))
    , cmdThisImport(new Button(u"cmdThisImport"_s, u"&I 选中本次导入"_s, this))
    , cmdSave(new Button(u"cmdSave"_s, u"&T 存为机读文件…"_s, this))
    , stopSaving(new Button(u"stopSaving"_s, u"&S 停止"_s, this))
    , saved(new widgets::PacedLabel(u"saved"_s, {}, this))
    , CmdDcgl{new Button(u"CmdDcgl0"_s, u"&X 删除"_s, this), new Button(u"CmdDcgl1"_s, u"&D 全部删除"_s, this),
              new Button(u"CmdDcgl2"_s, u"&Q 关闭"_s, this)}
    , m_state(state)
    , m_host(host)
    , m_windows(std::move(windows)) {
    layOut();
    widgets::hint({{Grid1, u"回车或双击看卡片；Shift+↑ ↓ 选几行"},
                   {cmdThisImport, u"列出最近一次导入的记录，全部选中"},
                   {cmdSave, u"选了几行就存这几行，只有一行则存列出的全部"},
                   {stopSaving, u"停止保存，不留下文件"},
                   {CmdDcgl[0], u"删除选中的行，不能恢复"},
                   {CmdDcgl[1], u"删除合条件的全部记录，不只是列出的；没有条件就是整个套录库。不能恢复"}});
    connect(cmdThisImport, &Button::clicked, this, &TLKListFrm::showThisImport);
    connect(cmdSave, &Button::clicked, this, &TLKListFrm::saveRecords);
    connect(stopSaving, &Button::clicked, this, [this] { m_run->stop(); });
    connect(Grid1, &widgets::FlexGrid::gridActivated, this, &TLKListFrm::showCard);
    connect(Grid1, &widgets::FlexGrid::headingClicked, this, &TLKListFrm::sortBy);
    connect(CmdDcgl[0], &Button::clicked, this, &TLKListFrm::delSelected);
    connect(CmdDcgl[1], &Button::clicked, this, [this] {
        if (m_host.insist(u"你确定将检索出的数据从套录库中删除吗？"_s, platform::hintTitle, Answer::No))
            delAll();
    });
    connect(CmdDcgl[2], &Button::clicked, this, &TLKListFrm::unload);
    connect(Grid1->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TLKListFrm::countMarked);
    setSaving(nullptr);
}

void TLKListFrm::layOut() {
    setLayout(widgets::column(
        {{Grid1, 1},
         widgets::row({lCounts, markedRows, {conditionWords, 1}, saved}),
         new widgets::FoldingRow({widgets::row({widgets::stretch(), cmdThisImport, cmdSave, stopSaving}),
                                  widgets::row({CmdDcgl[0], CmdDcgl[1], CmdDcgl[2]})})}));
}

void TLKListFrm::loadData(Condition &condition, QString &order) {
    m_storeCondition = condition;
    m_storeOrder = order;
    m_headingOrder.clear();
    listRows();
}

void TLKListFrm::listRows() {
    gridInit();
    sayCondition();
    const widgets::WaitCursor waiting;
    bindRows();
    lCounts->setText(countText(firstCellIsEmpty() ? 0 : dataRows()));
    const auto shown = headingOrder(shownOrder(), storeColumns);
    Grid1->showOrder(shown ? shown->column : -1, shown && shown->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

// The order of a query would also be part of "delete all", which most servers then refuse. This one is not.
void TLKListFrm::sortBy(int column) {
    if (m_run)
        return;
    m_headingOrder = orderAfterClick(column, shownOrder(), storeColumns);
    listRows();
}

// All failures, including that of the connection, show the same message and leave the grid empty.
void TLKListFrm::bindRows() {
    auto connection = database::Connection::open(m_state.links, m_state.connectionString);
    if (connection) {
        const auto rows = connection.value().query(storeStatement(m_storeCondition.sql, shownOrder()));
        if (rows) {
            lCounts->setText(loadingText.toString());
            lCounts->repaint();
            showRows(rows.value());
            m_windows.hideWorking();
            return;
        }
    }
    m_host.tell(u"套录库已经损坏,数据不能正常显示。请修复。"_s, u"提示"_s);
}

void TLKListFrm::countMarked() {
    const int rows = std::abs(Grid1->rowSel() - Grid1->row()) + 1;
    markedRows->setText(firstCellIsEmpty() ? QString() : u"选中 %1 行"_s.arg(rows));
}

// A list of all rows gets a warning, since it looks like any other list and "delete all" deletes what is listed.
void TLKListFrm::sayCondition() {
    QPalette ink = palette();
    if (m_storeCondition.isEmpty())
        ink.setColor(QPalette::WindowText, widgets::colour(widgets::Colour::WarningInk, ink));
    conditionWords->setPalette(ink);
    const QString line = conditionLine(m_storeCondition);
    conditionWords->setText(m_storeCondition.isEmpty() ? QString(u"⚠ " + line) : line);
}

void TLKListFrm::showThisImport() {
    const QList<qint64> keys = m_windows.lastImport();
    if (keys.isEmpty())
        return m_host.tell(u"本次运行还没有导入记录。"_s);
    Condition condition{keysCondition(keys), u"本次导入的 %1 条"_s.arg(keys.size())};
    QString order; // "delete all" would include an order, which most servers refuse
    loadData(condition, order);
    if (!firstCellIsEmpty())
        Grid1->setRowSel(dataRows());
    Grid1->setFocus();
}

void TLKListFrm::showCard() {
    if (firstCellIsEmpty())
        return;
    if (const auto record = recordOfRow(Grid1->row()))
        m_windows.showCard(*record, [this](int by) { return step(by); });
}

std::optional<QString> TLKListFrm::recordOfRow(int row) {
    const qint64 key = Grid1->text(row, 0).toLongLong();
    const auto records = recordsOf({key}, m_state);
    if (records)
        return records.value().value(key);
    m_host.tell(records.failure().description);
    return std::nullopt;
}

std::optional<QString> TLKListFrm::step(int by) {
    const int next = Grid1->shownRow(Grid1->row(), by);
    if (next < 0)
        return std::nullopt;
    Grid1->setRow(next);
    return recordOfRow(next);
}

QList<qint64> TLKListFrm::keysToSave() const {
    auto [first, last] = std::minmax({Grid1->row(), Grid1->rowSel()});
    if (first == last)
        std::tie(first, last) = std::pair(1, dataRows());
    QList<qint64> keys;
    for (int row = first; row <= last; ++row)
        keys.append(Grid1->text(row, 0).toLongLong());
    return keys;
}

void TLKListFrm::saveRecords() {
    if (firstCellIsEmpty())
        return m_host.tell(u"没有可以保存的记录。"_s);
    const QString path = m_host.chooseFile({.title = u"存为机读文件"_s,
                                            .filter = platform::filters::storeRecords.toString(),
                                            .kind = platform::FileDialogKind::Save});
    if (path.isEmpty() ||
        (platform::fileExists(path) && !m_host.ask(path + u"已经存在。要替换吗？", platform::hintTitle)))
        return;
    save(path);
}

void TLKListFrm::save(const QString &path) {
    const QList<qint64> keys = keysToSave();
    const QString form = u"已经保存：%1/"_s + QString::number(keys.size());
    SaveRun run(keys, m_host, m_state);
    setSaving(&run);
    const QString result = run.save(path, [&](int done) { saved->setPacedNumber(form, done); });
    setSaving(nullptr);
    if (m_processEnds)
        return;
    m_host.tell(result);
    if (m_closesAfterRun)
        unload();
}

// During a run, disables what would start a second run or remove the rows.
void TLKListFrm::setSaving(SaveRun *run) {
    m_run = run;
    saved->setText({});
    saved->setVisible(run);
    stopSaving->setEnabled(run);
    for (Button *button : {cmdThisImport, cmdSave, CmdDcgl[0], CmdDcgl[1]})
        button->setEnabled(!run);
}

void TLKListFrm::endRun() {
    m_processEnds = true;
    if (m_run)
        m_run->stop();
}

void TLKListFrm::gridFix() {
    setWidths(storeWidths());
}

void TLKListFrm::announceDeletion() {
    lCounts->setText(deletingText.toString());
    lCounts->repaint();
}

void TLKListFrm::delSelected() {
    auto connection = database::Connection::open(m_state.links, m_state.connectionString);
    if (!m_host.insist(u"确定要将选择的文献从套录库中删除吗吗？(Y/N)"_s, {}, Answer::No))
        return;
    announceDeletion();
    const auto [first, last] = std::minmax({Grid1->row(), Grid1->rowSel()});
    for (int row = first; connection && row <= last; ++row) {
        const QString zskid = Grid1->text(row, 0);
        if (platform::leadingNumber(zskid) > 0)
            (void)connection.value().execute(deleteRowStatement(zskid));
    }
    listRows();
}

void TLKListFrm::delAll() {
    {
        auto connection = database::Connection::open(m_state.links, m_state.connectionString);
        announceDeletion();
        if (connection)
            (void)connection.value().execute(deleteAllStatement(m_storeCondition.sql, m_storeOrder));
    }
    listRows(); // hides a failed deletion, which is not reported
}

bool TLKListFrm::queryUnload() {
    lCounts->setText(leavingText.toString());
    m_closesAfterRun = m_run != nullptr;
    if (m_run)
        m_run->stop();
    return !m_closesAfterRun;
}

} // namespace catalogue
