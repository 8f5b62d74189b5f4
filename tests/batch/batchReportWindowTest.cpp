#include "batch/windows/frmBatchReport.h"
#include "batch/windows/reportButtons.h"
#include "batch/windows/ruleChart.h"
#include "schema/windows/frmSchema.h"
#include "support/recordText.h"
#include "support/scriptedHost.h"
#include "widgets/styleTokens.h"
#include <QSignalSpy>

using namespace batch;

namespace {

struct ReportWindowTest : testing::Test {
    ScriptedHost host;
    TestFolder folder;
    std::shared_ptr<marc::PreReadStore> records = std::make_shared<marc::PreReadStore>();
    RemarkList list{records};
    std::unique_ptr<frmBatchReport> window;

    ReportWindowTest() {
        records->setRows(40);
        for (int row = 0; row < 40; ++row) {
            records->setRecord(row, recordOf(u"001=1"_s));
            records->setTitle(row, u"题"_s + QString::number(row + 1));
        }
    }
    // Returns whether the report was made.
    bool open(int rows = 40) {
        window = std::make_unique<frmBatchReport>(
            host, frmBatchReport::Source{*records, list},
            ProofFacts{.file = folder.path(u"供货.iso"_s), .ended = host.clock, .rows = rows, .proved = rows});
        window->show();
        return QTest::qWaitFor([this] { return window->report().has_value(); });
    }
    QByteArray saved(int button, const QString &suffix) {
        host.willChoose(folder.path(u"报告"_s));
        window->saveButtons[size_t(button)]->click();
        return folder.read(u"报告"_s + suffix);
    }
};

bool hasColour(QWidget *widget, const QColor &wanted) {
    const QImage image = widget->grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == wanted)
                return true;
    return false;
}

} // namespace

TEST_F(ReportWindowTest, ShowsNumbersRulesAndADrawThatCanBeRepeated) {
    for (const int row : {3, 4, 5, 9})
        list.add(Remark(row, Kind::Isbn, u"010", 1, u"校验位"_s));
    list.add(Remark(-1, Kind::Unchecked, {}, 0, u"连不上"_s));
    ASSERT_TRUE(open());
    EXPECT_EQ(window->notes->text(), u"未能检查：连不上"_s);
    EXPECT_EQ(window->figures[0]->text() + window->figures[3]->text(), u"4（10.0%）36（90.0%）"_s);
    EXPECT_EQ(window->rulesGrid->text(1, 1) + window->rulesGrid->text(1, 5), u"ISBN4–6, 10"_s);
    EXPECT_EQ(window->example->text(), u"例：第 4 条，校验位"_s);
    EXPECT_TRUE(hasColour(window->chart, schemeInk(window->palette()).bars[0].fill.color()));
    QString headings;
    for (const widgets::FlexGrid *grid : {window->rulesGrid, window->drawGrid})
        for (int column = 0; column < grid->columns(); ++column)
            headings += grid->text(0, column) + u' ';
    EXPECT_EQ(headings, u"级别 规则 字段 处 条 记录号 记录 题名 发现 ");
    EXPECT_EQ(window->pages->tabText(0) + window->pages->tabText(1) + window->pages->tabText(2),
              u"&Z 总览&G 按规则&C 抽查");
    EXPECT_TRUE(window->facts->toolTip().contains(folder.path(u"供货.iso"_s)));
    for (const widgets::FlexGrid *grid : {window->rulesGrid, window->drawGrid})
        EXPECT_TRUE(grid->horizontalHeader()->stretchLastSection());
    EXPECT_GT(window->drawGrid->columnWidth(1), window->fontMetrics().horizontalAdvance(u"书"_s.repeated(13)));
    EXPECT_TRUE(window->facts->wordWrap() && window->notes->isVisible());
    EXPECT_TRUE(window->seedBox->minimum() == 1 && window->seedBox->maximum() == 999999);
    EXPECT_GE(window->example->minimumHeight(), 2 * window->fontMetrics().lineSpacing());
    EXPECT_EQ(window->rulesGrid->accessibleName() + window->drawGrid->accessibleName(), u"按规则抽查的记录");
    for (const int column : {3, 4})
        EXPECT_EQ(window->rulesGrid->model()->index(0, column).data(Qt::TextAlignmentRole).toInt(),
                  int(Qt::AlignRight | Qt::AlignVCenter));
    const QList<QWidget *> onPages{window->chart, window->rulesGrid, window->drawGrid};
    window->resize(window->width() + 400, window->height());
    for (int page = 0; page < 3; ++page) {
        window->pages->setCurrentIndex(page);
        QApplication::processEvents();
        EXPECT_GT(onPages[page]->width(), window->width() * 3 / 4) << page;
    }
    window->setPalette(widgets::schemePalette(widgets::Scheme::Dark));
    const QColor background = schemeInk(window->palette()).background;
    EXPECT_TRUE(hasColour(window->chart, background));
    const auto *frame = qobject_cast<QFrame *>(window->chart);
    EXPECT_TRUE(!frame || frame->frameWidth() == 0);

    const auto drawn = [this] {
        QStringList numbers;
        for (int row = 1; row < window->drawGrid->rows(); ++row)
            numbers.append(window->drawGrid->text(row, 0) + window->drawGrid->text(row, 2));
        return numbers;
    };
    window->seedBox->setValue(7);
    const QStringList first = drawn();
    window->againButton->click();
    EXPECT_NE(window->seedBox->value(), 7);
    EXPECT_NE(drawn(), first);
    window->seedBox->setValue(7);
    EXPECT_EQ(drawn(), first);

    QSignalSpy wanted(window.get(), &frmBatchReport::recordWanted);
    window->pages->setCurrentIndex(2);
    window->drawGrid->clickRow(2);
    QTest::keyClick(window->drawGrid, Qt::Key_Return);
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_TRUE(first[1].startsWith(QString::number(wanted[0][0].toInt() + 1)));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ReportWindowTest, SavesThreeFormsAndReportsAFailure) {
    for (int row = 0; row < 30; ++row)
        list.add(Remark(row, Kind::Isbn, u"010", 1, u"校验位<b>"_s));
    ASSERT_TRUE(open());
    EXPECT_TRUE(saved(1, u".pdf"_s).startsWith("%PDF-"));
    QProcess reader; // of another program
    reader.start(u"pdftotext"_s, {u"-layout"_s, folder.path(u"报告.pdf"_s), u"-"_s});
    ASSERT_TRUE(reader.waitForFinished());
    const QString printed = QString::fromUtf8(reader.readAllStandardOutput());
    for (const QString &text : {u"  提示"_s, u"ISBN 30"_s, u" 10 "_s, u"供货.iso"_s, u"30（75.0%）"_s, u"校验位<b>"_s,
                                u"1–30"_s, u"抽查 10 条"_s})
        EXPECT_TRUE(printed.contains(text)) << qPrintable(text) << qPrintable(printed);
    const QByteArray page = saved(2, u".html"_s);
    EXPECT_TRUE((page.contains("src=\"data:image/svg+xml;base64,PD94bWwg") || // begins as XML
                 page.contains("src=\"data:image/png;base64,iVBORw0KGgo")) && // without Qt Svg
                page.contains("校验位&lt;b&gt;") &&
                page.contains(" width=\"620\"") && page.contains("font-family: sans-serif"));
    EXPECT_TRUE(saved(3, u".csv"_s).startsWith("\xEF\xBB\xBF"));
    EXPECT_EQ(host.dialogs.value(0).start, folder.path(u"供货-校对报告.pdf"_s));
    EXPECT_EQ(window->state->text(), u"已保存到 "_s + folder.path(u"报告.csv"_s));

    host.willChoose({});
    window->saveButtons[1]->click();
    host.willChoose(folder.path(u"报告.csv"_s));
    host.willAnswer(platform::Answer::No);
    window->saveButtons[3]->click();
    for (const int button : {1, 2, 3}) {
        host.willChoose(folder.path(u"没有/报告.x"_s));
        window->saveButtons[size_t(button)]->click();
        EXPECT_TRUE(host.lastBox().text.startsWith(u"保存失败：【"));
    }
}

