// The window of a report's preview: of all its pages, or of one page at a time.
#include "support/qtPrinters.h"
#include "widgets/bandedReport.h"
#include "widgets/lineIcon.h"
#include "widgets/longPreview.h"
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTest>

using namespace widgets;

namespace {

struct Numbers final : platform::TableSource {
    int rows = 0;
    int rowCount() const override { return rows; }
    int columnCount() const override { return 1; }
    QString text(int row, int) const override { return QString::number(row); }
};

struct ReportPreviewTest : testing::Test {
    std::unique_ptr<QDialog> preview(int rows) {
        auto numbers = std::make_shared<Numbers>();
        numbers->rows = rows;
        BandedReport report;
        report.caption = u"打印一览表"_s;
        report.columns = {{u"号"_s, 0, 1}};
        report.rows = numbers;
        return std::unique_ptr<QDialog>(newReportPreview(report, nullptr));
    }
};

TEST_F(ReportPreviewTest, ALongReportHasTheOtherWindowAndTheSameName) {
    for (const int rows : {5000, 5001}) {
        const auto shown = preview(rows);
        EXPECT_EQ(qobject_cast<LongPreview *>(shown.get()) != nullptr, rows > 5000);
        EXPECT_EQ(shown->objectName() + shown->windowTitle(), u"DataReportJs打印一览表"_s);
        const auto actions = shown->findChildren<QAction *>();
        EXPECT_EQ(std::ranges::count(actions, QKeySequence(QKeySequence::Print), &QAction::shortcut), 1) << rows;
        EXPECT_GT(shown->height(), 500) << "a page can be read";
        EXPECT_TRUE(shown->testAttribute(Qt::WA_DeleteOnClose));
        auto *whole = qobject_cast<QPrintPreviewDialog *>(shown.get());
        EXPECT_EQ(whole == nullptr, rows > 5000);
        if (whole) {
            EXPECT_EQ(whole->printer()->docName(), shown->windowTitle());
            EXPECT_EQ(whole->printer()->pageLayout().margins(QPageLayout::Millimeter), QMarginsF(15, 15, 15, 15));
        }
    }
}

TEST_F(ReportPreviewTest, TheToolsOfALongReportAreInGroups) {
    const auto shown = preview(5001);
    QStringList tools;
    const auto *bar = shown->findChild<QToolBar *>();
    for (QAction *tool : bar->actions())
        tools.append(tool->isSeparator()                                                         ? u"|"_s
                     : bar->widgetForAction(tool)->metaObject()->className() == "QToolButton"_ba ? tool->text()
                                                                                                 : u"·"_s);
    EXPECT_EQ(tools.join(u' '),
              u"适应宽度 适应页面 缩小 放大 | 纵向 横向 | 第一页 上一页 · · 下一页 最后一页 | 页面设置 打印"_s);
}

TEST_F(ReportPreviewTest, TheToolsOfAShortReportAreNamedAndFitTheScreen) {
    const auto shown = preview(10);
    QSet<QString> names;
    for (const auto *control : shown->findChildren<QWidget *>())
        if (qobject_cast<const QLineEdit *>(control) || qobject_cast<const QComboBox *>(control) ||
            qobject_cast<const QPrintPreviewWidget *>(control) || qobject_cast<const QGraphicsView *>(control))
            names.insert(control->accessibleName());
    EXPECT_EQ(names, (QSet<QString>{u"显示比例"_s, u"页码"_s, u"打印预览"_s}));
    QStringList icons;
    for (const QToolBar *bar : shown->findChildren<QToolBar *>()) {
        EXPECT_LE(bar->sizeHint().width(), shown->screen()->availableSize().width());
        for (const QAction *tool : bar->actions())
            for (const QStringView icon : {u"zoom-fit-width", u"go-first", u"printer"})
                if (tool->icon().pixmap(16).toImage() == lineIcon(icon.toString()).pixmap(16).toImage())
                    icons.append(icon.toString());
    }
    EXPECT_EQ(icons.join(u' '), u"zoom-fit-width go-first printer");
}

TEST_F(ReportPreviewTest, ALongReportCountsItsPagesAndTurnsThem) {
    const auto shown = preview(5001);
    shown->show();
    auto *bar = shown->findChild<QToolBar *>();
    auto *page = shown->findChild<QSpinBox *>();
    const auto *progress = shown->findChild<QProgressBar *>();
    auto *stop = shown->findChild<QPushButton *>(u"stop"_s);
    EXPECT_TRUE(!bar->isEnabled() && progress->maximum() == 5001 && stop->isVisible());
    EXPECT_TRUE(std::ranges::any_of(shown->findChildren<QLabel *>(), [](const QLabel *label) {
        return label->isVisible() && label->text().startsWith(u"正在");
    }));
    EXPECT_FALSE(stop->autoDefault()) << "Enter does not stop";
    const auto ready = [&] { return QTest::qWaitFor([&] { return bar->isEnabled(); }, 20'000); };
    ASSERT_TRUE(ready());
    EXPECT_FALSE(progress->isVisible() || stop->isVisible());
    const int pages = page->maximum();
    EXPECT_TRUE(page->minimum() == 1 && pages > 50);
    QStringList texts;
    for (const QLabel *label : shown->findChildren<QLabel *>())
        if (label->isVisible())
            texts.append(label->text());
    EXPECT_EQ(texts.join(u'|'), u" / %1 "_s.arg(pages)) << "and no state";
    const auto after = [&](const QString &tool) {
        for (QAction *action : bar->actions())
            if (action->text() == tool)
                action->trigger();
        return page->value();
    };
    EXPECT_EQ(after(u"下一页"_s), 2);
    EXPECT_EQ(after(u"最后一页"_s), pages);
    EXPECT_EQ(after(u"上一页"_s), pages - 1);
    EXPECT_EQ(after(u"第一页"_s), 1);
    after(u"横向"_s);
    EXPECT_TRUE(!bar->isEnabled() && stop->isVisible());
    ASSERT_TRUE(ready());
    EXPECT_GT(page->maximum(), pages) << "a low page has fewer rows";
    after(u"纵向"_s);
    stop->click();
    EXPECT_FALSE(shown->isVisible());
}

} // namespace
