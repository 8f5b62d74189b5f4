#include "batch/windows/frmBatchReport.h"
#include "batch/reportCsv.h"
#include "batch/reportTexts.h"
#include "batch/windows/chosenFile.h"
#include "batch/windows/reportPrint.h"
#include "batch/windows/ruleChart.h"
#include "batch/windows/textRows.h"
#include "platform/byteFile.h"
#include "platform/fileFilters.h"
#include "platform/paths.h"
#include "widgets/heading.h"
#include "widgets/layout.h"
#include "widgets/styleTokens.h"
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabWidget>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace batch {

namespace {

using namespace std::chrono_literals;

constexpr auto slice = 10ms;
constexpr int largestSeed = 999999;
constexpr qsizetype numbersInCell = 40; // of a rule
constexpr QStringView ruleHeadings = u"级别|规则|字段|处|条|记录号";
constexpr QStringView drawHeadings = u"记录|题名|发现";

QLabel *wrapped(const QString &name) {
    QLabel *label = named(new QLabel, name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

// Returns a page of the tabs with this layout.
QWidget *page(QLayout *layout) {
    auto *widget = new QWidget;
    widget->setLayout(layout);
    return widget;
}

} // namespace

frmBatchReport::frmBatchReport(platform::Host &host, const Source &source, ProofFacts proof, QWidget *parent)
    : Window(u"frmBatchReport"_s, u"校对报告"_s, parent)
    , facts(wrapped(u"facts"_s))
    , pages(named(new QTabWidget, u"pages"_s))
    , notes(wrapped(u"notes"_s))
    , chart(named(newChartView(), u"chart"_s, u"最多的几项"_s))
    , rulesGrid(new widgets::FlexGrid(u"rulesGrid"_s, int(ruleHeadings.count(u'|')) + 1, 1))
    , example(wrapped(u"example"_s))
    , seedBox(named(new QSpinBox, u"seedBox"_s))
    , againButton(new Button(u"againButton"_s, u"&Y 重抽"_s))
    , drawGrid(new widgets::FlexGrid(u"drawGrid"_s, int(drawHeadings.count(u'|')) + 1, 1))
    , state(new widgets::PacedLabel(u"state"_s, {}, this))
    , saveButtons{new Button(u"printButton"_s, u"&P 打印…"_s), new Button(u"pdfButton"_s, u"&D 存为 PDF…"_s),
                  new Button(u"pageButton"_s, u"&W 存为网页…"_s), new Button(u"csvButton"_s, u"&T 存为表格…"_s)}
    , closeButton(new Button(u"closeButton"_s, u"&Q 退出"_s))
    , m_host(host)
    , m_source(source)
    , m_making(source.remarks, std::move(proof))
    , m_work(
          slice, [this] { return m_making.step(); }, [this](bool more) { showProgress(more); }) {
    layOut();
    connectControls();
    m_work.start();
}

frmBatchReport::~frmBatchReport() = default;

void frmBatchReport::layOut() {
    pages->addTab(overview(), u"&Z 总览"_s);
    pages->addTab(byRule(), u"&G 按规则"_s);
    pages->addTab(drawn(), u"&C 抽查"_s);
    for (Button *button : saveButtons)
        button->setEnabled(false);
    againButton->setEnabled(false);
    setLayout(widgets::column(
        {facts,
         {pages, 1},
         widgets::row({{state, 1}, saveButtons[0], saveButtons[1], saveButtons[2], saveButtons[3], closeButton})}));
    widgets::hint({{saveButtons[0], u"黑白打印，先看预览（Ctrl+P 打印）"},
                   {saveButtons[1], u"和打印的一样，可以发给供数据的单位"},
                   {saveButtons[2], u"一个文件，用浏览器就能看，记录号是全的"},
                   {saveButtons[3], u"电子表格能打开的表格（CSV），记录号是全的"},
                   {seedBox, u"同一文件、同一签号，抽出的总是同样的记录"},
                   {againButton, u"换一个签号，另抽十条"},
                   {drawGrid, u"回车或双击：到这条记录"}});
    const int line = fontMetrics().height();
    resize(48 * line, 36 * line); // a small screen limits the size
}

QWidget *frmBatchReport::overview() {
    QBoxLayout *numbers = widgets::row({});
    for (size_t i = 0; i < figures.size(); ++i) {
        const bool isLevel = i < schema::levelCount;
        const QString caption = (isLevel ? captionOf(schema::Level(i)) : cleanCaption).toString();
        figures[i] = new widgets::Heading(u"figure"_s + QString::number(i), u" "_s, widgets::sectionSize);
        figures[i]->setAccessibleName(caption);
        numbers->addLayout(widgets::column({figures[i], new QLabel(caption)}), 1);
    }
    auto *room = new QScrollArea;
    room->setFrameShape(QFrame::NoFrame);
    room->setFocusPolicy(Qt::NoFocus);
    room->setWidgetResizable(true);
    room->setWidget(chart);
    notes->hide();
    return page(widgets::column({numbers, {room, 1}, notes}));
}

QWidget *frmBatchReport::byRule() {
    rulesGrid->setAccessibleName(u"按规则"_s);
    rulesGrid->setFormat(ruleHeadings.toString());
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({5, 12, 10, 4, 4, 16});
    for (int column = 0; const int wide : characters)
        rulesGrid->setColumnTwips(column++, rulesGrid->toTwips(character * wide));
    rulesGrid->setColumnAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    rulesGrid->setColumnAlignment(4, Qt::AlignRight | Qt::AlignVCenter);
    rulesGrid->horizontalHeader()->setStretchLastSection(true);
    example->setMinimumHeight(2 * fontMetrics().lineSpacing());
    return page(widgets::column({{rulesGrid, 1}, example}));
}

QWidget *frmBatchReport::drawn() {
    auto *seedLabel = named(new QLabel(u"签号(&N)："_s), u"seedLabel"_s);
    seedBox->setRange(1, largestSeed);
    seedBox->setMinimumWidth(seedBox->sizeHint().width() + fontMetrics().horizontalAdvance(u"00"_s));
    seedBox->setValue(int(QRandomGenerator::global()->bounded(1, largestSeed)));
    drawGrid->setAccessibleName(u"抽查的记录"_s);
    drawGrid->setFormat(drawHeadings.toString());
    const int character = fontMetrics().horizontalAdvance(u'书');
    drawGrid->setColumnTwips(0, drawGrid->toTwips(4 * character));
    drawGrid->setColumnTwips(1, drawGrid->toTwips(14 * character));
    drawGrid->horizontalHeader()->setStretchLastSection(true);
    return page(
        widgets::column({widgets::row({widgets::naming(seedLabel, seedBox), seedBox, againButton, widgets::stretch()}),
                         {drawGrid, 1}}));
}

void frmBatchReport::connectControls() {
    connect(rulesGrid, &widgets::FlexGrid::enterCell, this, &frmBatchReport::showExample);
    connect(seedBox, &QSpinBox::valueChanged, this, &frmBatchReport::draw);
    connect(againButton, &Button::clicked, this,
            [this] { seedBox->setValue(int(QRandomGenerator::global()->bounded(1, largestSeed))); });
    connect(drawGrid, &widgets::FlexGrid::gridActivated, this, &frmBatchReport::wantRecord);
    connect(saveButtons[0], &Button::clicked, this, &frmBatchReport::print);
    connect(saveButtons[1], &Button::clicked, this, [this] {
        save(u"存为 PDF", platform::filters::reportPages, u".pdf",
             [this](const QString &path) { return saveReportPdf(path, *m_report, m_draw); });
    });
    connect(saveButtons[2], &Button::clicked, this, [this] {
        save(u"存为网页", platform::filters::webPages, u".html",
             [this](const QString &path) { return saveReportPage(path, *m_report, m_draw); });
    });
    connect(saveButtons[3], &Button::clicked, this, [this] {
        save(u"存为表格", platform::filters::spreadsheets, u".csv",
             [this](const QString &path) { return platform::writeWholeFile(path, reportCsv(*m_report, m_draw)); });
    });
    connect(closeButton, &Button::clicked, this, &frmBatchReport::unload);
}

void frmBatchReport::showProgress(bool more) {
    if (more)
        return state->setPacedText(u"正在汇总，%1%"_s.arg(m_making.percent()));
    state->setText({});
    m_report = m_making.take();
    showReport();
}

void frmBatchReport::showReport() {
    facts->setText(u"%1　校对于 %2　%3\n依据：%4"_s.arg(fileNameOf(*m_report), momentOf(*m_report), extentOf(*m_report),
                                                        basisOf(*m_report)));
    facts->setToolTip(widgets::plainTip(m_report->facts.file));
    for (size_t i = 0; i < figures.size(); ++i)
        figures[i]->setText(shareOf(i < schema::levelCount ? m_report->records[i] : m_report->clean(), *m_report));
    QStringList words;
    if (const QString silenced = silencedWords(*m_report); !silenced.isEmpty())
        words.append(u"没有列入（已设为不再提示）："_s + silenced);
    if (!m_report->notChecked.isEmpty())
        words.append(u"未能检查："_s + m_report->notChecked.join(u'；'));
    notes->setText(words.join(u'\n'));
    notes->setVisible(!words.isEmpty());
    showChart();
    showRules();
    draw();
    for (Button *button : saveButtons)
        button->setEnabled(true);
    againButton->setEnabled(true);
}

void frmBatchReport::showChart() {
    showInView(*chart, *m_report, schemeInk(palette()), font());
    const int height = chartSize(*m_report, font()).height();
    chart->setMinimumHeight(height); // with less, labels would be left out
    chart->setMaximumHeight(3 * height / 2);
}

void frmBatchReport::showRules() {
    auto rows = std::make_shared<TextRows>(rulesGrid->columns());
    for (const RuleEntry &entry : m_report->rules)
        rows->add({nameOf(entry.level).toString(), entry.label, tagsOf(entry), QString::number(entry.remarks),
                   QString::number(entry.records.size()), recordNumbers(entry.records, numbersInCell)});
    rulesGrid->bind(std::move(rows));
    showExample();
}

void frmBatchReport::showExample() {
    const int row = rulesGrid->row() - 1;
    const bool isEntry = m_report && row >= 0 && size_t(row) < m_report->rules.size();
    example->setText(isEntry ? u"例：第 %1 条，"_s.arg(m_report->rules[size_t(row)].records.front() + 1) +
                                   m_report->rules[size_t(row)].example
                             : QString());
}

void frmBatchReport::draw() {
    if (!m_report)
        return;
    m_draw = drawRecords(m_source.records, m_source.remarks, m_report->facts.rows, quint32(seedBox->value()));
    auto rows = std::make_shared<TextRows>(drawGrid->columns());
    m_drawnRecords.clear();
    for (const DrawnRecord &record : m_draw.records) {
        QStringList lines = record.remarks;
        if (lines.isEmpty())
            lines.append(cleanCaption.toString());
        for (qsizetype i = 0; i < lines.size(); ++i) {
            rows->add(
                {i == 0 ? QString::number(record.record + 1) : QString(), i == 0 ? record.title : QString(), lines[i]});
            m_drawnRecords.push_back(record.record);
        }
    }
    drawGrid->bind(std::move(rows));
}

void frmBatchReport::wantRecord() {
    const int row = drawGrid->row() - 1;
    if (size_t(row) >= m_drawnRecords.size()) // also if there is no row
        return;
    Q_EMIT recordWanted(m_drawnRecords[size_t(row)]);
    unload();
}

void frmBatchReport::print() {
    newBatchReportPreview(*m_report, m_draw, this)->exec();
}

// Suggests a name next to the file that was checked.
void frmBatchReport::save(QStringView caption, QStringView filter, QStringView suffix, const Write &write) {
    const QString &file = m_report->facts.file;
    const qsizetype folder = platform::folderOf(file).size(), point = file.lastIndexOf(u'.');
    const QString stem = point > folder ? file.first(point) : file;
    const auto words = saveChosen(m_host,
                                  {.title = caption.toString(),
                                   .filter = filter.toString(),
                                   .suffix = suffix,
                                   .start = stem + u"-校对报告"_s + suffix},
                                  write);
    if (words)
        state->setText(*words);
}

void frmBatchReport::changeEvent(QEvent *event) {
    Window::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_report)
        showChart();
}

} // namespace batch
