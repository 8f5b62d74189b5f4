#include "handbook/windows/frmHandbook.h"
#include "handbook/windows/pagePrint.h"
#include "support/scriptedHost.h"
#include <QPrinter>
#include <QProcess>
#include <QScrollBar>
#include <QTextTable>

using namespace handbook;

namespace {

// Three pages: the first is long and has a wide picture and a link to a heading of the last.
struct HandbookTest : testing::Test {
    TestFolder folder;
    ScriptedHost host;
    std::unique_ptr<frmHandbook> window;
    QWidget front;

    void SetUp() override {
        QImage wide(1600, 400, QImage::Format_RGB32);
        wide.fill(Qt::darkGreen);
        QDir(folder.path()).mkdir(u"pictures"_s);
        wide.save(folder.path(u"pictures/wide.png"_s));
        folder.file(u"index.md"_s, "# 首页\n\n[丙](c.md#第二-节)、[乙](b.md)、[外](https://example.org/)\n\n"
                                   "![宽](pictures/wide.png)\n\n" +
                                       QByteArray("一段。\n\n").repeated(200) + "导入\n");
        folder.file(u"b.md"_s, "# 乙页\n\n| 键 | 作用 |\n|---|---|\n| F3 | **导**入导入 |\n");
        folder.file(u"c.md"_s, "# 丙页\n\n" + QByteArray("一段。\n\n").repeated(200) + "## 第二 节\n\n导入\n\n" +
                                   QByteArray("一段。\n\n").repeated(200));
        window = std::make_unique<frmHandbook>(host, folder.path().chopped(1));
        front.show();
        window->openBefore(&front, {u"index.md"_s, {}});
    }
    PageView *view() { return window->view; }
    QString titles() {
        QStringList rows;
        for (int i = 0; i < window->contents->count(); ++i)
            rows.append(window->contents->item(i)->text().section(u'\n', 0, 0));
        return rows.join(u'|');
    }
    int current() { return window->contents->currentRow(); }
    int top() { return view()->verticalScrollBar()->value(); }
};

} // namespace

TEST_F(HandbookTest, LinksOpenPagesAndHeadingsAndBackReturns) {
    EXPECT_EQ(titles(), u"首页|丙页|乙页"_s); // in the order of the links on the first page
    EXPECT_EQ(view()->horizontalScrollBar()->maximum(), 0) << "the wide picture is scaled to fit";
    view()->verticalScrollBar()->setValue(700);
    Q_EMIT view()->anchorClicked(QUrl(u"c.md#第二-节"_s));
    EXPECT_EQ(view()->file(), u"c.md"_s);
    EXPECT_EQ(current(), 1);
    EXPECT_GT(top(), 3000) << "at the heading";
    view()->verticalScrollBar()->setValue(0);
    Q_EMIT view()->anchorClicked(QUrl(u"c.md#第二-节"_s));
    EXPECT_GT(top(), 3000) << "a link within the open page keeps its style";
    EXPECT_GT(view()->document()->begin().next().blockFormat().lineHeight(), 0);
    window->cmdBack->click();
    EXPECT_EQ(view()->file(), u"index.md"_s);
    EXPECT_EQ(top(), 700);
    window->cmdForward->click();
    EXPECT_EQ(view()->file(), u"c.md"_s);
    window->contents->setCurrentRow(2);
    EXPECT_EQ(view()->file(), u"b.md"_s);
    auto *table = qobject_cast<QTextTable *>(view()->document()->rootFrame()->childFrames().value(0));
    EXPECT_TRUE(table && table->format().borderCollapse()) << "a table with borders";
}

// In a window that gets its width only when it is shown, then on the page that is already open, also after scrolling.
TEST_F(HandbookTest, OpensAtTheHeading) {
    window->close();
    frmHandbook fresh(host, folder.path().chopped(1));
    for (int opened = 0; opened < 2; ++opened) {
        fresh.openBefore(&front, {u"c.md"_s, u"第二 节"_s});
        const QTextCursor inSight = fresh.view->cursorForPosition({20, 20});
        EXPECT_EQ(inSight.block().text(), u"第二 节"_s) << opened;
        fresh.view->verticalScrollBar()->setValue(0);
    }
}

TEST_F(HandbookTest, SearchCoversThePageAndThenTheOthers) {
    window->findText->setText(u"导入"_s);
    EXPECT_EQ(titles(), u"首页（1 处）|丙页（1 处）|乙页（2 处）"_s);
    EXPECT_EQ(window->contents->item(2)->text().section(u'\n', 1), u"…页 键 作用 F3 导入导入…"_s);
    QStringList way;
    for (int i = 0; i < 5; ++i) {
        window->next();
        way.append(view()->file() + QString::number(view()->currentMark()));
        EXPECT_EQ(view()->textCursor().block().text().contains(u"导入"), true);
    }
    window->previous();
    way.append(view()->file() + QString::number(view()->currentMark()));
    EXPECT_EQ(way.join(u' '), u"index.md0 c.md0 b.md0 b.md1 index.md0 b.md1"_s);
    EXPECT_EQ(window->findCount->text(), u"本页第 2 / 2 处"_s);
    window->findText->setText(u"没有的"_s);
    EXPECT_EQ(titles() + window->findCount->text(), u"没有找到"_s);
    window->next(); // no match to go to
    window->findText->clear();
    EXPECT_EQ(titles(), u"首页|丙页|乙页"_s);
    EXPECT_EQ(current(), 2);
}

TEST_F(HandbookTest, AnExternalAddressIsOpenedOnlyAfterAQuestion) {
    for (const auto answer : {platform::Answer::No, platform::Answer::Yes}) {
        host.willAnswer(answer);
        Q_EMIT view()->anchorClicked(QUrl(u"https://example.org/"_s));
    }
    EXPECT_EQ(host.texts().value(0), u"要离开程序，打开这个地址吗？\r\nhttps://example.org/"_s);
    EXPECT_EQ(host.opened, QStringList{u"https://example.org/"_s});
    EXPECT_EQ(view()->file(), u"index.md"_s);
}

TEST_F(HandbookTest, APageIsPrintedWithItsPictures) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(folder.path(u"page.pdf"_s));
    printPage(folder.path(u"index.md"_s), printer);
    const auto output = [&](const QString &program, const QStringList &arguments) {
        QProcess reader;
        reader.start(program, arguments);
        EXPECT_TRUE(reader.waitForFinished());
        return QString::fromUtf8(reader.readAllStandardOutput());
    };
    EXPECT_EQ(output(u"pdftotext"_s, {folder.path(u"page.pdf"_s), u"-"_s}).count(u"一段。"), 200);
    EXPECT_TRUE(output(u"pdfimages"_s, {u"-list"_s, folder.path(u"page.pdf"_s)}).contains(u" 1600 "_s));
}

// The size that the user chose is restored at the next start.
TEST_F(HandbookTest, SizeIsKept) {
    window->resize(700, 500);
    window->close();
    EXPECT_EQ(frmHandbook(host, folder.path().chopped(1)).size(), QSize(700, 500));
}
