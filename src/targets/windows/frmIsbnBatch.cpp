#include "targets/windows/frmIsbnBatch.h"
#include "platform/byteFile.h"
#include "platform/fileFilters.h"
#include "platform/plainFile.h"
#include "targets/isbnList.h"
#include "widgets/foldingRow.h"
#include "widgets/layout.h"
#include "widgets/remembered.h"
#include <QFile>
#include <QSplitter>

using namespace Qt::StringLiterals;
using widgets::Button;
using widgets::named;

namespace targets {

namespace {
constexpr QStringView journalName = u"batch.jsonl";
constexpr qint64 largestList = 16 << 20; // bytes
constexpr int longestPause = 60'000;     // milliseconds
constexpr int mostAtOnce = 8;
} // namespace

frmIsbnBatch::frmIsbnBatch(platform::Host &host, const Surroundings &surroundings, const CurrentRecord &current,
                           const TargetShelf &shelf, QWidget *parent)
    : Window(u"frmIsbnBatch"_s, u"批量查 ISBN"_s, parent)
    , targetPicker(new TargetPicker(host, this))
    , isbnText(named(new QPlainTextEdit(this), u"isbnText"_s, u"要查的 ISBN"_s))
    , grid(new widgets::FlexGrid(u"batchGrid"_s, BatchRows::ColumnCount, 1, this))
    , pauseBox(named(new QSpinBox(this), u"pauseBox"_s))
    , atOnceBox(named(new QSpinBox(this), u"atOnceBox"_s))
    , labJinDu(new widgets::PacedLabel(u"labJinDu"_s, {}, this))
    , adviceLabel(named(new QLabel(this), u"adviceLabel"_s))
    , readButton(new Button(u"readButton"_s, u"&R 读文件…"_s, this))
    , listButton(new Button(u"listButton"_s, u"&L 列表里的 ISBN"_s, this))
    , startButton(new Button(u"startButton"_s, u"&S 开始"_s, this))
    , stopButton(new Button(u"stopButton"_s, u"&T 停止"_s, this))
    , goOnButton(new Button(u"goOnButton"_s, u"&C 接着查"_s, this))
    , saveButton(new Button(u"saveButton"_s, u"&O 存未找到的…"_s, this))
    , takeButton(new Button(u"takeButton"_s, u"&E 取用…"_s, this))
    , openButton(new Button(u"openButton"_s, u"&Y 送入预读窗口"_s, this))
    , quitButton(new Button(u"quitButton"_s, u"&Q 退出"_s, this))
    , m_host(host)
    , m_surroundings(surroundings)
    , m_current(current)
    , m_taking(host, surroundings) {
    startButton->markPrimary();
    prepareControls();
    layOut();
    connectControls();
    widgets::rememberPlace(this, host.remembered());
    targetPicker->show(shelf);
    makeBatch();
    recall();
    allow();
}

void frmIsbnBatch::prepareControls() {
    isbnText->setPlaceholderText(u"粘贴 ISBN：一行一个或者一行几个，别的字不管"_s);
    isbnText->setTabChangesFocus(true);
    grid->setAccessibleName(u"查的结果"_s);
    grid->setFormat(BatchRows::headings.toString());
    grid->setStretchColumn(BatchRows::TitleColumn);
    adviceLabel->setWordWrap(true);
    adviceLabel->hide();
    listButton->setVisible(bool(m_current.isbns));
    pauseBox->setRange(0, longestPause);
    pauseBox->setSingleStep(100);
    pauseBox->setSuffix(u" 毫秒"_s);
    pauseBox->setValue(m_host.remembered().value(platform::kept::batchPause));
    atOnceBox->setRange(1, mostAtOnce);
    atOnceBox->setMinimumWidth(6 * fontMetrics().averageCharWidth());
    atOnceBox->setValue(m_host.remembered().value(platform::kept::batchAtOnce));
    const int character = fontMetrics().horizontalAdvance(u'书');
    constexpr auto characters = std::to_array<int>({9, 4, 9, 14});
    for (size_t column = 0; column < characters.size(); ++column)
        grid->setColumnTwips(int(column), grid->toTwips(character * characters[column]));
}

void frmIsbnBatch::layOut() {
    auto *pauseLabel = widgets::naming(named(new QLabel(u"问完一个停(&P):"_s, this), u"pauseLabel"_s), pauseBox);
    auto *atOnceLabel = widgets::naming(named(new QLabel(u"一个目标同时问(&N):"_s, this), u"atOnceLabel"_s), atOnceBox);
    const int line = fontMetrics().lineSpacing();
    auto *down = named(new QSplitter(Qt::Vertical, this), u"batchDown"_s);
    down->addWidget(isbnText);
    down->addWidget(targetPicker);
    auto *across = named(new QSplitter(Qt::Horizontal, this), u"batchAcross"_s);
    across->addWidget(down);
    across->addWidget(grid);
    across->setStretchFactor(1, 1);
    for (QSplitter *splitter : {down, across})
        splitter->setChildrenCollapsible(false);
    for (QWidget *part : std::initializer_list<QWidget *>{isbnText, targetPicker, grid})
        part->setMinimumSize(9 * line, 4 * line);
    across->setSizes({15 * line, 34 * line});
    setLayout(widgets::column(
        {{across, 1},
         widgets::row({pauseLabel, pauseBox, atOnceLabel, atOnceBox, widgets::stretch(), readButton, listButton}),
         labJinDu,
         adviceLabel,
         new widgets::FoldingRow(
             {widgets::row({startButton, stopButton, goOnButton, widgets::stretch()}),
              widgets::row({widgets::stretch(), saveButton, takeButton, openButton, quitButton})})}));
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().height() * 34);
    widgets::tabInReadingOrder(this);
    isbnText->setFocus();
}

