#include "filetools/windows/frmTidy.h"
#include "filetools/checks.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;
using platform::Status;
using widgets::Button;
using widgets::SelectingEdit;

namespace filetools {

namespace {

struct FormRow {
    TargetForm form;
    QStringView caption;
    QStringView ending; // of a suggested name
};

constexpr auto forms = std::to_array<FormRow>({
    {TargetForm::GbkIso, u"GBK，一行一条（本程序使用）", u"-gbk.iso"},
    {TargetForm::Utf8Iso, u"UTF-8，ISO 2709（无行结束符）", u"-utf8.iso"},
    {TargetForm::MarcXml, u"MARCXML（UTF-8）", u"-marc.xml"},
});

} // namespace

frmTidy::frmTidy(platform::Host &host, const QString &source, QWidget *parent)
    : FileToolWindow(u"frmTidy"_s, u"整理机读目录文件"_s, host, {}, parent)
    , Frame1(widgets::named(new QGroupBox(u"整理机读目录文件（选择或输入文件）"_s), u"Frame1"_s))
    , LabShuoMing{new QLabel(u"需要整理的文件（ISO 2709、MARCXML、MarcXchange）:"_s),
                  new QLabel(u"整理后保存到文件:"_s), new QLabel(u"保存成(&F):"_s)}
    , Text1{new SelectingEdit(u"Text10"_s), new SelectingEdit(u"Text11"_s)}
    , cmdSelect{new Button(u"cmdSelect0"_s, u"&L 浏览"_s), new Button(u"cmdSelect1"_s, u"&O 浏览"_s)}
    , LabFacts(new FactsLabel(u"LabFacts"_s))
    , cboForm(widgets::named(new QComboBox, u"cboForm"_s))
    , txtResult(widgets::named(new widgets::TextBox(u"txtResult"_s), u"txtResult"_s, u"整理结果"_s))
    , cmdClick{new Button(u"cmdClick0"_s, u"&D 整理"_s), new Button(u"cmdClick1"_s, u"&S 停止"_s),
               new Button(u"cmdClick2"_s, u"&Q 退出"_s)} {
    layOut();
    widgets::hint({{cmdClick[0], u"另存为新文件，原来的文件不动"}, {cmdClick[1], u"停下来，不留下半个文件"}});
    cmdClick[1]->setEnabled(false);
    for (SelectingEdit *box : Text1)
        widgets::enterActsAsTab(box);
    using platform::FileDialogKind;
    connect(cmdSelect[0], &Button::clicked, this, [this] { chooseInto(Text1[0], FileDialogKind::Open); });
    connect(cmdSelect[1], &Button::clicked, this, [this] { chooseInto(Text1[1], FileDialogKind::Save); });
    connect(Text1[0], &QLineEdit::textChanged, this, [this](const QString &text) {
        LabFacts->lookAt(platform::trimBlanks(text));
        suggestTarget();
    });
    connect(cboForm, &QComboBox::currentIndexChanged, this, &frmTidy::suggestTarget);
    connect(cmdClick[0], &Button::clicked, this, &frmTidy::tidy);
    connect(cmdClick[1], &Button::clicked, this, [this] { m_stopped = true; });
    connect(cmdClick[2], &Button::clicked, this, &frmTidy::unload);
    Text1[0]->setText(source);
}

void frmTidy::layOut() {
    using namespace widgets;
    for (const FormRow &row : forms)
        cboForm->addItem(row.caption.toString());
    const std::array<QWidget *, 3> controls{Text1[0], Text1[1], cboForm};
    for (std::size_t i = 0; i < controls.size(); ++i)
        naming(named(LabShuoMing[i], u"LabShuoMing"_s + QString::number(i)), controls[i]);
    cmdSelect[0]->setAccessibleName(u"浏览需要整理的文件"_s);
    cmdSelect[1]->setAccessibleName(u"浏览整理后的目标文件"_s);
    txtResult->lock();
    txtResult->setRoom(24, 5);
    Text1[0]->setMinimumWidth(24 * fontMetrics().height()); // a usual path is seen whole
    setLayout(column({
        framed(Frame1, column({
                           LabShuoMing[0],
                           row({{Text1[0], 1}, cmdSelect[0]}),
                           LabFacts,
                           LabShuoMing[1],
                           row({{Text1[1], 1}, cmdSelect[1]}),
                           row({LabShuoMing[2], cboForm, stretch()}),
                       })),
        {txtResult, 1},
        labJinDu,
        row({{labShuDo, 1}, cmdClick[0], cmdClick[1], cmdClick[2]}),
    }));
}

// A cancel leaves the box as it was.
void frmTidy::chooseInto(SelectingEdit *box, platform::FileDialogKind kind) {
    const QString path = m_host.chooseFile(
        {.title = u"选择文件对话框"_s,
         .filter = u"cnmarc_file(*.iso)|*.iso|xml_file(*.xml)|*.xml|text_file(*.txt)|*.txt|all_files(*.*)|*.*"_s,
         .kind = kind});
    if (!path.isEmpty())
        box->setText(path);
}

TargetForm frmTidy::form() const {
    return forms.at(std::size_t(cboForm->currentIndex())).form;
}

void frmTidy::suggestTarget() {
    if (Text1[1]->text() != m_suggested)
        return;
    const QString source = platform::trimBlanks(Text1[0]->text());
    const qsizetype folder = platform::folderOf(source).size();
    const qsizetype point = source.lastIndexOf(u'.');
    const QString stem = point > folder ? source.first(point) : source;
    m_suggested = source.size() == folder ? QString() : stem + forms.at(std::size_t(cboForm->currentIndex())).ending;
    Text1[1]->setText(m_suggested);
}

bool frmTidy::mayTidy(const QString &source, const QString &target) {
    if (const auto refusal = refuseTidy(source, target)) {
        m_host.tell(refusal->text);
        Text1[refusal->focus == Field::Source ? 0 : 1]->setFocus();
        return false;
    }
    const QStringList existing = TidyFiles(target).existing();
    return existing.isEmpty() ||
           m_host.ask(replaceQuestion(existing.join(u"、"_s)), platform::hintTitle, platform::Answer::No);
}

void frmTidy::tidy() {
    const QString source = platform::trimBlanks(Text1[0]->text());
    const QString target = platform::trimBlanks(Text1[1]->text());
    if (!mayTidy(source, target))
        return;
    LabFacts->stop();
    beginRun({cmdClick[0], cmdSelect[0], cmdSelect[1], cboForm}, Text1[1]);
    Text1[0]->setReadOnly(true);
    txtResult->setText({});
    m_stopped = false;
    cmdClick[1]->setEnabled(true);
    cmdClick[1]->setFocus();
    m_run.emplace(source, target, form());
    const platform::Result<bool> done = run();
    const QString told = !done ? u"没有整理成，什么也没有写出：\r\n"_s + done.failure().description
                         : !done.value() ? u"已停止，什么也没有写出。"_s
                                         : report(m_run->result(), source);
    if (!done || !done.value())
        showCount(0);
    end(told);
    if (!done)
        m_host.tell(done.failure().description);
}

platform::Result<bool> frmTidy::run() {
    if (const Status opened = m_run->open(); !opened)
        return opened.failure();
    for (;;) {
        const platform::Result<bool> more = m_run->step();
        if (!more)
            return more.failure();
        labJinDu->setPacedText(u"正在整理，%1%"_s.arg(m_run->percent()));
        showCount(qint32(std::min<qint64>(m_run->result().out, std::numeric_limits<qint32>::max())));
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

void frmTidy::end(const QString &told) {
    m_run.reset();
    cmdClick[1]->setEnabled(false);
    Text1[0]->setReadOnly(false);
    endRun();
    txtResult->setText(told);
}

std::optional<qint32> frmTidy::handOver() {
    return std::nullopt; // the count is of records, which appear all together at the end
}

} // namespace filetools
