#include "targets/windows/frmSearch.h"
#include "targets/search.h"
#include "targets/searchWords.h"
#include "targets/windows/frmCompare.h"
#include "targets/windows/frmIsbnBatch.h"
#include "targets/windows/frmTargets.h"
#include "widgets/foldingRow.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <utility>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace targets {

namespace {
constexpr std::chrono::milliseconds slice(10);
} // namespace

frmSearch::frmSearch(platform::Host &host, Surroundings surroundings, CurrentRecord current, QWidget *parent)
    : Window(u"frmSearch"_s, u"从其他图书馆套录"_s, parent)
    , queryPane(new QueryPane(this))
    , targetPicker(new TargetPicker(host, this))
    , resultsPane(new ResultsPane(m_surroundings, this))
    , labJinDu(new widgets::PacedLabel(u"labJinDu"_s, {}, this))
    , adviceLabel(named(new QLabel(this), u"adviceLabel"_s))
    , searchButton(new Button(u"searchButton"_s, u"&S 检索"_s, this))
    , stopButton(new Button(u"stopButton"_s, u"&T 停止"_s, this))
    , moreButton(new Button(u"moreButton"_s, u"&M 接着取"_s, this))
    , allButton(new Button(u"allButton"_s, u"&A 全选"_s, this))
    , compareButton(new Button(u"compareButton"_s, u"&D 对照…"_s, this))
    , takeButton(new Button(u"takeButton"_s, u"&E 取用…"_s, this))
    , openButton(new Button(u"openButton"_s, u"&Y 送入预读窗口"_s, this))
    , targetsButton(new Button(u"targetsButton"_s, u"&G 目标…"_s, this))
    , batchButton(new Button(u"batchButton"_s, u"&B 批量查 ISBN…"_s, this))
    , quitButton(new Button(u"quitButton"_s, u"&Q 退出"_s, this))
    , m_host(host)
    , m_surroundings(std::move(surroundings))
    , m_current(std::move(current))
    , m_shelf(host.remembered().folderFor(platform::kept::targets))
    , m_found(std::make_shared<FoundRecords>(m_surroundings.proof))
    , m_holdings(
          slice, [this] { return lookForHoldings(); },
          [this](bool more) {
              if (!more)
                  allow();
          })
    , m_taking(host, m_surroundings) {
    searchButton->markPrimary();
    layOut();
    connectControls();
    widgets::rememberPlace(this, host.remembered());
    resultsPane->recall(host.remembered());
    targetPicker->show(m_shelf);
    say(openingWords(m_shelf.complaint()));
    allow();
}

frmSearch::~frmSearch() = default;

void frmSearch::layOut() {
    adviceLabel->setWordWrap(true);
    compareButton->setVisible(hasDesk());
    auto *across = named(new QSplitter(Qt::Horizontal, this), u"searchAcross"_s);
    across->addWidget(targetPicker);
    across->addWidget(resultsPane);
    across->setStretchFactor(1, 1);
    across->setChildrenCollapsible(false);
    const int line = fontMetrics().lineSpacing();
    targetPicker->setMinimumWidth(8 * line);
    across->setSizes({11 * line, 44 * line});
    widgets::hint({{searchButton, u"回车也行；选中的目标同时检索"},
                   {stopButton, u"停在这里，已经取来的留下"},
                   {moreButton, u"每个目标先取 1000 条，还有的再取 1000 条"},
                   {allButton, u"全部选上；已经全部选上的，全部不选"},
                   {compareButton, u"和当前记录一个字段一个字段地比，取用想要的字段"},
                   {takeButton, u"把选上的记录写成“套录-日期.iso”"},
                   {openButton, u"打开刚写成的文件，照常预读、校对、导入"},
                   {targetsButton, u"添加、修改、测试目标，排顺序"},
                   {batchButton, u"一批 ISBN，逐个到目标里查"}});
    setLayout(widgets::column({queryPane,
                               {across, 1},
                               labJinDu,
                               adviceLabel,
                               new widgets::FoldingRow({widgets::row({targetsButton, batchButton, widgets::stretch(),
                                                                      searchButton, stopButton, moreButton, allButton}),
                                                        widgets::row({widgets::stretch(), compareButton, takeButton,
                                                                      openButton, quitButton})})}));
    resize(fontMetrics().averageCharWidth() * 92, fontMetrics().height() * 36);
    widgets::tabInReadingOrder(this);
}

void frmSearch::connectControls() {
    connect(queryPane, &QueryPane::entered, this, [this] {
        if (searchButton->isEnabled())
            search();
    });
    connect(searchButton, &Button::clicked, this, &frmSearch::search);
    connect(stopButton, &Button::clicked, this, [this] {
        m_holdings.stop();
        m_holdingSearch = nullptr;
        if (m_search)
            m_search->stop();
        allow();
    });
    connect(moreButton, &Button::clicked, this, &frmSearch::fetchMore);
    connect(allButton, &Button::clicked, resultsPane, &ResultsPane::tickAllOrNone);
    connect(compareButton, &Button::clicked, this, &frmSearch::compare);
    connect(batchButton, &Button::clicked, this, [this] {
        frmIsbnBatch(m_host, m_surroundings, m_current, m_shelf, this).exec();
        targetPicker->show(m_shelf); // its ticks may have changed
    });
    connect(takeButton, &Button::clicked, this, &frmSearch::take);
    connect(openButton, &Button::clicked, this, [this] { m_taking.open(this); });
    connect(targetsButton, &Button::clicked, this, &frmSearch::editTargets);
    connect(quitButton, &Button::clicked, this, &frmSearch::unload);
    connect(resultsPane, &ResultsPane::ticked, this, [this] {
        m_untaken = m_found->ticked() > 0;
        allow();
    });
    connect(this, &Window::unloaded, this, [this] { resultsPane->keep(m_host.remembered()); });
}

