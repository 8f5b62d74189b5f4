#include "catalogue/windows/tlkListFrm.h"
#include "catalogue/listStatements.h"
#include "catalogue/listTexts.h"
#include "platform/numbers.h"
#include "widgets/layout.h"
#include <utility>

using namespace Qt::StringLiterals;
using platform::Answer;
using widgets::Button;

namespace catalogue {

TLKListFrm::TLKListFrm(const database::SessionState &state, platform::Host &host, std::function<void()> hideWorking,
                       QWidget *parent)
    : ListWindow(u"TLKListFrm"_s, u"套录库检索"_s, u"控制号|正题名|第一责任者|ISBN|分类号|页数|尺寸|版本"_s, parent)
    , lCounts(widgets::named(new QLabel(countText(0), this), u"lCounts"_s))
    , CmdDcgl{new Button(u"CmdDcgl0"_s, u"&X 删除"_s, this), new Button(u"CmdDcgl1"_s, u"&D 全部删除"_s, this),
              new Button(u"CmdDcgl2"_s, u"&Q 关闭"_s, this)}
    , m_state(state)
    , m_host(host)
    , m_hideWorking(std::move(hideWorking)) {
    layOut();
    connect(CmdDcgl[0], &Button::clicked, this, &TLKListFrm::delSelected);
    connect(CmdDcgl[1], &Button::clicked, this, [this] {
        if (m_host.insist(u"你确定将检索出的数据从套录库中删除吗？"_s, platform::hintTitle, Answer::No))
            delAll();
    });
    connect(CmdDcgl[2], &Button::clicked, this, &TLKListFrm::unload);
    gridInit();
}

void TLKListFrm::layOut() {
    setLayout(widgets::column({{Grid1, 1}, widgets::row({{lCounts, 1}, CmdDcgl[0], CmdDcgl[1], CmdDcgl[2]})}));
}

void TLKListFrm::loadData(QString &condition, QString &order) {
    gridInit();
    m_storeCondition = condition;
    m_storeOrder = order;
    const widgets::WaitCursor waiting;
    bindRows();
    lCounts->setText(countText(firstCellIsEmpty() ? 0 : dataRows()));
    settleGrid();
}

// Any failure, that of the connection too, is told with the one message; the grid then stays empty.
void TLKListFrm::bindRows() {
    auto connection = database::Connection::open(m_state.links, m_state.connectionString);
    if (connection) {
        const auto rows = connection.value().query(storeStatement(m_storeCondition, m_storeOrder));
        if (rows) {
            lCounts->setText(loadingText.toString());
            lCounts->repaint();
            showRows(rows.value());
            m_hideWorking();
            return;
        }
    }
    m_host.tell(u"套录库已经损坏,数据不能正常显示。请修复。"_s, u"提示"_s);
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
    reload();
}

void TLKListFrm::delAll() {
    {
        auto connection = database::Connection::open(m_state.links, m_state.connectionString);
        announceDeletion();
        if (connection)
            (void)connection.value().execute(deleteAllStatement(m_storeCondition, m_storeOrder));
    }
    reload(); // which forgets the failure of the deletion: nobody is told of it
}

void TLKListFrm::reload() {
    QString condition = m_storeCondition;
    QString order = m_storeOrder;
    loadData(condition, order);
}

bool TLKListFrm::queryUnload() {
    lCounts->setText(leavingText.toString());
    return true;
}

} // namespace catalogue
