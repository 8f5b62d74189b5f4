#include "tidy/windows/frmTidy.h"
#include "platform/desktop/screenSize.h"
#include "platform/fileFilters.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "tidy/sampleRecord.h"
#include "tidy/targetForms.h"
#include "widgets/button.h"
#include "widgets/foldingRow.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include "widgets/selectingEdit.h"
#include "widgets/styleTokens.h"
#include "widgets/textBox.h"
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;
using platform::Status;
using widgets::Button;
using widgets::SelectingEdit;

namespace tidy {

frmTidy::frmTidy(platform::Host &host, const QString &source, ChangeOffer changes, QWidget *parent)
    : Window(u"frmTidy"_s, u"整理机读目录文件"_s, parent)
    , Frame1(widgets::named(new QGroupBox(u"整理机读目录文件（选择或输入文件）"_s), u"Frame1"_s))
    , LabShuoMing{new QLabel(u"需要整理的文件（ISO 2709、MARCXML、MarcXchange）:"_s),
                  new QLabel(u"整理后保存到文件:"_s), new QLabel(u"保存成(&F):"_s)}
    , Text1{new SelectingEdit(u"Text10"_s), new SelectingEdit(u"Text11"_s)}
    , cmdSelect{new Button(u"cmdSelect0"_s, u"&L 浏览"_s), new Button(u"cmdSelect1"_s, u"&O 浏览"_s)}
    , LabFacts(new FactsLabel(u"LabFacts"_s))
    , cboForm(widgets::named(new QComboBox, u"cboForm"_s))
    , encodingLabel(widgets::named(new QLabel(u"源文件编码(&E):"_s), u"encodingLabel"_s))
    , sourceEncoding(new EncodingBox(u"sourceEncoding"_s))
    , changeLabel(widgets::named(new QLabel(u"应用批改任务(&T):"_s), u"changeLabel"_s))
    , changeBox(widgets::named(new QComboBox, u"changeBox"_s))
    , sampleLabel(widgets::named(new QLabel, u"sampleLabel"_s))
    , sampleText(widgets::named(new widgets::TextBox(u"sampleText"_s), u"sampleText"_s, u"会读成的样子"_s))
    , warningLabel(widgets::named(new QLabel, u"warningLabel"_s))
    , txtResult(widgets::named(new widgets::TextBox(u"txtResult"_s), u"txtResult"_s, u"整理结果"_s))
    , labJinDu(widgets::progressLabel(u"labJinDu"_s, this))
    , labShuDo(widgets::progressLabel(u"labShuDo"_s, this))
    , cmdClick{new Button(u"cmdClick0"_s, u"&D 整理"_s), new Button(u"cmdClick1"_s, u"&S 停止"_s),
               new Button(u"cmdClick2"_s, u"&Q 退出"_s)}
    , m_host(host)
    , m_changes(std::move(changes))
    , m_boxes(new QStackedWidget) {
    cmdClick[0]->markPrimary();
    layOut();
    widgets::hint({{cmdClick[0], u"另存为新文件，原来的文件不动"},
                   {cmdClick[1], u"停下来，不留下半个文件"},
                   {sourceEncoding, u"认错了编码的，在这里改；XML 按它自己写明的读"},
                   {changeBox, u"边整理，边按“批量修改”里的任务改每一条记录"}});
    cmdClick[1]->setEnabled(false);
    for (SelectingEdit *box : Text1)
        widgets::enterActsAsTab(box);
    connectControls();
    Text1[0]->setText(source);
}

void frmTidy::connectControls() {
    using platform::FileDialogKind;
    connect(cmdSelect[0], &Button::clicked, this, [this] { chooseInto(Text1[0], FileDialogKind::Open); });
    connect(cmdSelect[1], &Button::clicked, this, [this] { chooseInto(Text1[1], FileDialogKind::Save); });
    connect(Text1[0], &QLineEdit::textChanged, this, &frmTidy::takeSource);
    connect(LabFacts, &FactsLabel::looked, this, [this](const marc::FileFacts &facts) {
        m_guessed = facts.encoding;
        showSample();
    });
    connect(sourceEncoding, &QComboBox::currentIndexChanged, this, &frmTidy::showSample);
    connect(cboForm, &QComboBox::currentIndexChanged, this, &frmTidy::suggestTarget);
    connect(cmdClick[0], &Button::clicked, this, &frmTidy::tidy);
    connect(cmdClick[1], &Button::clicked, this, [this] { m_stopped = true; });
    connect(cmdClick[2], &Button::clicked, this, &frmTidy::unload);
}

void frmTidy::layOut() {
    using namespace widgets;
    fillBoxes();
    const std::array<QWidget *, 3> controls{Text1[0], Text1[1], cboForm};
    for (size_t i = 0; i < controls.size(); ++i)
        naming(named(LabShuoMing[i], u"LabShuoMing"_s + QString::number(i)), controls[i]);
    cmdSelect[0]->setAccessibleName(u"浏览需要整理的文件"_s);
    cmdSelect[1]->setAccessibleName(u"浏览整理后的目标文件"_s);
    dressWarning();
    naming(encodingLabel, sourceEncoding);
    naming(changeLabel, changeBox);
    sampleText->lock();
    sampleText->setRoom(24, 2);
    sampleText->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtResult->lock();
    txtResult->setRoom(24, 2);
    for (TextBox *box : {sampleText, txtResult}) {
        m_boxes->addWidget(box);
        box->setMinimumHeight((platform::isScreenLow(this) ? 1 : 2) * box->fontMetrics().lineSpacing());
    }
    giveWidth(Text1[0], 24 * fontMetrics().height()); // fits a usual path
    setLayout(column({
        framed(Frame1, column({
                           LabShuoMing[0],
                           row({{Text1[0], 1}, cmdSelect[0]}),
                           LabFacts,
                           LabShuoMing[1],
                           row({{Text1[1], 1}, cmdSelect[1]}),
                           new FoldingRow({row({LabShuoMing[2], cboForm, stretch()}),
                                           row({encodingLabel, sourceEncoding, stretch()})}),
                           row({changeLabel, changeBox, stretch()}),
                       })),
        row({sampleLabel, {warningLabel, 1}}),
        {m_boxes, 1},
        row({labJinDu, {labShuDo, 1}, cmdClick[0], cmdClick[1], cmdClick[2]}),
    }));
    showResult({}, {});
    resize(sizeHint() + QSize(0, 5 * txtResult->fontMetrics().lineSpacing())); // a small screen limits the size
}

void frmTidy::dressWarning() {
    warningLabel->setWordWrap(true);
    warningLabel->setMinimumHeight(fontMetrics().lineSpacing()); // word wrap would ask for several lines
    QPalette inked = warningLabel->palette();
    inked.setColor(QPalette::WindowText, widgets::colour(widgets::Colour::WarningInk, inked));
    warningLabel->setPalette(inked);
    widgets::keepPlace(warningLabel);
}

void frmTidy::fillBoxes() {
    for (const FormRow &row : targetForms)
        cboForm->addItem(row.caption.toString());
    changeBox->addItem(u"不应用"_s);
    changeBox->addItems(m_changes.names);
    changeBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // names may be long
    changeBox->setMinimumContentsLength(12);
}

void frmTidy::takeSource(const QString &text) {
    showResult({}, {});
    m_guessed = marc::FileEncoding::Unknown;
    sampleText->setText({});
    sampleLabel->setText({});
    LabFacts->lookAt(platform::trimBlanks(text));
    suggestTarget();
}

// Before the survey is complete, there is a sample only for an encoding chosen by the user.
void frmTidy::showSample() {
    const QString path = platform::trimBlanks(Text1[0]->text());
    if (!platform::fileExists(path) ||
        (LabFacts->isLooking() && sourceEncoding->encoding() == SourceEncoding::Automatic))
        return;
    showResult({}, {});
    const platform::Result<SampleRecord> sample = sampleRecord(path, sourceEncoding->encoding(), m_guessed);
    const bool found = sample && sample.value().number > 0;
    sampleLabel->setText(found ? u"第 %1 条会读成:"_s.arg(sample.value().number) : u"没有读得出的记录"_s);
    sampleText->setText(found ? sample.value().text : sample ? QString() : sample.failure().description);
}

// If the user cancels, the box does not change.
void frmTidy::chooseInto(SelectingEdit *box, platform::FileDialogKind kind) {
    const QString path = m_host.chooseFile({.title = u"选择文件对话框"_s,
                                            .filter = platform::filters::tidying.toString(),
                                            .kind = kind,
                                            .start = platform::trimBlanks(box->text())});
    if (!path.isEmpty())
        box->setText(path);
}

TargetForm frmTidy::form() const {
    return targetForms[size_t(cboForm->currentIndex())].form;
}

platform::Result<FileChange> frmTidy::change(const QString &source) const {
    const int chosen = changeBox->currentIndex() - 1;
    return chosen < 0 ? FileChange() : m_changes.prepare(chosen, source, form());
}

void frmTidy::suggestTarget() {
    if (Text1[1]->text() != m_suggested)
        return;
    m_suggested = suggestedTarget(platform::trimBlanks(Text1[0]->text()), targetForms[size_t(cboForm->currentIndex())]);
    Text1[1]->setText(m_suggested);
}

bool frmTidy::mayTidy(const QString &source, const QString &target) {
    if (const auto refusal = refuseTidy(source, target)) {
        m_host.tell(refusal->text);
        Text1[refusal->focus == Refusal::Field::Source ? 0 : 1]->setFocus();
        return false;
    }
    const QStringList existing = TidyFiles(target).existing();
    return existing.isEmpty() ||
           m_host.ask(existing.join(u"、"_s) + u"已经存在。要替换吗？", platform::hintTitle, platform::Answer::No);
}

void frmTidy::tidy() {
    const QString source = platform::trimBlanks(Text1[0]->text());
    const QString target = platform::trimBlanks(Text1[1]->text());
    auto change = this->change(source);
    if (!change)
        return m_host.tell(change.failure().description);
    if (!mayTidy(source, target))
        return;
    LabFacts->stop();
    begin();
    m_run.emplace(source, target, form(), sourceEncoding->encoding());
    m_run->setChange(std::move(change).value());
    const platform::Result<bool> done = run();
    const bool isWhole = done && done.value();
    if (!isWhole)
        showCount(0);
    showResult(!done     ? u"没有整理成，什么也没有写出：\r\n"_s + done.failure().description
               : isWhole ? report(m_run->result(), source)
                         : u"已停止，什么也没有写出。"_s,
               isWhole ? warning(m_run->result()) : QString());
    end();
    if (std::exchange(m_leaving, false))
        return unload();
    if (!done)
        m_host.tell(done.failure().description);
}

// Shows the result instead of the sample.
void frmTidy::showResult(const QString &told, const QString &warning) {
    txtResult->setText(told);
    m_boxes->setCurrentWidget(told.isEmpty() ? sampleText : txtResult);
    sampleLabel->setVisible(told.isEmpty());
    warningLabel->setText(warning);
    warningLabel->setVisible(!warning.isEmpty());
}

bool frmTidy::queryUnload() {
    if (!m_run)
        return true;
    if (m_host.ask(u"确实要退出吗？"_s, platform::hintTitle, platform::Answer::No))
        m_stopped = m_leaving = true;
    return false;
}

void frmTidy::changeEvent(QEvent *event) {
    Window::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !m_run)
        LabFacts->lookAgain();
}

