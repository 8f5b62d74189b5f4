// Tasks: the ready task for suppliers' records file to file, compared with Catmandu with the same steps, and its
// preview.
#include "app/taskOffer.h"
#include "pairs.h"
#include "tasks/windows/frmTasks.h"
#include "tidy/windows/frmTidy.h"
#include "widgets/button.h"
#include "widgets/selectingEdit.h"
#include "widgets/textBox.h"
#include <QTest>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int theirRecords = 5000; // enough for Catmandu, which needs seconds for them
constexpr int previewed = 5000;

// Seconds from the press of the button; the first task of the list is that for suppliers' records. Without a task the
// file is only written again.
std::optional<double> tidyInWindow(const QString &source, const QString &target, tidy::TargetForm form, bool withTask) {
    BenchHost host;
    host.answer = platform::Answer::Yes; // replaces the target of the previous round
    tidy::frmTidy window(host, source, app::taskOffer(host));
    window.cboForm->setCurrentIndex(int(form));
    window.Text1[1]->setText(target);
    window.changeBox->setCurrentIndex(withTask ? 1 : 0);
    putUp(window);
    return timed([&] {
        window.cmdClick[0]->click();
        settle();
        return window.warningLabel->text().isEmpty() && window.txtResult->text().contains(u"【批改】"_s) == withTask;
    });
}

// Seconds from the press of the button until the table is complete.
std::optional<double> previewInWindow(const QString &file) {
    BenchHost host;
    tasks::ListDesk desk{.records = readStore(file), .file = file};
    desk.busyRow = [] { return -1; };
    tasks::frmTasks window(host, std::move(desk));
    putUp(window);
    return timed([&] {
        window.previewButton->click();
        const bool done = QTest::qWaitFor([&] { return !window.work().isBusy(); }, 60'000);
        settle();
        return done && window.previewPage->grid->rows() > previewed;
    });
}

} // namespace

void taskPairs(Table &table, const BenchStage &stage) {
    const QString all = stage.file(u"supplier.iso"), few = stage.file(u"supplier-few.iso");
    const QString target = stage.freshPath(u"cleaned.iso"), utf8 = stage.freshPath(u"supplier-utf8.iso");
    const QString one = stage.freshPath(u"one.iso");
    tidyInWindow(few, utf8, tidy::TargetForm::Utf8Iso, false);
    command(u"head -c $(head -c 5 "_s + quoted(utf8) + u") " + quoted(utf8) + u" >" + quoted(one))();
    const auto catmandu = [&](const QString &source) {
        return command(u"catmandu convert MARC --type RAW --fix "_s + quoted(stage.file(u"supplier.fix")) +
                       u" to MARC --type ISO <" + quoted(source) + u" >" + quoted(target) + u".theirs");
    };
    const auto cleaned = takeTurns(
        "task", 3,
        {[&] { return tidyInWindow(all, target, tidy::TargetForm::GbkIso, true); }, catmandu(utf8), catmandu(one)});
    table.bound(u"clean 200,000 records of a supplier by the ready task, in the window"_s, cleaned[0], 5);
    // Per record and without the start of either program: theirs loads its modules for each run.
    table.speed(u"200,000 records of that | Catmandu, from 5,000 records"_s, cleaned[0],
                (cleaned[1] - cleaned[2]) * recordCount / theirRecords, 20);
    const auto shown = takeTurns("preview", 5, {[&] { return previewInWindow(few); }});
    table.bound(u"preview of 5,000 records by that task, until the table is complete"_s, shown[0], 1);
}

} // namespace bench
