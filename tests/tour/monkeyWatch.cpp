#include "tour/monkeyWatch.h"
#include "import/windows/frmDaoRuJindu.h"
#include "proof/windows/frmMessage.h"
#include "tour/errands.h"
#include <QApplication>
#include <QFileDialog>
#include <QProgressBar>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

const QRegularExpression stopQuestion(u"^已经成功导出(\\d+)条数据。确定要终止导出吗？$"_s);
const QRegularExpression exportMessage(u"^本次操作成功导出(\\d+)条数据\r\n以marc格式保存在文件(.*)中。$"_s);
const QRegularExpression firstNumber(u"\\d+"_s);

int numberIn(const QString &text) {
    return firstNumber.match(text).captured().toInt();
}

// Returns how many rows of the list differ from the records in the file, or -1 if the file cannot be opened.
int differing(const marc::PreReadStore &records, const QString &file) {
    auto cutter = marc::RecordCutter::open(file);
    if (!cutter)
        return -1;
    int found = 0;
    for (int row = 0; row < records.rowCount(); ++row) {
        const bool there = cutter.value().next();
        found +=
            !there || records.number(row) != QString::number(row + 1) || records.record(row) != cutter.value().record();
    }
    return found;
}

// Returns whether a split or a merge is running or has failed during its run.
bool aRunStands() {
    return std::ranges::any_of(std::array{u"frmCutFile/labJinDu"_s, u"frmUnionFile/labJinDu"_s},
                               [](const QString &name) {
                                   const auto *state = TourDriver::find<widgets::PacedLabel>(name);
                                   return state && state->text() != u"处理结束";
                               });
}

} // namespace

MonkeyWatch::MonkeyWatch(TourDriver &driver)
    : m_driver(driver) {
    qApp->installEventFilter(this);
}

bool MonkeyWatch::eventFilter(QObject *watched, QEvent *event) {
    if (!watched->isWidgetType() || event->spontaneous())
        return false;
    if (event->type() == QEvent::Show)
        opened(static_cast<QWidget *>(watched));
    else if (event->type() == QEvent::Hide && qobject_cast<QMessageBox *>(watched))
        boxClosed(*static_cast<QMessageBox *>(watched));
    else if (event->type() == QEvent::Hide && qobject_cast<QFileDialog *>(watched))
        fileChosen(*static_cast<QFileDialog *>(watched));
    return false;
}

void MonkeyWatch::opened(QWidget *window) {
    if (const auto *box = qobject_cast<QMessageBox *>(window))
        return boxOpened(box->text());
    auto *ours = qobject_cast<widgets::Window *>(window);
    if (!ours || ours->property("watched").toBool())
        return;
    ours->setProperty("watched", true);
    connect(ours, &widgets::Window::unloaded, this, [this, ours] { closed(ours); });
    if (const auto *report = qobject_cast<proof::frmMessage *>(ours))
        toolReported(report->messageText->toPlainText());
    else if (auto *desk = qobject_cast<workspace::frmDaoru *>(ours))
        workspaceOpened(*desk);
    else if (ours->objectName() == u"frmDaoRuJindu")
        m_driver.expectEqual(TourDriver::find<QLabel>(u"frmDaoru/labJinDu"_s)->text(), u"预读结束"_s,
                             u"the read behind an import"_s);
}

// Drafts of an earlier start may be restored into the list.
void MonkeyWatch::workspaceOpened(workspace::frmDaoru &desk) {
    m_takenOver = 0;
    connect(desk.draftBar, &workspace::DraftBar::restoreWanted, this,
            [this, &desk] { m_takenOver += numberIn(desk.draftBar->draftWords->text()); });
}

void MonkeyWatch::closed(widgets::Window *window) {
    if (window->objectName() == u"frmDaoru")
        workspaceClosed(window);
    else if (window->objectName() == u"frmDaoRuJindu")
        importClosed(window);
    else if (window->objectName() == u"ZSKListFrm")
        listClosed(window);
    else if (window->objectName() == u"frmCutFile" || window->objectName() == u"frmUnionFile")
        toolClosed(window);
}