void frmIsbnBatch::connectControls() {
    widgets::hint({{pauseBox, u"问得太快，有的服务器会不让再问"},
                   {readButton, u"文本文件或 CSV 文件，只取里面的 ISBN"},
                   {listButton, u"工作窗口的题名列表里全部记录的 ISBN"},
                   {stopButton, u"停在这里，查到的不会丢，以后接着查"},
                   {goOnButton, u"查还没有查的和没有查成的；程序中途断了也能接着查"},
                   {saveButton, u"一行一个，存成文本文件"},
                   {takeButton, u"把找到的记录写成“套录-日期.iso”"},
                   {openButton, u"打开刚写成的文件，照常预读、校对、导入"}});
    connect(readButton, &Button::clicked, this, &frmIsbnBatch::readFile);
    connect(listButton, &Button::clicked, this,
            [this] { isbnText->setPlainText(isbnsIn(m_current.isbns().join(u'\n')).isbns.join(u'\n')); });
    connect(startButton, &Button::clicked, this, &frmIsbnBatch::start);
    connect(goOnButton, &Button::clicked, this, &frmIsbnBatch::goOn);
    connect(stopButton, &Button::clicked, this, [this] {
        m_batch->stop();
        finish();
    });
    connect(saveButton, &Button::clicked, this, &frmIsbnBatch::save);
    connect(takeButton, &Button::clicked, this, &frmIsbnBatch::take);
    connect(openButton, &Button::clicked, this, [this] { m_taking.open(this); });
    connect(quitButton, &Button::clicked, this, &frmIsbnBatch::unload);
    connect(pauseBox, &QSpinBox::valueChanged, this,
            [this](int value) { m_host.remembered().keep(platform::kept::batchPause, value); });
    connect(atOnceBox, &QSpinBox::valueChanged, this,
            [this](int value) { m_host.remembered().keep(platform::kept::batchAtOnce, value); });
}

void frmIsbnBatch::allow() {
    const bool active = m_batch->isActive(), any = !m_batch->isbns().isEmpty();
    targetPicker->lock(active);
    isbnText->setReadOnly(active);
    for (QWidget *control : std::initializer_list<QWidget *>{pauseBox, atOnceBox, readButton, listButton, startButton})
        control->setEnabled(!active);
    stopButton->setEnabled(active);
    goOnButton->setEnabled(!active && any && leftIn(*m_batch) > 0);
    saveButton->setEnabled(!active && !m_batch->notFound().isEmpty());
    takeButton->setEnabled(!active && m_batch->count(Outcome::State::Found) > 0);
    openButton->setEnabled(!active && m_taking.canOpen());
}

void frmIsbnBatch::advise(const QString &words) {
    adviceLabel->setText(words);
    adviceLabel->setVisible(!words.isEmpty());
}

platform::Result<QString> frmIsbnBatch::journal() const {
    const auto folder = m_host.remembered().folderFor(platform::kept::targets);
    return folder ? platform::Result<QString>(folder.value() + journalName) : folder;
}

void frmIsbnBatch::readFile() {
    const QString path = m_host.chooseFile({.title = u"读 ISBN"_s, .filter = platform::filters::isbns.toString()});
    if (path.isEmpty())
        return;
    const auto bytes = platform::readSmallFile(path, largestList);
    if (!bytes)
        return m_host.tell(bytes.failure().description);
    const IsbnList list = isbnsIn(QString::fromUtf8(bytes.value())); // ISBNs are ASCII in every encoding
    isbnText->setPlainText(list.isbns.join(u'\n'));
    advise(list.isbns.isEmpty() ? u"文件里没有 ISBN"_s
                                : u"读出 %1 个 ISBN，重复的 %2 个没有再取"_s.arg(list.isbns.size()).arg(list.repeated));
}

