#include "widgets/longPreview.h"
#include "widgets/layout.h"
#include "widgets/lineIcon.h"
#include <QAction>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

constexpr std::chrono::milliseconds slice(15);
constexpr int rowsPerStep = 50;
} // namespace

LongPreview::LongPreview(BandedReport report, std::shared_ptr<QPrinter> printer, QWidget *parent)
    : QDialog(parent)
    , m_report(std::move(report))
    , m_printer(std::move(printer))
    , m_work(
          slice, [this] { return m_run ? m_run->step() : m_sheet->place(rowsPerStep); },
          [this](bool more) { showProgress(more); })
    , m_tools(new QToolBar)
    , m_page(named(new QSpinBox, u"page"_s, u"页码"_s))
    , m_pages(new QLabel)
    , m_view(new QPrintPreviewWidget(m_printer.get()))
    , m_state(new QLabel)
    , m_progress(named(new QProgressBar, u"progress"_s))
    , m_stop(named(new QPushButton(u"停止"_s), u"stop"_s)) {
    m_page->setKeyboardTracking(false);
    m_stop->setAutoDefault(false);
    addViewTools();
    addPageTools();
    setLayout(column({m_tools, {m_view, 1}, row({m_state, {m_progress, 1}, m_stop})}));
    connect(m_page, &QSpinBox::valueChanged, m_view, &QPrintPreviewWidget::updatePreview);
    connect(m_stop, &QPushButton::clicked, this, &LongPreview::stop);
    connect(m_view, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter *target) {
        if (m_sheet->placedRows() < m_sheet->rowCount())
            return;
        QPainter painter(target);
        m_sheet->draw(painter, m_page->value() - 1);
    });
    layOut();
}

QAction *LongPreview::addTool(QStringView icon, QStringView name, Work work) {
    QAction *tool = m_tools->addAction(lineIcon(icon.toString()), name.toString());
    connect(tool, &QAction::triggered, this, std::move(work));
    return tool;
}

void LongPreview::addViewTools() {
    addTool(u"zoom-fit-width", u"适应宽度", [this] { m_view->fitToWidth(); });
    addTool(u"zoom-fit-page", u"适应页面", [this] { m_view->fitInView(); });
    addTool(u"zoom-out", u"缩小", [this] { m_view->zoomOut(); });
    addTool(u"zoom-in", u"放大", [this] { m_view->zoomIn(); });
    m_tools->addSeparator();
    const auto turn = [this](QPageLayout::Orientation orientation) {
        setPage([this, orientation] {
            m_view->setOrientation(orientation);
            return true;
        });
    };
    addTool(u"layout-portrait", u"纵向", [turn] { turn(QPageLayout::Portrait); });
    addTool(u"layout-landscape", u"横向", [turn] { turn(QPageLayout::Landscape); });
    m_tools->addSeparator();
}

void LongPreview::addPageTools() {
    addTool(u"go-first", u"第一页", [this] { m_page->setValue(1); });
    addTool(u"go-previous", u"上一页", [this] { m_page->stepDown(); })->setShortcut(QKeySequence::MoveToPreviousPage);
    m_tools->addWidget(m_page);
    m_tools->addWidget(m_pages);
    addTool(u"go-next", u"下一页", [this] { m_page->stepUp(); })->setShortcut(QKeySequence::MoveToNextPage);
    addTool(u"go-last", u"最后一页", [this] { m_page->setValue(m_page->maximum()); });
    m_tools->addSeparator();
    addTool(u"page-setup", u"页面设置", [this] {
        setPage([this] { return QPageSetupDialog(m_printer.get(), this).exec() == QDialog::Accepted; });
    });
    addTool(u"printer", u"打印", [this] { choosePrinter(); })->setShortcut(QKeySequence::Print);
}

void LongPreview::showProgress(bool more) {
    m_progress->setValue(m_run ? m_run->donePages() : m_sheet->placedRows());
    if (more)
        return;
    if (m_run)
        printed();
    else
        placed();
}

void LongPreview::beginWork(const QString &state, int all) {
    m_tools->setEnabled(false);
    m_state->setText(state);
    m_progress->setRange(0, all);
    m_progress->setValue(0);
    for (QWidget *shown :
         {static_cast<QWidget *>(m_state), static_cast<QWidget *>(m_progress), static_cast<QWidget *>(m_stop)})
        shown->show();
    m_work.start();
}

void LongPreview::endWork(const QString &state) {
    m_work.stop();
    m_run.reset();
    m_tools->setEnabled(true);
    m_state->setText(state);
    m_state->setVisible(!state.isEmpty());
    m_progress->hide();
    m_stop->hide();
}

void LongPreview::layOut() {
    m_sheet.emplace(m_report, *m_printer);
    beginWork(u"正在分页，请稍候……"_s, m_sheet->rowCount());
}

void LongPreview::placed() {
    endWork();
    m_page->setRange(1, m_sheet->pages());
    m_pages->setText(u" / %1 "_s.arg(m_sheet->pages()));
    m_page->selectAll();
    m_page->setFocus(); // a page number can be typed at once, and the keys that turn pages work there too
    m_view->updatePreview();
}

// With another page layout all pages begin elsewhere.
void LongPreview::setPage(const std::function<bool()> &change) {
    const QPageLayout before = m_printer->pageLayout();
    if (!change() || m_printer->pageLayout() == before)
        return;
    layOut();
    m_view->updatePreview(); // clears the page until the pages are counted
}

void LongPreview::choosePrinter() {
    QPrintDialog dialog(m_printer.get(), this);
    dialog.setMinMax(1, m_sheet->pages());
    if (dialog.exec() == QDialog::Accepted)
        startPrinting();
}

void LongPreview::startPrinting() {
    m_run.emplace(*m_sheet, *m_printer);
    beginWork(u"正在打印，请稍候……"_s, m_run->wantedPages());
}

void LongPreview::printed() {
    const bool failed = m_run->failed();
    endWork(failed ? u"打印没有完成。"_s : QString());
    if (!failed)
        accept();
}

void LongPreview::stop() {
    if (m_run)
        endWork(u"打印已停止。"_s);
    else
        reject();
}

} // namespace widgets