void MonkeyWatch::boxOpened(const QString &text) {
    if (const auto match = exportMessage.match(text); match.hasMatch())
        exportEnded(match.captured(1).toInt(), match.captured(2));
    else if (text.startsWith(u"【cmdClick】"))
        m_stuck = aRunStands(); // a refusal before a run does not block the window
}

void MonkeyWatch::boxClosed(const QMessageBox &box) {
    const bool yes = box.result() == QMessageBox::Yes;
    if (const auto match = stopQuestion.match(box.text()); match.hasMatch())
        m_stopAsked = yes ? match.captured(1).toInt() : 0;
    else if (yes && box.text().startsWith(u"本条记录已经改变"))
        ++m_takenOver;
}

void MonkeyWatch::fileChosen(const QFileDialog &dialog) {
    if (dialog.result() == QDialog::Accepted && dialog.windowTitle() == u"导出书库数据为marc格式" &&
        !QFile::exists(dialog.selectedFiles().constFirst()))
        m_exportFile = dialog.selectedFiles().constFirst();
}

// After a stop, the message reports one record less than the file and the stop question.
void MonkeyWatch::exportEnded(int told, const QString &file) {
    const int held = recordsIn(file);
    compare(held, m_stopAsked > 0 ? told + 1 : told, u"records in " + file);
    if (m_stopAsked > 0)
        compare(held, m_stopAsked, u"records in the stopped " + file);
    m_stopAsked = 0;
    m_exportFile.clear();
}

// An export whose list is closed leaves the records that its label shows.
void MonkeyWatch::listClosed(QWidget *window) {
    if (m_exportFile.isEmpty())
        return;
    const auto *progress = window->findChild<widgets::PacedLabel *>(u"labDaochu"_s);
    compare(recordsIn(m_exportFile), numberIn(progress->text()), u"records of an export that was left"_s);
    m_exportFile.clear();
}

void MonkeyWatch::workspaceClosed(QWidget *window) {
    auto *desk = static_cast<workspace::frmDaoru *>(window);
    m_driver.expectEqual(desk->labJinDu->text(), u"预读结束"_s, u"the read of a closed workspace"_s);
    if (desk->Text3->text().toInt() < marc::PreReadStore::initialRows)
        return;
    compare(desk->Grid2->rows(), desk->Text3->text().toInt(), u"rows of the list"_s);
    const int changed = differing(desk->records(), desk->publicMarcFile);
    ++m_checks;
    m_driver.expect(changed >= 0 && changed <= m_takenOver,
                    u"%1 rows of the list differ from the file, %2 were changed"_s.arg(changed).arg(m_takenOver));
}

void MonkeyWatch::importClosed(QWidget *window) {
    const auto *progress = static_cast<importing::frmDaoRuJindu *>(window);
    m_driver.expect(progress->barJinduTishi->isHidden(), u"an import window closes behind its run"_s);
    m_imported += numberIn(progress->labTishi->text());
}

// Checks the report of a split or a merge: the targets have as many records as the sources, and the files contain them.
void MonkeyWatch::toolReported(const QString &report) {
    if (!report.startsWith(u"【源文件】"))
        return;
    static const QRegularExpression line(u"文件\\{(.*?)\\}?(处理|保存)了(\\d+)条记录"_s);
    QStringList targets;
    qint64 read = 0;
    qint64 saved = 0;
    for (auto lines = line.globalMatch(report); lines.hasNext();) {
        const auto match = lines.next();
        const int told = match.captured(3).toInt();
        (match.captured(2) == u"保存" ? saved : read) += told;
        compare(recordsIn(match.captured(1)), told, u"records in " + match.captured(1));
    }
    compare(saved, read, u"records saved, by the report"_s);
}

void MonkeyWatch::toolClosed(QWidget *window) {
    const auto *state = window->findChild<widgets::PacedLabel *>(u"labJinDu"_s);
    m_driver.expect(state->isHidden() || state->text() == u"处理结束", u"a file tool closes behind its run"_s);
}

void MonkeyWatch::compare(qint64 is, qint64 shouldBe, const QString &what) {
    ++m_checks;
    m_driver.expect(is == shouldBe, u"%1: %2, not %3"_s.arg(what).arg(is).arg(shouldBe));
}

} // namespace tour