bool frmSearch::isSearching() const {
    return m_search && m_search->isActive();
}

void frmSearch::allow() {
    const bool searching = isSearching(), any = m_found->rowCount() > 0;
    bool more = false;
    for (int i = 0; m_search && !searching && i < m_search->count(); ++i)
        more = more || m_search->progress(i).mayGoOn;
    targetPicker->lock(searching);
    searchButton->setEnabled(!searching);
    stopButton->setEnabled(searching || m_holdings.isActive());
    moreButton->setEnabled(more);
    allButton->setEnabled(any);
    compareButton->setEnabled(any);
    takeButton->setEnabled(any);
    takeButton->setText(m_found->ticked() > 0 ? u"&E 取用 %1 条…"_s.arg(m_found->ticked()) : u"&E 取用这一条…"_s);
    openButton->setEnabled(m_taking.canOpen());
    targetsButton->setEnabled(!searching);
    batchButton->setEnabled(!searching);
}

void frmSearch::say(const QString &words, const QString &advice) {
    labJinDu->setPacedText(words);
    adviceLabel->setText(advice);
    adviceLabel->setVisible(!advice.isEmpty());
}

void frmSearch::search() {
    const Query query = queryPane->query();
    const TargetList chosen = targetPicker->chosen();
    if (const QString why = whyNoSearch(query, chosen); !why.isEmpty()) {
        say({}, why);
        return query.isEmpty() ? queryPane->goToFirst() : targetPicker->setFocus();
    }
    m_holdings.stop();
    m_holdingSearch = nullptr;
    m_untaken = false;
    m_found = std::make_shared<FoundRecords>(m_surroundings.proof);
    resultsPane->begin(m_found);
    targetPicker->beginStates();
    m_search = std::make_unique<Search>(chosen);
    listen();
    m_search->start(query);
    say(searchWords(*m_search));
    allow();
    stopButton->setFocus();
}

void frmSearch::fetchMore() {
    m_holdings.stop();
    for (int i = 0; i < m_search->count(); ++i)
        m_search->fetchMore(i);
    allow();
    stopButton->setFocus();
}

void frmSearch::listen() {
    connect(m_search.get(), &Search::progressed, this, [this](int target) {
        targetPicker->setState(target, m_search->progress(target).words());
        labJinDu->setPacedText(searchWords(*m_search));
    });
    connect(m_search.get(), &Search::found, this, [this](int target, const Fetched &fetched) {
        m_found->add(m_search->target(target).name, fetched.size, fetched.decoded.record);
        resultsPane->grow();
        if (m_found->rowCount() == 1)
            allow();
    });
    connect(m_search.get(), &Search::finished, this, &frmSearch::finish);
}

void frmSearch::finish() {
    say(searchWords(*m_search), adviceAfter(*m_search));
    if (m_found->rowCount() > 0) {
        if (stopButton->hasFocus())
            resultsPane->grid->setFocus();
        if (m_surroundings.searchHoldings) {
            m_found->forgetHeld();
            m_holdingSearch = m_surroundings.searchHoldings(m_found->records());
            m_holdings.start();
        }
    } else if (stopButton->hasFocus()) {
        queryPane->goToFirst();
    }
    allow();
}

// Marks what the library has. Returns whether there is more to search.
bool frmSearch::lookForHoldings() {
    const auto found = m_holdingSearch();
    if (!found) {
        m_holdingSearch = nullptr;
        return false;
    }
    for (const Holding &holding : *found) {
        if (holding.record >= 0)
            m_found->markHeld(holding.record, holding.words);
        else
            say(labJinDu->pacedText(), holding.words);
    }
    resultsPane->rowsChanged();
    return true;
}

void frmSearch::take() {
    if (!m_taking.write(m_found->wanted(resultsPane->current())))
        return;
    m_untaken = false;
    allow();
    if (m_taking.canOpen())
        openButton->setFocus();
}

void frmSearch::compare() {
    const auto fetched = rowsOf(m_found->record(resultsPane->current()));
    if (!fetched)
        return m_host.tell(u"这条记录放不进机读格式，不能对照。"_s);
    frmCompare(m_host, m_current, *fetched, this).exec();
}

void frmSearch::editTargets() {
    frmTargets(m_host, m_shelf, this).exec();
    targetPicker->show(m_shelf);
    allow();
}

bool frmSearch::queryUnload() {
    if (m_untaken && !m_host.ask(u"选上的 %1 条还没有取用，确实要退出吗？"_s.arg(m_found->ticked()),
                                 platform::hintTitle, platform::Answer::No))
        return false;
    m_holdings.stop();
    if (m_search)
        m_search->stop();
    return true;
}

} // namespace targets