TEST_F(ReportWindowTest, ShowsAPreviewBeforeItPrints) {
    ASSERT_TRUE(open());
    QString title;
    QTimer::singleShot(0, window.get(), [&title] {
        QWidget *preview = QApplication::activeModalWidget();
        ASSERT_TRUE(preview && preview->width() >= 600 && preview->height() >= 500);
        title = preview->windowTitle();
        preview->close();
    });
    window->saveButtons[0]->click();
    EXPECT_EQ(title, u"打印校对报告");
}

TEST_F(ReportWindowTest, MayBeClosedBeforeItIsMade) {
    for (int i = 0; i < 200000; ++i)
        list.add(Remark(i % 40, Kind::Isbn, u"010", 1));
    window = std::make_unique<frmBatchReport>(host, frmBatchReport::Source{*records, list}, ProofFacts{.rows = 40});
    window->show();
    EXPECT_FALSE(window->report() || window->saveButtons[0]->isEnabled() || window->againButton->isEnabled());
    EXPECT_FALSE(window->notes->isVisible());
    window->close();
    window.reset();
    QCoreApplication::processEvents();
    ASSERT_TRUE(open(0)); // no record was checked
    window->pages->setFocus();
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    EXPECT_FALSE(qobject_cast<QScrollArea *>(window->focusWidget())) << "the room of the chart";
    EXPECT_EQ(window->report()->remarks, 200000);
    EXPECT_EQ(window->drawGrid->rows(), 1);
}

TEST_F(ReportWindowTest, IsOfferedAfterARunOnly) {
    schema::SchemaInForce inForce(host.settings(), folder.path());
    ReportButtons buttons(host, {records, [this]() -> const RemarkList & { return list; },
                                 std::shared_ptr<schema::SchemaInForce>(&inForce, [](auto *) {})});
    const auto offered = [&] { return buttons.reportButton->isEnabled() * 10 + buttons.schemaButton->isEnabled(); };
    EXPECT_EQ(offered(), 1);
    EXPECT_TRUE(buttons.reportButton->toolTip().startsWith(u"还没有校对过"));
    buttons.endRun({.rows = 40, .proved = 40});
    EXPECT_EQ(offered(), 11);
    buttons.beginRun();
    EXPECT_EQ(offered(), 0);
    EXPECT_TRUE(buttons.reportButton->toolTip().startsWith(u"校对还没有完"));
    buttons.endRun({.rows = 40, .proved = 40});

    QSignalSpy wanted(&buttons, &ReportButtons::recordWanted), changed(&buttons, &ReportButtons::schemaChanged);
    QTimer::singleShot(0, &buttons, [] {
        auto *report = qobject_cast<frmBatchReport *>(QApplication::activeModalWidget());
        ASSERT_TRUE(report && QTest::qWaitFor([report] { return report->report().has_value(); }));
        Q_EMIT report->drawGrid->gridActivated();
    });
    buttons.reportButton->click();
    EXPECT_EQ(wanted.size(), 1);
    QTimer::singleShot(0, &buttons, [] {
        auto *window = qobject_cast<schema::frmSchema *>(QApplication::activeModalWidget());
        ASSERT_TRUE(window);
        window->checks->item(0)->setCheckState(Qt::Unchecked);
        window->close();
    });
    buttons.schemaButton->click();
    EXPECT_EQ(changed.size(), 1);
}