platform::Result<bool> frmTidy::run() {
    if (const Status opened = m_run->open(); !opened)
        return opened.failure();
    for (;;) {
        const platform::Result<bool> more = m_run->step();
        if (!more)
            return more.failure();
        labJinDu->setPacedText(u"正在整理，%1%"_s.arg(m_run->percent()));
        showCount(m_run->result().out);
        m_host.yield();
        if (m_stopped)
            return false;
        if (!more.value())
            break;
    }
    if (const Status closed = m_run->close(); !closed)
        return closed.failure();
    return true;
}

void frmTidy::begin() {
    m_controls.begin(this, {cmdClick[0], cmdSelect[0], cmdSelect[1], cboForm, sourceEncoding, changeBox},
                     {Text1[0], Text1[1]});
    labJinDu->show();
    labShuDo->show();
    showResult({}, {});
    m_stopped = false;
    cmdClick[1]->setEnabled(true);
    cmdClick[1]->setFocus();
}

void frmTidy::end() {
    m_run.reset();
    cmdClick[1]->setEnabled(false);
    labShuDo->flush();
    labJinDu->setText(u"处理结束"_s);
    m_controls.end();
}

void frmTidy::showCount(qint64 records) {
    labShuDo->setPacedNumber(u"成功处理：%1条", qint32(std::min<qint64>(records, std::numeric_limits<qint32>::max())));
}

} // namespace tidy
