#include "widgets/bandedReport.h"
#include "platform/codepage936.h"
#include "support/dice.h"
#include "support/qtPrinters.h"
#include "widgets/longPreview.h"
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTest>

using namespace widgets;

namespace {

struct Books final : platform::TableSource {
    std::vector<QStringList> books;
    int rowCount() const override { return int(books.size()); }
    int columnCount() const override { return 3; }
    QString text(int row, int column) const override {
        ++asked;
        lastRow = row;
        return books[size_t(row)][column];
    }
    mutable int asked = 0; // the number of cells read
    mutable int lastRow = -1;
};

struct BandedReportTest : testing::Test {
    BandedReportTest() {
        report.caption = u"打印图书检索一览表"_s;
        report.title = u"图书检索一览表"_s;
        report.columns = {{u"书      名"_s, 1, 4}, {u"著    者"_s, 2, 2}, {u"册数"_s, 0, 1, Qt::AlignRight}};
        report.rows = books;
        report.date = QDate(2026, 3, 9);
    }
    void addBooks(int count) {
        for (int number = 1; number <= count; ++number)
            books->books.push_back({QString::number(number % 7), u"第%1种书"_s.arg(number), u"王某"_s});
    }
    void setUp(QPrinter &printer, const QString &file) const {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setOutputFileName(folder.filePath(file));
    }
    // Prints the report and returns its pages as text with their layout.
    QStringList printed(int fromPage = 0, int toPage = 0) {
        QPrinter printer(QPrinter::HighResolution);
        setUp(printer, u"report.pdf"_s);
        printer.setFromTo(fromPage, toPage);
        pages = print(report, printer);
        return sheetsOf(printer.outputFileName());
    }
    static QStringList sheetsOf(const QString &file) {
        QProcess reader;
        reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
        EXPECT_TRUE(reader.waitForFinished());
        QStringList result = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
        result.removeLast();
        return result;
    }

