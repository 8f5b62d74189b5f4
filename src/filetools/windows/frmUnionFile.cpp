#include "filetools/windows/frmUnionFile.h"
#include "filetools/checks.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "widgets/keys.h"
#include "widgets/layout.h"
#include <QShortcut>
#include <utility>

using namespace Qt::StringLiterals;
using platform::Status;
using widgets::Button;
using widgets::named;
using widgets::SelectingEdit;

namespace filetools {

frmUnionFile::frmUnionFile(platform::Host &host, ShowReport showReport, QWidget *parent)
    : RunWindow(u"frmUnionFile"_s, u"合并机读目录文件"_s, host, std::move(showReport), parent)
    , List1(new QListWidget)
    , Frame2(named(new QGroupBox(u"源文件列表（选择机读目录文件；可以重复选择）"_s), u"Frame2"_s))
    , cmdSelect{new Button(u"cmdSelect0"_s, u"&A 添加文件"_s), new Button(u"cmdSelect1"_s, u"&D 取消文件"_s)}
    , Frame1(named(new QGroupBox(u"合并后的目标文件（选择或输入机读目录文件；要带扩展名。不能合并到源文件）"_s),
                   u"Frame1"_s))
    , Text1(new SelectingEdit(u"Text1"_s))
    , cmdSave(new Button(u"cmdSave"_s, u"&O 浏览"_s))
    , cmdClick{new Button(u"cmdClick0"_s, u"&D 合并"_s), new Button(u"cmdClick1"_s, u"&Q 退出"_s)} {
    layOut();
    widgets::hint({{cmdSelect[1], u"从列表里去掉选中的文件（Delete），不删除文件"},
                   {Text1, u"用一个新的文件名：目标文件先被清空"},
                   {cmdClick[0], u"按列表的次序连成一个文件"}});
    labJinDu->setText(u"处理完毕"_s); // never visible: both labels are hidden until a run
    labShuDo->setText(u"成功处理：0"_s);
    widgets::enterActsAsTab(Text1);
    connect(cmdSelect[0], &Button::clicked, this, &frmUnionFile::addFile);
    connect(cmdSelect[1], &Button::clicked, this, &frmUnionFile::removeFile);
    connect(new QShortcut(QKeySequence::Delete, List1, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated,
            cmdSelect[1], &Button::click);
    connect(cmdSave, &Button::clicked, this,
            [this] { Text1->setText(chooseFile(platform::FileDialogKind::Save)); }); // clears the box on cancel
    connect(cmdClick[0], &Button::clicked, this, &frmUnionFile::merge);
    connect(cmdClick[1], &Button::clicked, this, &frmUnionFile::unload);
}

void frmUnionFile::layOut() {
    cmdClick[0]->markPrimary();
    using namespace widgets;
    named(List1, u"List1"_s, Frame2->title());
    List1->setTextElideMode(Qt::ElideMiddle);
    Text1->setAccessibleName(Frame1->title());
    cmdSave->setAccessibleName(u"浏览合并后的目标文件"_s);
    giveWidth(List1, 26 * fontMetrics().height()); // fits a usual path
    setLayout(column({
        {framed(Frame2, row({{List1, 1}, column({cmdSelect[0], cmdSelect[1], stretch()})})), 1},
        framed(Frame1, row({{Text1, 1}, cmdSave})),
        labJinDu,
        row({{labShuDo, 1}, cmdClick[0], cmdClick[1]}),
    }));
    cmdSelect[0]->setFocus();
}

void frmUnionFile::addFile() {
    const QString path = chooseFile(platform::FileDialogKind::Open);
    if (!path.isEmpty())
        List1->addItem(path);
}

void frmUnionFile::removeFile() {
    if (!List1->selectedItems().isEmpty())
        delete List1->takeItem(List1->currentRow());
}

QStringList frmUnionFile::sources() const {
    QStringList paths;
    for (int row = 0; row < List1->count(); ++row)
        paths.append(List1->item(row)->text());
    return paths;
}

bool frmUnionFile::mayMerge(const QStringList &sources, const QString &target) {
    if (const auto refusal = refuseMerge(sources, target)) {
        if (!refusal->text.isEmpty())
            m_host.tell(refusal->text);
        return false;
    }
    return !platform::fileExists(target) || m_host.ask(replaceQuestion(target), platform::hintTitle);
}

void frmUnionFile::merge() {
    const QStringList from = sources();
    const QString target = platform::trimBlanks(Text1->text());
    if (!mayMerge(from, target))
        return;
    m_run.emplace(target);
    carryOut({cmdClick[0], cmdSelect[0], cmdSelect[1], cmdSave}, Text1, platform::folderOf(target),
             [&] { return run(from); });
}

Status frmUnionFile::run(const QStringList &sources) {
    if (const Status opened = m_run->open(); !opened)
        return opened;
    for (const QString &path : sources) {
        labJinDu->setPacedText(path);
        if (const Status merged = mergeSource(path); !merged)
            return merged;
    }
    return m_run->close();
}

Status frmUnionFile::mergeSource(const QString &path) {
    if (const Status opened = m_run->openSource(path); !opened)
        return opened;
    const Status written = writeRecords([this] { return m_run->write(); });
    if (written)
        m_run->closeSource();
    return written;
}

} // namespace filetools
