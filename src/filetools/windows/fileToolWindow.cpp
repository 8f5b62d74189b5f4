#include "filetools/windows/fileToolWindow.h"
#include "platform/fileFilters.h"
#include <utility>

using namespace Qt::StringLiterals;

namespace filetools {

namespace {

constexpr QStringView workDone = u"处理结束";

} // namespace

FileToolWindow::FileToolWindow(const QString &objectName, const QString &caption, platform::Host &host,
                               ShowReport showReport, QWidget *parent)
    : Window(objectName, caption, parent)
    , labJinDu(widgets::progressLabel(u"labJinDu"_s, this))
    , labShuDo(widgets::progressLabel(u"labShuDo"_s, this))
    , m_host(host)
    , m_showReport(std::move(showReport)) {
    connect(labShuDo, &widgets::PacedLabel::aboutToShow, this, [this] {
        if (const std::optional<qint32> inFiles = handOver())
            showCount(*inFiles);
    });
}

bool FileToolWindow::queryUnload() {
    if (!labJinDu->isHidden() && labJinDu->pacedText() != workDone) {
        labShuDo->flush();
        labJinDu->flush();
        m_host.tell(u"处理还没有结束，请先结束处理！"_s);
        return false;
    }
    return m_host.ask(u"确实要退出吗？"_s, platform::hintTitle, platform::Answer::No);
}

QString FileToolWindow::chooseFile(platform::FileDialogKind kind) {
    return m_host.chooseFile(
        {.title = u"选择文件对话框"_s, .filter = platform::filters::records.toString(), .kind = kind});
}

void FileToolWindow::beginRun(const QList<QWidget *> &disabled, QLineEdit *locked) {
    m_controls.begin(this, disabled, {locked});
    labJinDu->show();
    labShuDo->show();
}

void FileToolWindow::endRun() {
    labShuDo->flush();
    labJinDu->setText(workDone.toString());
    m_controls.end();
}

void FileToolWindow::showCount(qint32 total) {
    labShuDo->setPacedNumber(u"成功处理：%1条", total);
}

void FileToolWindow::tellFailure(const QString &description) {
    labShuDo->flush();
    labJinDu->flush();
    m_host.tell(u"【cmdClick】" + description);
}

void FileToolWindow::showResult(const QString &report, const QString &folder) {
    m_showReport(report);
    if (m_host.ask(u"是否查看该目标文件？"_s, platform::hintTitle) && !folder.isEmpty())
        m_host.openInShell(folder);
}

} // namespace filetools