// Makes a batch for the targets that are ticked now.
void frmIsbnBatch::makeBatch() {
    m_batch = std::make_shared<IsbnBatch>(targetPicker->chosen(),
                                          Politeness{std::chrono::milliseconds(pauseBox->value()), atOnceBox->value()});
    connect(m_batch.get(), &IsbnBatch::progressed, this, [this](int row) {
        labJinDu->setPacedText(batchWords(*m_batch));
        grid->scrollToRow(row + 1);
        grid->viewport()->update();
    });
    connect(m_batch.get(), &IsbnBatch::targetDropped, this, [this](const QString &name, const QString &fault) {
        advise(u"“"_s + name + u"”接连没有答，不再问它：" + fault);
    });
    connect(m_batch.get(), &IsbnBatch::journalFailed, this, [this](const QString &why) {
        advise(u"停下了，查到的存不下：\n"_s + why);
        finish();
    });
    connect(m_batch.get(), &IsbnBatch::finished, this, &frmIsbnBatch::finish);
}

// Shows the last batch, complete or not.
void frmIsbnBatch::recall() {
    const auto path = journal();
    if (!path || !QFile::exists(path.value()))
        return;
    if (const platform::Status resumed = m_batch->resume(path.value()); !resumed)
        return advise(u"上次的一批接不上：\n"_s + resumed.failure().description);
    grid->bind(std::make_shared<BatchRows>(m_batch));
    if (const QString words = batchWords(*m_batch); !words.isEmpty())
        labJinDu->setPacedText(u"上次的一批："_s + words);
}

void frmIsbnBatch::start() {
    const QStringList isbns = isbnsIn(isbnText->toPlainText()).isbns;
    if (const QString why = whyNoBatch(isbns, targetPicker->chosen()); !why.isEmpty()) {
        advise(why);
        return isbns.isEmpty() ? isbnText->setFocus() : targetPicker->setFocus();
    }
    const int left = leftIn(*m_batch);
    if (left > 0 &&
        !m_host.ask(u"上次的一批还有 %1 个没有查，开始新的一批，就不能接着查它了。确实要开始吗？"_s.arg(left),
                    platform::hintTitle, platform::Answer::No))
        return;
    makeBatch();
    const auto path = journal();
    const platform::Status begun =
        path ? m_batch->begin(isbns, path.value()) : platform::Status(platform::Failure{path.failure()});
    if (!begun)
        return m_host.tell(begun.failure().description);
    run();
}

void frmIsbnBatch::goOn() {
    if (const QString why = whyNoBatch(m_batch->isbns(), targetPicker->chosen()); !why.isEmpty()) {
        advise(why);
        return targetPicker->setFocus();
    }
    makeBatch();
    const auto path = journal();
    const platform::Status resumed =
        path ? m_batch->resume(path.value()) : platform::Status(platform::Failure{path.failure()});
    if (!resumed)
        return m_host.tell(resumed.failure().description);
    run();
}

void frmIsbnBatch::run() {
    grid->bind(std::make_shared<BatchRows>(m_batch));
    advise({});
    m_batch->start();
    labJinDu->setPacedText(batchWords(*m_batch));
    allow();
    stopButton->setFocus();
}

void frmIsbnBatch::finish() {
    labJinDu->setText(batchWords(*m_batch));
    grid->viewport()->update();
    allow();
    (goOnButton->isEnabled() ? goOnButton : takeButton->isEnabled() ? takeButton : quitButton)->setFocus();
}

void frmIsbnBatch::save() {
    const QString path = m_host.chooseFileToWrite(
        {.title = u"存未找到的 ISBN"_s, .filter = platform::filters::isbns.toString()}, u".txt");
    if (path.isEmpty())
        return;
    const QByteArray lines = (m_batch->notFound().join(u"\r\n"_s) + u"\r\n").toUtf8();
    if (const platform::Status saved = platform::writeWholeFile(path, lines); !saved)
        return m_host.tell(u"保存失败：【"_s + saved.failure().description + u"】");
    advise(u"%1 个未找到的已保存到 %2"_s.arg(m_batch->notFound().size()).arg(path));
}

void frmIsbnBatch::take() {
    if (!m_taking.write(m_batch->records()))
        return;
    allow();
    if (m_taking.canOpen())
        openButton->setFocus();
}

bool frmIsbnBatch::queryUnload() {
    if (m_batch->isActive() &&
        !m_host.ask(u"还没有查完，确实要停下退出吗？以后可以接着查。"_s, platform::hintTitle, platform::Answer::No))
        return false;
    m_batch->stop();
    return true;
}

} // namespace targets
