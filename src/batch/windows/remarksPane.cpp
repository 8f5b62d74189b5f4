#include "batch/windows/remarksPane.h"
#include "platform/fileFilters.h"
#include "widgets/layout.h"
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;

namespace batch {

RemarksPane::RemarksPane(platform::Host &host, Source source, QWidget *parent)
    : QStackedWidget(parent)
    , reminders(new Reminders(host.remembered(), this))
    , proofTable(new RemarkTable(u"proofTable"_s, host, reminders, this))
    , skipBox(widgets::named(new QCheckBox(u"导入时跳过查重命中的(&V)"_s, proofTable), u"skipBox"_s,
                             u"导入时跳过查重命中的"_s))
    , stopButton(new Button(u"stopButton"_s, u"&E 停止"_s, proofTable))
    , toRefusedButton(new Button(u"toRefusedButton"_s, u"&R 未成功记录"_s, proofTable))
    , reportButtons(new ReportButtons(
          host, {source.records, [this]() -> const RemarkList & { return proofTable->remarks(); }, source.schema},
          proofTable))
    , refusedTable(new RemarkTable(u"refusedTable"_s, host, nullptr, this))
    , toProofButton(new Button(u"toProofButton"_s, u"&R 校对结果"_s, refusedTable))
    , isoButton(new Button(u"isoButton"_s, u"&T 存为机读文件…"_s, refusedTable))
    , m_host(host)
    , m_source(std::move(source))
    , m_check(m_source.proof, m_source.schema.get()) {
    setObjectName(u"remarksPane"_s);
    layOut();
    connect(stopButton, &Button::clicked, this, &RemarksPane::end);
    connect(isoButton, &Button::clicked, this, &RemarksPane::saveRecords);
    connect(reportButtons, &ReportButtons::recordWanted, this, [this](int record) { Q_EMIT jump({.record = record}); });
    connect(reportButtons, &ReportButtons::schemaChanged, this, &RemarksPane::remindersChanged);
    connect(toRefusedButton, &Button::clicked, this, [this] { turnTo(refusedTable); });
    connect(toProofButton, &Button::clicked, this, [this] { turnTo(proofTable); });
    for (RemarkTable *table : {proofTable, refusedTable})
        connect(table, &RemarkTable::activated, this, [this](const Remark &remark) { Q_EMIT jump(placeOf(remark)); });
    connect(reminders, &Reminders::changed, this, [this] {
        showClosing();
        Q_EMIT changed();
        Q_EMIT remindersChanged();
    });
}

marc::FieldPlace RemarksPane::placeOf(const Remark &remark) const {
    const int moment = currentWidget() == proofTable ? m_run->momentOf(remark.record) : 0;
    return {remark.record, remark.fieldRow, moment};
}

std::vector<RemarksPane::Current> RemarksPane::remarksOn(const marc::FieldRows &rows) {
    std::vector<Current> remarks;
    if (!reminders->marksRows())
        return remarks;
    if (!m_check.isUpToDate())
        m_check.renew();
    const RuleBook rules(m_check.schema());
    const SilencedNumbers silenced(reminders->silenced(), rules);
    for (Remark &remark : m_check.remarksOn(0, rows))
        if (remark.kind != Kind::Unchecked && !silenced.contains(remark)) {
            const QString words = nameOf(remark.level) + u"：" + rules.wordsOf(remark);
            remarks.push_back({std::move(remark), words});
        }
    return remarks;
}

RemarksPane::Step RemarksPane::step(int by) {
    auto *table = currentWidget() == proofTable ? proofTable : refusedTable;
    if (isEmpty())
        return {{}, u"还没有校对结果，请先按“校对全部”"_s};
    const RemarkTable::Step step = table->step(by);
    if (!step.remark)
        return {{}, u"没有列出的结果"_s};
    const QString wrapped = !step.wrapped ? QString()
                            : by > 0      ? u"已过最后一处，从头开始："_s
                                          : u"已过第一处，从末尾开始："_s;
    return {placeOf(*step.remark), wrapped + u"%1/%2 "_s.arg(step.number).arg(table->remarks().rowCount()) +
                                       nameOf(step.remark->level) + u'：' +
                                       table->remarks().rules().wordsOf(*step.remark)};
}

void RemarksPane::layOut() {
    proofTable->grid->setAccessibleName(u"校对结果"_s);
    refusedTable->grid->setAccessibleName(u"未成功记录"_s);
    proofTable->addAbove(skipBox);
    proofTable->addAbove(stopButton);
    proofTable->addAbove(toRefusedButton);
    proofTable->addBelow(reportButtons);
    refusedTable->addAbove(toProofButton);
    refusedTable->addBelow(isoButton);
    widgets::hint({{skipBox, u"下一次导入不导入“查重”一类的记录；导入以后自动取消"},
                   {stopButton, u"不再往下校对，已经发现的留下"},
                   {isoButton, u"把这些记录存成机读目录文件，改正后再导入"},
                   {toRefusedButton, u"列出上次导入没有成功的记录"},
                   {toProofButton, u"回到校对全部的结果"}});
    stopButton->hide();
    offerOther();
    offerSkipping();
    for (RemarkTable *table : {proofTable, refusedTable})
        addWidget(table);
    setFocusProxy(proofTable);
}

void RemarksPane::turnTo(RemarkTable *table) {
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    setCurrentWidget(table);
    setFocusProxy(table);
    if (hadFocus)
        table->setFocus();
}

// Each run begins without the tick, and the duplicates are complete only at its end.
void RemarksPane::offerSkipping() {
    skipBox->setChecked(false);
    skipBox->setEnabled(!m_running && proofTable->remarks().count(Kind::InStore) > 0);
}

void RemarksPane::offerOther() {
    toRefusedButton->setVisible(!m_rest.isEmpty());
    toProofButton->setVisible(m_run != nullptr);
}

void RemarksPane::proofAll() {
    const int number = ++m_runs;
    const auto run =
        std::make_shared<ProofRun>(m_source.records, m_source.proof, m_source.state, m_source.schema.get());
    m_run = run;
    m_running = true;
    proofTable->begin(run->emptyList());
    Q_EMIT changed();
    turnTo(proofTable);
    offerOther();
    offerSkipping();
    reportButtons->beginRun();
    stopButton->show();
    while (run->hasNext()) {
        takeRemarks(run->step());
        proofTable->words->setPacedText(run->progressText(proofTable->remarks().found()) + u"　F8 收起，校对不停");
        if (!goesOn(number))
            return;
    }
    finish();
}

void RemarksPane::takeRemarks(std::vector<Remark> remarks) {
    if (remarks.empty())
        return;
    proofTable->take(std::move(remarks));
    Q_EMIT changed();
}

std::vector<int> RemarksPane::rowsWithRemarks() const {
    const std::vector<int> proved = proofTable->remarks().records(), refused = refusedTable->remarks().records();
    std::vector<int> rows;
    std::ranges::set_union(proved, refused, std::back_inserter(rows));
    return rows;
}

std::optional<QHash<int, QSet<QString>>> RemarksPane::violatedRules() const {
    if (!m_run)
        return std::nullopt;
    QHash<int, QSet<QString>> violated;
    const RemarkList &list = proofTable->remarks();
    for (const Remark &remark : list.all())
        if (remark.record >= 0)
            violated[remark.record].insert(list.rules().labelOf(ruleOf(remark)));
    return violated;
}

// Processes events. Returns false if the run is over; then nothing of the pane may be touched.
bool RemarksPane::goesOn(int run) {
    const QPointer<RemarksPane> self(this);
    m_host.yield();
    return self && run == m_runs;
}

void RemarksPane::end() {
    if (m_running)
        finish();
}

void RemarksPane::finish() {
    ++m_runs;
    m_running = false;
    if (stopButton->hasFocus())
        proofTable->setFocus();
    stopButton->hide();
    proofTable->settle();
    offerSkipping();
    reportButtons->endRun(
        m_run->facts({.file = m_source.file(), .ended = m_host.now(), .inFile = m_source.recordsInFile()}));
    m_run->end();
    m_clearing.add([run = m_run] { return run->dropSome(); });
    showClosing();
    if (isHidden())
        Q_EMIT ended(proofTable->words->text());
}

void RemarksPane::showClosing() {
    if (m_run && !m_running)
        proofTable->words->setText(m_run->closingText(proofTable->remarks(), m_source.recordsInFile()));
}

RefusedRecords RemarksPane::leftOut() const {
    return skipBox->isChecked() ? duplicatesIn(proofTable->remarks()) : RefusedRecords();
}

void RemarksPane::listRefused(NotImported rest) {
    m_rest = std::move(rest);
    refusedTable->begin(RemarkList(m_source.records));
    refusedTable->take(remarksOf(m_rest, *m_source.records));
    refusedTable->settle();
    refusedTable->words->setText(m_rest.words());
    offerOther();
    offerSkipping();
    turnTo(m_rest.isEmpty() ? proofTable : refusedTable);
    Q_EMIT changed();
}

void RemarksPane::saveRecords() {
    refusedTable->save(
        {u"存为机读文件"_s, platform::filters::refusedRecords.toString(), u".iso"},
        [this](const QString &path) { return saveRefused(path, m_rest.inListOrder(), *m_source.records); });
}

void RemarksPane::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Escape)
        return QStackedWidget::keyPressEvent(event);
    event->accept(); // so that the window is not closed
    Q_EMIT left();
}

} // namespace batch
