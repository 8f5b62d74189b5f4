#include "filetools/windows/frmCutFile.h"
#include "filetools/checks.h"
#include "platform/numbers.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include <QGridLayout>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;
using platform::Status;
using widgets::Button;
using widgets::SelectingEdit;

namespace filetools {

frmCutFile::frmCutFile(platform::Host &host, ShowReport showReport, QWidget *parent)
    : RunWindow(u"frmCutFile"_s, u"拆分机读目录文件"_s, host, std::move(showReport), parent)
    , Text1{new SelectingEdit(u"Text10"_s), new SelectingEdit(u"Text11"_s)}
    , Text2(new SelectingEdit(u"Text2"_s))
    , cmdSelect{new Button(u"cmdSelect0"_s, u"&L 浏览"_s), new Button(u"cmdSelect1"_s, u"&O 浏览"_s)}
    , cmdclick{new Button(u"cmdclick0"_s, u"&D 拆分"_s), new Button(u"cmdclick1"_s, u"&Q 取消"_s)}
    , Frame1(widgets::named(new QGroupBox(u"拆分机读文件（选择或输入机读目录文件；要带扩展名）"_s), u"Frame1"_s))
    , LabShuoMing{new QLabel(u"选择需要处理的机读目录文件:"_s),
                  new QLabel(u"拆分后的机读数据保存到文件:（程序将自动添加文件序号）"_s),
                  new QLabel(u"每个拆分文件机读数据条数:"_s)} {
    layOut();
    cmdclick[0]->markPrimary();
    widgets::hint({{Text1[1], u"如 part.iso，拆成 part700.iso、part701.iso……；最好放在新建的空文件夹里"},
                   {cmdclick[0], u"已有的 700 至 799 号同名文件会先删除，删除前询问；800 号起的直接覆盖，不问"}});
    connect(Text2, &QLineEdit::textChanged, this, [this](const QString &text) { m_limit = text; });
    Text2->setText(u"1000"_s);
    using platform::FileDialogKind;
    for (const auto &[index, kind] : {std::pair{0, FileDialogKind::Open}, {1, FileDialogKind::Save}}) {
        widgets::enterActsAsTab(Text1[index]);
        connect(cmdSelect[index], &Button::clicked, this, [this, i = index, k = kind] {
            Text1[i]->setText(chooseFile(k)); // clears the box on cancel
        });
    }
    connect(cmdclick[0], &Button::clicked, this, &frmCutFile::split);
    connect(cmdclick[1], &Button::clicked, this, &frmCutFile::unload);
}

void frmCutFile::layOut() {
    using namespace widgets;
    for (int i = 0; i < 3; ++i)
        naming(named(LabShuoMing[i], u"LabShuoMing"_s + QString::number(i)), i < 2 ? Text1[i] : Text2);
    cmdSelect[0]->setAccessibleName(u"浏览需要处理的机读目录文件"_s);
    cmdSelect[1]->setAccessibleName(u"浏览拆分后的目标文件"_s);
    giveWidth(Text1[0], 24 * fontMetrics().height()); // fits a usual path
    auto *files = new QGridLayout;                    // the buttons have one width
    for (int i = 0; i < 2; ++i) {
        files->addWidget(LabShuoMing[i], 2 * i, 0, 1, 2);
        files->addWidget(Text1[i], 2 * i + 1, 0);
        files->addWidget(cmdSelect[i], 2 * i + 1, 1);
    }
    setLayout(column({
        framed(Frame1, column({files, row({LabShuoMing[2], Text2, stretch()})})),
        stretch(),
        labJinDu,
        row({{labShuDo, 1}, cmdclick[0], cmdclick[1]}),
    }));
}

void frmCutFile::split() {
    const QString source = platform::trimBlanks(Text1[0]->text());
    const std::optional<TargetPattern> target = confirmedTarget(source, platform::trimBlanks(Text1[1]->text()));
    if (!target)
        return;
    m_run.emplace(source, *target);
    carryOut({cmdclick[0], cmdSelect[0], cmdSelect[1]}, Text2, target->folder, [this] { return run(); });
}

std::optional<TargetPattern> frmCutFile::confirmedTarget(const QString &source, const QString &target) {
    if (const auto refusal = refuseSplit(source, platform::fileExists(source), target, Text2->text())) {
        if (!refusal->text.isEmpty())
            m_host.tell(refusal->text);
        if (refusal->focus != Field::None)
            (refusal->focus == Field::Source ? Text1[0] : Text2)->setFocus();
        return std::nullopt;
    }
    std::optional<TargetPattern> pattern = targetPattern(target);
    if (!pattern) {
        tellFailure(u"目标文件名无效"_s);
        return std::nullopt;
    }
    const QStringList existing = pattern->existing();
    if (!existing.isEmpty() &&
        !m_host.ask(overwriteQuestion(pattern->mask()), platform::hintTitle, platform::Answer::No))
        return std::nullopt;
    for (const QString &path : existing) {
        if (const Status removed = platform::removeFile(path); !removed) {
            tellFailure(removed.failure().description);
            return std::nullopt;
        }
    }
    return pattern;
}

Status frmCutFile::run() {
    if (const Status opened = m_run->open(); !opened)
        return opened;
    labJinDu->setPacedText(m_run->currentFile());
    const Status written = writeRecords([this] {
        const Status done = m_run->write(m_limit);
        if (done)
            labJinDu->setPacedText(m_run->currentFile());
        return done;
    });
    return written ? m_run->close(m_limit) : written;
}

} // namespace filetools