    QTemporaryDir folder;
    std::shared_ptr<Books> books = std::make_shared<Books>();
    BandedReport report;
    int pages = 0;
};

TEST_F(BandedReportTest, EveryPageHasItsBandsAndEveryRowIsPrintedOnce) {
    addBooks(200);
    const QStringList sheets = printed();
    ASSERT_EQ(sheets.size(), pages);
    ASSERT_GT(pages, 2);
    for (int page = 1; page <= pages; ++page) {
        const QStringList lines = sheets[page - 1].simplified().split(u' ');
        EXPECT_EQ(lines.mid(0, 6).join(u' '), u"图书检索一览表 书 名 著 者 册数");
        EXPECT_EQ(lines.last(3).join(u' '), u"报表日期：2026-03-09 共%1页 第%2页"_s.arg(pages).arg(page));
    }
    QStringList rows;
    for (auto found = QRegularExpression(u"第(\\d+)种书 +王某 +\\d"_s).globalMatch(sheets.join(u'\n'));
         found.hasNext();)
        rows.append(found.next().captured(1));
    QStringList numbers;
    for (int number = 1; number <= 200; ++number)
        numbers.append(QString::number(number));
    EXPECT_EQ(rows, numbers);
    QProcess drawer;
    drawer.start(u"pdftoppm"_s, {u"-gray"_s, u"-f"_s, u"2"_s, u"-l"_s, u"2"_s, folder.filePath(u"report.pdf"_s)});
    ASSERT_TRUE(drawer.waitForFinished());
    const QImage sheet = QImage::fromData(drawer.readAllStandardOutput());
    const QImage lines = sheet.scaled({1, sheet.height()}, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QList<int> rules;
    for (int y = 0; y < lines.height(); ++y)
        if (qGray(lines.pixel(0, y)) < 100 && (rules.isEmpty() || y > rules.last() + 2))
            rules.append(y);
    ASSERT_EQ(rules.size(), 2) << "below the headings and above the last line";
    EXPECT_TRUE(rules[0] < sheet.height() / 4 && rules[1] > sheet.height() * 3 / 4);
    const std::tuple<int, int, QStringList> ranges[] = {{2, 2, sheets.mid(1, 1)}, // pages keep their numbers
                                                        {pages - 1, pages + 5, sheets.mid(pages - 2)},
                                                        {pages + 3, pages + 5, sheets.mid(pages - 1)}};
    for (const auto &[from, to, expected] : ranges)
        EXPECT_EQ(printed(from, to), expected) << from << " to " << to;
}

// All characters of GBK. Fonts draw many characters with the same glyph, and a PDF maps a glyph to only one character.
// Compatibility ideographs are left out, so that all characters are distinct.
TEST_F(BandedReportTest, ThePdfHoldsTheCharactersThatWerePrinted) {
    QString all;
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        for (int trail = 0x40; trail <= 0xFE; ++trail) {
            const QString character = platform::decode(QByteArray{}.append(char(lead)).append(char(trail)));
            if (character.size() == 1 && character[0].isLetterOrNumber() && character[0] < QChar(0xF900))
                all += character;
        }
    }
    Dice dice(9);
    for (qsizetype i = all.size() - 1; i > 0; --i)
        std::swap(all[i], all[dice.below(i + 1)]);
    EXPECT_GT(all.size(), 21'000);
    report.columns = {{u"题名"_s, 1, 1}};
    constexpr qsizetype inAReport = 6000; // the toolkit damages tables that are much larger
    for (; !all.isEmpty(); all = all.mid(inAReport)) {
        const QString part = all.left(inAReport);
        books->books.clear();
        for (qsizetype at = 0; at < part.size(); at += 30)
            books->books.push_back({{}, u'=' + part.mid(at, 30) + u'=', {}});
        QString read;
        for (auto row = QRegularExpression(u"=([^=]*)="_s).globalMatch(printed().join(u'\n')); row.hasNext();)
            read += row.next().captured(1).remove(u' ');
        EXPECT_EQ(read, part);
    }
}

TEST_F(BandedReportTest, APreviewAndADamagedFileLeaveThePdfAlone) {
    const QString path = folder.filePath(u"other.pdf"_s);
    {
        QPdfWriter writer(path);
        QPainter painter(&writer);
        painter.setFont(report.bodyFont);
        painter.drawText(300, 300, u"一人力女"_s); // drawn with the glyphs of radicals
    }
    const auto bytes = [&path] {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray before = bytes();
    books->books = {{{}, u"一人力女"_s, {}}};
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, u"other.pdf"_s);
    QPrintPreviewWidget preview(&printer);
    int painted = 0;
    QObject::connect(&preview, &QPrintPreviewWidget::paintRequested,
                     [&](QPrinter *target) { painted += print(report, *target); });
    preview.updatePreview();
    EXPECT_TRUE(painted == 1 && bytes() == before);

    const SameGlyph names{{u'⼀', u'一'}, {u'⼈', u'人'}, {u'⼒', u'力'}, {u'⼥', u'女'}};
    const auto named = [&](const QByteArray &standing) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(standing);
        file.close();
        (void)nameDrawnCharacters(path, names);
        EXPECT_TRUE(bytes().startsWith(standing));
    };
    EXPECT_TRUE(nameDrawnCharacters(path, {{u'⼸', u'弓'}}).ok() && bytes() == before) << "names without a glyph there";
    named(before);
    EXPECT_TRUE(bytes().contains("endcodespacerange\n5 beginbfchar"));
    EXPECT_EQ(sheetsOf(path).join(u' ').simplified(), u"一人力女"_s);
    Dice dice(5);
    const qsizetype tables = before.indexOf("/CIDInit");
    for (int i = 0; i < 400; ++i) {
        QByteArray damaged = before;
        for (int changes = dice.below(4); changes >= 0; --changes)
            damaged[tables + dice.below(damaged.size() - tables)] =
                char(dice.below(2) ? '0' + dice.below(10) : dice.below(256));
        named(dice.below(4) ? damaged : damaged.first(dice.below(damaged.size())));
    }
}

TEST_F(BandedReportTest, LongTextsWrapInsideTheirColumn) {
    const QString title = u"中国古代科学技术史论文集"_s.repeated(8);
    const QString word = u"Wissenschaftsgeschichte"_s.repeated(3);
    books->books = {{u"3"_s, title, word}, {u"4"_s, u"后一种\r\n副题名"_s, u"李某"_s}};
    const QStringList sheets = printed();
    ASSERT_EQ(sheets.size(), 1);
    EXPECT_GE(sheets[0].count(u"古"_s), 8);
    EXPECT_EQ(QString(sheets[0]).remove(QRegularExpression(u"[^A-Za-z]"_s)), word);
    EXPECT_TRUE(QRegularExpression(u"后一种 +李某 +4\\n+ *副题名"_s).match(sheets[0]).hasMatch());
}

TEST_F(BandedReportTest, ARowLongerThanAPageContinuesOnTheNext) {
    addBooks(3);
    QStringList lines;
    for (int line = 0; line < 150; ++line)
        lines.append(u"L%1."_s.arg(line));
    books->books.insert(books->books.begin() + 1, {u"9"_s, lines.join(u'\n'), u"长"_s});
    const QString text = printed().join(u' ');
    for (const QString &line : lines)
        EXPECT_EQ(text.count(line), 1) << line.toStdString();
    EXPECT_EQ(text.count(u"种书"_s), 3);
    std::swap(books->books[0], books->books[1]);
    EXPECT_TRUE(printed().value(0).contains(u"L0."_s)) << "no empty page before it";
    books->books.clear();
    EXPECT_EQ(printed().size(), 1) << "one page even without rows";
}

TEST_F(BandedReportTest, AHugeTextIsShortened) {
    books->books = {{u"1"_s, QString(30'000, u'x'), u"王"_s},
                    {u"2"_s, QString(30'000, QChar(0)) + u"题", u"李"_s},
                    {u"3"_s, u"甲\0乙\r\n丙"_s, u"张"_s}};
    const QString text = printed().join(u' ');
    EXPECT_EQ(text.count(u'x'), 2000);
    EXPECT_EQ(text.count(u"…"_s), 2);
    EXPECT_TRUE(QRegularExpression(u"甲 ?乙 +张 +3\n+ *丙"_s).match(text).hasMatch()) << text.right(200).toStdString();
}

TEST_F(BandedReportTest, TenThousandRowsPrintAndAFailureIsReported) {
    addBooks(10'000);
    const QStringList sheets = printed();
    EXPECT_LE(books->asked, 3 * 3 * 10'000) << "each cell is read to count pages, to draw, and at the start of a page";
    EXPECT_EQ(sheets.join(u' ').count(u"种书"_s), 10'000);
    QPrinter nowhere(QPrinter::HighResolution);
    nowhere.setOutputFormat(QPrinter::PdfFormat);
    nowhere.setOutputFileName(u"/no/such/folder/report.pdf"_s);
    EXPECT_EQ(print(report, nowhere), 0);
}

TEST_F(BandedReportTest, ALongReportIsShownAPageAtATimeAndPrintedAsAnyOther) {
    addBooks(6000);
    const QStringList sheets = printed(2, 4);
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    setUp(*printer, u"shown.pdf"_s);
    books->asked = 0;
    LongPreview preview(report, printer, nullptr);
    auto *progress = preview.findChild<QProgressBar *>(u"progress"_s);
    auto *page = preview.findChild<QSpinBox *>(u"page"_s);
    const auto workDone = [&] { return progress->isHidden(); };
    preview.show();
    EXPECT_EQ(books->asked, 0) << "the window opens before rows are read";
    preview.findChild<QGraphicsView *>()->setFocus(); // it has the focus while the tools are disabled
    ASSERT_TRUE(QTest::qWaitFor(workDone, 30'000));
    EXPECT_EQ(page->maximum(), pages);
    books->asked = books->lastRow = 0;
    ASSERT_EQ(preview.focusWidget(), page);
    QTest::keyClicks(page, QString::number(pages));
    QTest::keyClick(page, Qt::Key_Return);
    EXPECT_TRUE(preview.isVisible());
    EXPECT_EQ(books->lastRow, 5999);
    EXPECT_LE(books->asked, 3 * 60) << "only the rows of the last page are read";

    QPrinter landscape(QPrinter::HighResolution);
    setUp(landscape, u"landscape.pdf"_s);
    landscape.setPageOrientation(QPageLayout::Landscape);
    const int otherPages = print(report, landscape);
    ASSERT_NE(otherPages, pages);
    const QList<QAction *> tools = preview.findChildren<QAction *>();
    const auto use = [&](const QString &tool) { (*std::ranges::find(tools, tool, &QAction::text))->trigger(); };
    for (const auto &[tool, shown] :
         {std::pair(u"第一页"_s, 1), {u"下一页"_s, 2}, {u"最后一页"_s, pages}, {u"上一页"_s, pages - 1}}) {
        use(tool);
        EXPECT_EQ(page->value(), shown);
    }
    for (const auto &[tool, count] : {std::pair(u"横向"_s, otherPages), {u"纵向"_s, pages}}) {
        use(tool);
        EXPECT_EQ(progress->maximum(), 6000);
        ASSERT_TRUE(QTest::qWaitFor(workDone, 30'000));
        EXPECT_EQ(page->maximum(), count) << "the pages are counted for the new orientation";
    }

    preview.startPrinting();
    preview.findChild<QPushButton *>(u"stop"_s)->click();
    EXPECT_TRUE(workDone() && preview.isVisible());
    EXPECT_NE(printer->printerState(), QPrinter::Active);
    const auto says = [&](QStringView words) {
        return std::ranges::any_of(preview.findChildren<QLabel *>(),
                                   [&](const QLabel *label) { return label->isVisible() && label->text() == words; });
    };
    EXPECT_TRUE(says(u"打印已停止。"));
    printer->setOutputFileName(u"/no/such/folder/report.pdf"_s);
    preview.startPrinting();
    ASSERT_TRUE(QTest::qWaitFor(workDone, 30'000));
    EXPECT_TRUE(preview.isVisible() && says(u"打印没有完成。"));
    setUp(*printer, u"shown.pdf"_s);
    printer->setFromTo(2, 4);
    preview.startPrinting();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !preview.isVisible(); }, 30'000));
    EXPECT_EQ(sheetsOf(printer->outputFileName()), sheets);
}

} // namespace
