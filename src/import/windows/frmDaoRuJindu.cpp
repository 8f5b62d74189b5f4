#include "import/windows/frmDaoRuJindu.h"
#include "import/daoruClass.h"
#include "platform/numbers.h"
#include "widgets/button.h"
#include "widgets/layout.h"
#include "widgets/lineIcon.h"
#include "widgets/oneSize.h"
#include "widgets/pacedLabel.h"
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QStyle>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::column;
using widgets::named;
using widgets::row;

namespace importing {

namespace {
void paintNow(widgets::PacedLabel *label) {
    label->flush();
    label->repaint();
}
} // namespace

frmDaoRuJindu::frmDaoRuJindu(platform::Host &host, const database::SessionState &state,
                             std::shared_ptr<const marc::PreReadStore> records, QWidget *parent)
    : Window(u"frmDaoRuJindu"_s, u"进度提示"_s, parent)
    , Text1(named(new QLineEdit(this), u"Text1"_s))
    , Text2(named(new QLineEdit(this), u"Text2"_s))
    , Picture1(named(new QLabel(this), u"Picture1"_s))
    , labEndShu(named(new QLabel(u"要导入的机读记录总计："_s, this), u"labEndShu"_s))
    , labJinDuShu(new widgets::PacedLabel(u"labJinDuShu"_s, u"已经成功导入的机读记录："_s, this))
    , LabBi(new widgets::PacedLabel(u"LabBi"_s, {}, this))
    , labTishi(named(new QLabel(this), u"labTishi"_s))
    , leftOutWords(named(new QLabel(this), u"leftOutWords"_s))
    , barJinduTishi(named(new QProgressBar(this), u"barJinduTishi"_s, u"导入进度"_s))
    , cmdRefused(new widgets::Button(u"cmdRefused"_s, {}, this))
    , cmdStop(new widgets::Button(u"cmdStop"_s, u"&S 停止"_s, this))
    , cmdQuit(new widgets::Button(u"cmdQuit"_s, u"&Q 退出"_s, this))
    , m_host(host)
    , m_state(state)
    , m_records(std::move(records)) {
    widgets::keepOneSize(this);
    Text1->hide();
    Text2->hide();
    barJinduTishi->setTextVisible(false);
    layOut();
    widgets::hint({{cmdRefused, u"列出数据库没有收下的记录和原因"}, {cmdStop, u"停在这一条；已经写入的留在套录库里"}});
    connect(cmdRefused, &QPushButton::clicked, this, &frmDaoRuJindu::refusedWanted);
    connect(cmdStop, &QPushButton::clicked, this, [this] { cmdStop->setEnabled(false); });
    connect(cmdQuit, &QPushButton::clicked, this, [this] { unload(); });
}

void frmDaoRuJindu::layOut() {
    showSign(u"daoru"_s);
    LabBi->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    LabBi->setMinimumWidth(fontMetrics().horizontalAdvance(u"100.00%"_s));
    labJinDuShu->setMinimumWidth(fontMetrics().horizontalAdvance(u"已经成功处理的记录数：2147483647"_s));
    labTishi->hide();
    cmdRefused->hide();
    // The closing line replaces the progress bar, below the other lines.
    QBoxLayout *last = row({{barJinduTishi, 1}, LabBi, {labTishi, 1}, cmdRefused});
    last->addStrut(cmdRefused->sizeHint().height());
    setLayout(column({row({Picture1, {column({labEndShu, labJinDuShu, last}), 1}}), widgets::stretch(),
                      row({leftOutWords, widgets::stretch(), cmdStop, cmdQuit})}));
}

void frmDaoRuJindu::showSign(const QString &icon) {
    Picture1->setPixmap(widgets::lineIcon(icon).pixmap(style()->pixelMetric(QStyle::PM_LargeIconSize)));
}

void frmDaoRuJindu::showEvent(QShowEvent *event) {
    Window::showEvent(event);
    QMetaObject::invokeMethod(this, &frmDaoRuJindu::activate, Qt::QueuedConnection); // after the window is shown
}

void frmDaoRuJindu::activate() {
    if (m_activated)
        return;
    m_activated = true;
    run();
    barJinduTishi->hide();
    LabBi->hide();
    labTishi->show();
    cmdRefused->setVisible(!m_refused.empty());
}

void frmDaoRuJindu::leaveOut(const std::vector<marc::RefusedRecord> &records) {
    for (const marc::RefusedRecord &record : records)
        m_leaveOut.insert(record.record);
}

void frmDaoRuJindu::run() {
    const auto recordTotal = platform::toInt32(Text2->text());
    if (!recordTotal) {
        m_host.tell(u"记录总数“"_s + Text2->text() + u"”不是数字，无法导入。");
        return;
    }
    labEndShu->setText(labEndShu->text() + Text2->text());
    barJinduTishi->setRange(0, std::max(1, *recordTotal)); // an empty range would show a busy indicator
    barJinduTishi->setValue(0);
    setWindowTitle(u"套录库数据导入进度"_s);
    labJinDuShu->setPacedText(u"正在准备导入................."_s);

    ImportRun run(*recordTotal);
    platform::RunBoxes boxes(m_host);
    while (run.hasNext()) {
        const int at = run.nextRow();
        if (m_leaveOut.contains(at))
            run.leaveOut();
        else
            run.take(at < m_records->rowCount() ? m_records->record(at) : QString(),
                     [&](const QString &record) { return take(record, at, boxes); });
        labJinDuShu->setPacedText(run.countText());
        if (!run.lastWentIn())
            paintNow(labJinDuShu); // shows the 0 of a failure before the next success replaces it
        barJinduTishi->setValue(run.taken());
        LabBi->setPacedText(run.percentText());
        m_host.yield();
        if (!cmdStop->isEnabled())
            break;
    }
    labJinDuShu->setPacedText(u"处理完毕！"_s);
    labTishi->setText(run.closingText());
    leftOutWords->setText(run.leftOutText());
    showSign(m_refused.empty() && !run.hasNext() ? u"done"_s : u"warning"_s);
    cmdStop->setEnabled(false); // nothing is left to stop
    m_taken = run.taken();
    cmdRefused->setText(u"&N 未成功 %1 条"_s.arg(m_refused.size()));
    cmdRefused->setAccessibleName(u"未成功 %1 条"_s.arg(m_refused.size()));
}

bool frmDaoRuJindu::take(const QString &record, int row, platform::RunBoxes &boxes) {
    const Daoru done = daoruRecord(record, m_state, boxes, m_keys);
    if (!done.wentIn)
        m_refused.push_back({row, done.fault});
    else
        ++m_wentIn;
    if (done.key)
        m_keys.append(*done.key);
    return done.wentIn;
}

bool frmDaoRuJindu::queryUnload() {
    if (barJinduTishi->isHidden())
        return true;
    m_host.tell(u"请先停止导入！"_s);
    return false;
}

} // namespace importing
