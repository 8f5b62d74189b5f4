#include "batch/windows/reportButtons.h"
#include "batch/windows/frmBatchReport.h"
#include "schema/windows/frmSchema.h"
#include "widgets/layout.h"

using namespace Qt::StringLiterals;
using widgets::Button;

namespace batch {

ReportButtons::ReportButtons(platform::Host &host, Source source, QWidget *parent)
    : QWidget(parent)
    , reportButton(new Button(u"reportButton"_s, u"&G 报告…"_s, this))
    , schemaButton(new Button(u"schemaButton"_s, u"&U 校验规则…"_s, this))
    , m_host(host)
    , m_source(std::move(source)) {
    setLayout(widgets::row({schemaButton, reportButton}));
    layout()->setContentsMargins(0, 0, 0, 0);
    schemaButton->setVisible(m_source.schema != nullptr);
    connect(reportButton, &Button::clicked, this, &ReportButtons::showReport);
    connect(schemaButton, &Button::clicked, this, &ReportButtons::showSchema);
    offer(false);
}

void ReportButtons::beginRun() {
    m_facts.reset();
    offer(true);
}

void ReportButtons::endRun(ProofFacts facts) {
    m_facts = std::move(facts);
    offer(false);
}

void ReportButtons::offer(bool isRunning) {
    reportButton->setEnabled(m_facts.has_value());
    schemaButton->setEnabled(!isRunning);
    widgets::hint(
        {{reportButton, isRunning ? u"校对还没有完，完了才有报告"
                        : m_facts ? u"各级各有多少条，按规则列出记录，抽查；可以打印、另存"
                                  : u"还没有校对过，先按“D 校对全部”"},
         {schemaButton, isRunning ? u"校对还没有完，完了才能改" : u"换用别的机读格式的模式，去掉不要的检查项目"}});
}

void ReportButtons::showReport() {
    frmBatchReport window(m_host, {*m_source.records, m_source.remarks()}, *m_facts, this);
    std::optional<int> wanted;
    connect(&window, &frmBatchReport::recordWanted, this, [&wanted](int record) { wanted = record; });
    window.exec();
    if (wanted)
        Q_EMIT recordWanted(*wanted);
}

void ReportButtons::showSchema() {
    schema::frmSchema window(m_host, *m_source.schema, this);
    connect(&window, &schema::frmSchema::changed, this, &ReportButtons::schemaChanged);
    window.exec();
}

} // namespace batch
