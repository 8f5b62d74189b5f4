// The division of the space in the pages of the window of tasks.
#include "support/windowState.h"
#include "tasksWindow.h"

using namespace tasks;

namespace {

const QString longStep =
    uR"({"if": {"is": "present", "tag": "200"}, "action": "replace", "tag": "200", "code": "a", "find": ")"_s +
    u"题"_s.repeated(200) + uR"(", "with": "x"})"_s;

using TasksLayout = TasksWindow;

int leftOf(const QWidget &window, const QString &name) {
    const auto *part = window.findChild<QWidget *>(name);
    return part ? part->mapTo(&window, QPoint()).x() : -1;
}

} // namespace

TEST_F(TasksLayout, TheStepsShareTheWidth) {
    frmTasks &form = openWith(longStep);
    QApplication::processEvents();
    StepsPage &page = *form.stepsPage;
    const int left = leftOf(form, u"taskLabel"_s);
    for (const QString &name : {u"nameLabel"_s, u"stepList"_s})
        EXPECT_EQ(leftOf(form, name), left) << name.toStdString();
    EXPECT_GE(form.width(), 50 * form.fontMetrics().height());
    const auto right = [&](const QWidget *part) { return part->mapTo(&form, part->rect().topRight()).x(); };
    EXPECT_EQ(right(page.form), right(page.descriptionEdit));
    EXPECT_NEAR(right(page.form->box(false, Parameter::Find)), right(page.form), form.fontMetrics().height());
    const int list = page.stepList->width(), half = page.form->width();
    EXPECT_TRUE(WindowState(form).grown({200, 0}).contains(u"stepForm w"));
    EXPECT_TRUE(page.stepList->width() > list + 40 && page.form->width() > half + 40);
    for (const QAbstractScrollArea *part : std::initializer_list<QAbstractScrollArea *>{page.stepList, page.form})
        EXPECT_FALSE(part->horizontalScrollBar()->isVisible()) << part->objectName().toStdString();
    const QImage picture = form.grab().toImage();
    const QPoint corner = page.form->mapTo(&form, QPoint());
    const QColor ground = form.palette().color(QPalette::Window);
    for (const QPoint &place : {QPoint(0, 0), QPoint(2, 2), QPoint(page.form->width() / 2, page.form->height() - 2)})
        EXPECT_EQ(picture.pixelColor(corner + place), ground) << place.y() << " no frame, no ground of its own";
    page.form->setFocus();
    EXPECT_TRUE(page.form->actionBox->hasFocus());
    StepForm &step = *page.form;
    EXPECT_TRUE(step.testBox->currentIndex() == int(tasks::Test::Present) &&
                step.actionBox->currentIndex() == int(Action::Replace));
    Q_EMIT step.actionBox->activated(int(Action::DeleteField));
    EXPECT_TRUE(page.task().steps[0].action == Action::DeleteField && !step.box(false, Parameter::Find));
    Q_EMIT step.testBox->activated(int(tasks::Test::Always));
    EXPECT_TRUE(page.task().steps[0].test == tasks::Test::Always && !step.box(true, Parameter::Tag));
    Q_EMIT step.actionBox->activated(int(Action::TidyText));
    auto *what = qobject_cast<QComboBox *>(step.box(false, Parameter::What));
    what->setCurrentIndex(1);
    Q_EMIT what->activated(1);
    EXPECT_EQ(page.task().steps[0].values[Parameter::What], what->currentData().toString());
    EXPECT_TRUE(page.stepList->item(0)->flags() & Qt::ItemIsUserCheckable);
    form.resize(1, 1);
    QApplication::processEvents();
    EXPECT_GE(page.form->width(), 16 * form.fontMetrics().height());
    EXPECT_FALSE(page.stepList->toolTip().isEmpty() || form.taskBar->copyButton->toolTip().isEmpty());
}

TEST_F(TasksLayout, ThePreviewGivesItsSpaceToTheChanges) {
    frmTasks &form = openWith(longStep);
    form.previewButton->click();
    ASSERT_TRUE(done());
    const PreviewPage &page = *form.previewPage;
    const int line = form.fontMetrics().lineSpacing();
    QApplication::processEvents();
    for (const QString &name : {u"scopeLabel"_s, u"kindList"_s})
        EXPECT_EQ(leftOf(form, name), leftOf(form, u"taskLabel"_s)) << name.toStdString();
    EXPECT_NEAR(double(page.kindList->width()) / page.grid->width(), 13.0 / 40, 0.06);
    EXPECT_NEAR(double(page.changeText->height()) / page.grid->height(), 0.21, 0.05);
    EXPECT_EQ(page.grid->accessibleName() + page.kindList->accessibleName(), u"改动每一步改多少");
    EXPECT_FALSE(page.kindList->horizontalScrollBar()->isVisible());
    EXPECT_GT(page.kindList->visualItemRect(page.kindList->item(1)).height(), 3 * line) << "the words wrap";
    EXPECT_GT(page.grid->columnWidth(PreviewRows::TitleColumn), page.grid->columnWidth(PreviewRows::RecordColumn));
    EXPECT_EQ(WindowState(form).grown({200, 200}),
              u"changeGrid wh; changeText w; changesAcross wh; changesDown wh; kindList h; labJinDu w; pages wh; "
              "previewPage wh; scopeBox w; taskBar w; taskBox w"_s);
    form.resize(1, 1);
    QApplication::processEvents();
    EXPECT_GE(page.kindList->width(), 8 * line);
    EXPECT_TRUE(page.changeText->height() >= 2 * line && page.grid->height() >= 4 * line);
}
