#include "catalogue/windows/zskListFrm.h"
#include "catalogue/listStatements.h"
#include "catalogue/listTexts.h"
#include "catalogue/sortOrder.h"
#include "platform/numbers.h"
#include "widgets/layout.h"
#include "widgets/waitCursor.h"
#include <QShortcut>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;

namespace catalogue {

namespace {

enum { Detail, Sort, Print, Export, Stop, Close };

constexpr QStringView failedQuery = u"查询没有成功，列表是空的。";
constexpr std::array<QStringView, 6> captions = {u"&M 明细", u"&S 排序", u"&P 打印",
                                                 u"&D 导出", u"&T 停止", u"&X 关闭"};

} // namespace

ZSKListFrm::ZSKListFrm(const database::SessionState &state, platform::Host &host, const CatalogueOrder &order,
                       CatalogueListWindows windows, QWidget *parent)
    : ListWindow(u"ZSKListFrm"_s, u"导出marc数据文件"_s, u"控制号|ISBN|书   名|著 者|分类号|出版社|册 数|入库日期"_s,
                 parent)
    , lCounts(widgets::named(new QLabel(this), u"lCounts"_s))
    , labDaochu(new widgets::PacedLabel(u"labDaochu"_s, {}, this))
    , m_state(state)
    , m_host(host)
    , m_order(order)
    , m_windows(std::move(windows)) {
    for (size_t index = 0; index < CmdDcgl.size(); ++index)
        CmdDcgl[index] = new Button(u"CmdDcgl"_s + QString::number(index), captions[index].toString(), this);
    widgets::hint({{CmdDcgl[Detail], u"当前一行的馆藏册（回车或双击）"},
                   {CmdDcgl[Export], u"把列出的全部书目存成机读目录文件"},
                   {CmdDcgl[Stop], u"停止导出，已经导出的留在文件里"}});
    layOut();
    connectControls();
    // Wide enough for any count, so that the buttons never move.
    labDaochu->setMinimumWidth(labDaochu->fontMetrics().horizontalAdvance(progressText(99'999'999, 99'999'999)));
    labDaochu->hide();
}

void ZSKListFrm::layOut() {
    auto *buttons = widgets::row({});
    for (Button *button : CmdDcgl)
        buttons->addWidget(button);
    setLayout(widgets::column({{Grid1, 1}, widgets::row({{lCounts, 1}, labDaochu, buttons})}));
}

void ZSKListFrm::connectControls() {
    connect(CmdDcgl[Detail], &Button::clicked, this, &ZSKListFrm::showDetail);
    connect(CmdDcgl[Sort], &Button::clicked, this, [this] { m_windows.showOrderby(); });
    connect(CmdDcgl[Print], &Button::clicked, this, [this] { PrintRpt({}); });
    connect(CmdDcgl[Export], &Button::clicked, this, &ZSKListFrm::daochuMarc);
    // Without a run this disables both buttons too, and nothing enables 导出 again.
    connect(CmdDcgl[Stop], &Button::clicked, this, [this] {
        CmdDcgl[Export]->setEnabled(false);
        CmdDcgl[Stop]->setEnabled(false);
    });
    connect(CmdDcgl[Close], &Button::clicked, this, &ZSKListFrm::unload);
    connect(labDaochu, &widgets::PacedLabel::aboutToShow, this, [this] {
        if (m_run)
            m_run->handOver();
    });
    connect(Grid1, &widgets::FlexGrid::gridActivated, this, &ZSKListFrm::showDetail);
    connect(Grid1, &widgets::FlexGrid::headingClicked, this, &ZSKListFrm::sortBy);
    auto *find = new QShortcut(QKeySequence(u"Ctrl+F"_s), Grid1, nullptr, nullptr, Qt::WidgetShortcut);
    connect(find, &QShortcut::activated, this, &ZSKListFrm::loadQueryByKey);
}

void ZSKListFrm::loadData(Condition &condition, QString &order) {
    widgets::WaitCursor waiting;
    m_queryCondition = condition;
    if (order.isEmpty())
        order = m_order.sortOrder;
    database::DbSession session;
    if (!database::openConnection(session, m_state, m_host))
        return waiting.leaveOn(); // the caller ends it
    lCounts->setText(loadingText.toString());
    lCounts->repaint();
    auto rows = session->query(catalogueStatement(condition.sql, order));
    showRows(rows ? rows.value() : nullptr);
    database::closeConnection(session);
    // A failing statement silently leaves an empty list.
    const bool empty = !rows || rows.value()->rowCount() == 0;
    if (empty || firstCellIsEmpty()) {
        lCounts->setText(empty ? noRowsToExport.toString() : countText(0));
        m_printSql.clear();
    } else {
        lCounts->setText(countText(dataRows()));
        m_printSql = reportStatement(condition.sql, order);
    }
    lCounts->setToolTip(widgets::plainTip(rows ? conditionLine(condition) : failedQuery + conditionLine(condition)));
    m_shownOrder = order;
    const auto shown = headingOrder(order, catalogueColumns);
    Grid1->showOrder(shown ? shown->column : -1, shown && shown->descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

// As the sort dialog does, without storing the order for later queries.
void ZSKListFrm::sortBy(int column) {
    QString order = orderAfterClick(column, m_shownOrder, catalogueColumns);
    if (order.isEmpty() || m_run)
        return;
    const widgets::WaitCursor waiting;
    Condition condition = m_queryCondition;
    loadData(condition, order);
}

void ZSKListFrm::gridFix() {
    setWidths(catalogueWidths(gridRoom()));
}

void ZSKListFrm::PrintRpt(const QString &title) {
    if (m_printSql.isEmpty())
        return;
    // All failures are silent, including that of the connection.
    auto connection = database::Connection::open(m_state.links, m_state.connectionString);
    if (!connection)
        return;
    auto rows = connection.value().query(m_printSql);
    if (rows)
        m_windows.showReport(DataReportJs(rows.value(), title, m_host.now().date()));
}

void ZSKListFrm::showDetail() {
    const QString zskid = key(Grid1->row());
    if (!zskid.isEmpty())
        m_windows.showDetail(platform::toInt32(zskid).value_or(0));
}

// Required: the window that this key would use for a new query was never set, so the call fails and ends the program.
void ZSKListFrm::loadQueryByKey() {
    m_host.tell(u"LoadQuery：缺少所需的对象，程序将结束。"_s, {}, platform::Icon::Critical);
    endRun();
    m_host.endProcess();
}

void ZSKListFrm::daochuMarc() {
    if (m_run)
        return;
    CmdDcgl[Stop]->setEnabled(true);
    ExportRun run(*this, m_host, m_state);
    m_run = &run;
    run.daochuMarc();
    m_run = nullptr;
    if (m_closesAfterRun)
        unload();
}

void ZSKListFrm::endRun() {
    if (m_run)
        m_run->end();
}

bool ZSKListFrm::queryUnload() {
    lCounts->setText(leavingText.toString());
    endRun();
    m_closesAfterRun = m_run != nullptr; // the owner may delete the window on closing while the run still uses it
    return !m_closesAfterRun;
}

void ZSKListFrm::showProgress(const QString &text) {
    labDaochu->show();
    if (!text.isEmpty())
        labDaochu->setPacedText(text);
}

bool ZSKListFrm::stopPressed() const {
    return !CmdDcgl[Stop]->isEnabled();
}

void ZSKListFrm::goOn() {
    CmdDcgl[Stop]->setEnabled(true);
}

} // namespace catalogue
