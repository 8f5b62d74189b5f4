#include "handbook/windows/frmHandbook.h"
#include "handbook/windows/pagePrint.h"
#include "support/scriptedHost.h"
#include "support/windowState.h"
#include <QPrinter>

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
    const QUrl wide = QUrl::fromLocalFile(folder.path(u"pictures/wide.png"_s));
    EXPECT_GT(view()->document()->resource(QTextDocument::ImageResource, wide).value<QImage>().width(), 300);
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
    window->findText->setText(u"段"_s);
    EXPECT_EQ(view()->extraSelections().size(), 400);
    window->findText->clear();
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
        fresh.findText->setText(u"二"_s);
    }
    EXPECT_TRUE(fresh.findText->text() == u"二" && fresh.focusWidget() == fresh.view) << "opened while it was visible";
    fresh.close();
    fresh.openBefore(&front, {u"c.md"_s, {}});
    EXPECT_EQ(fresh.findText->text(), QString());
}

TEST_F(HandbookTest, SearchCoversThePageAndThenTheOthers) {
    window->findText->setText(u"导入"_s);
    EXPECT_EQ(titles(), u"首页（1 处）|丙页（1 处）|乙页（2 处）"_s);
    EXPECT_EQ(window->contents->item(2)->text().section(u'\n', 1), u"…页 键 作用 F3 导入导入…"_s);
    QStringList way;
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(window->findText, Qt::Key_F3);
        way.append(view()->file() + QString::number(view()->currentMark()));
        EXPECT_TRUE(view()->textCursor().block().text().contains(u"导入") && !view()->textCursor().hasSelection());
        EXPECT_TRUE(window->findCount->text().startsWith(u"本页第 %1 /"_s.arg(view()->currentMark() + 1)));
    }
    QTest::keyClick(window->findText, Qt::Key_F3, Qt::ShiftModifier);
    way.append(view()->file() + QString::number(view()->currentMark()));
    EXPECT_EQ(way.join(u' '), u"index.md0 c.md0 b.md0 b.md1 index.md0 b.md1"_s);
    EXPECT_EQ(window->findCount->text(), u"本页第 2 / 2 处"_s);
    const std::tuple<QString, QString, QString> searches[] = {
        {u"二"_s, u"丙页（1 处）"_s, u"本页没有，另有 1 页"_s},
        {u"f3"_s, u"乙页（1 处）"_s, u"本页 1 处"_s},
        {u"导"_s, u"首页（1 处）|丙页（1 处）|乙页（2 处）"_s, u"本页 2 处"_s},
        {u"没有的"_s, QString(), u"没有找到"_s},
        {QString(), u"首页|丙页|乙页"_s, QString()},
    };
    for (const auto &[words, pages, count] : searches) {
        window->findText->setText(words);
        EXPECT_EQ(titles(), pages);
        EXPECT_EQ(window->findCount->text(), count);
        EXPECT_EQ(view()->extraSelections().size(), count.startsWith(u"本页 ") ? view()->marks() : 0)
            << count.toStdString();
        EXPECT_EQ(window->findCount->isVisible(), !words.isEmpty());
        EXPECT_EQ(current(), words == u"二" || count == u"没有找到" ? -1
                             : words == u"f3"                       ? 0
                                                                    : 2)
            << words.toStdString();
    }
    window->next(); // without words
    EXPECT_EQ(view()->file(), u"b.md"_s);
}

// Without a current mark, the search continues from the part of the page that is visible.
TEST_F(HandbookTest, SearchBeginsWhereThePageIsVisible) {
    window->findText->setText(u"一段"_s);
    for (const auto &[height, step, mark] : {std::tuple(0, 1, 0), {1, 1, 100}, {1, -1, 199}}) {
        view()->mark(u"一段"_s);
        view()->verticalScrollBar()->setValue(height * view()->verticalScrollBar()->maximum() / 2);
        step > 0 ? window->next() : window->previous();
        EXPECT_NEAR(view()->currentMark(), mark, mark == 100 ? 60 : 0);
        EXPECT_TRUE(view()->viewport()->rect().intersects(view()->cursorRect()));
        EXPECT_EQ(view()->extraSelections()[view()->currentMark()].format.background().color(),
                  QColor(0xff, 0x96, 0x32));
    }
    const int last = view()->currentMark();
    for (const int none : {-1, view()->marks()}) {
        view()->goToMark(none);
        EXPECT_EQ(view()->currentMark(), last);
    }
    for (const auto &[step, place] : {std::pair(1, u"index.md0"_s), {-1, u"c.md399"_s}}) {
        view()->open(u"b.md"_s); // without the words: continues on the first or the last page that contains them
        step > 0 ? window->next() : window->previous();
        EXPECT_EQ(view()->file() + QString::number(view()->currentMark()), place);
    }
    view()->verticalScrollBar()->setValue(0);
    window->findText->setText(u"丙"_s); // at the very beginning of the page
    window->next();
    EXPECT_EQ(view()->file(), u"c.md"_s);
}

// Each key with what it changes in the window.
TEST_F(HandbookTest, EverythingByKeyboard) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    WindowState state(*window);
    const std::tuple<QWidget *, Qt::Key, Qt::KeyboardModifiers, QString, QString> steps[] = {
        {view(), Qt::Key_F3, {}, u"index.md"_s, u"findText focus"_s}, // no words yet
        {window->contents, Qt::Key_Down, {}, u"c.md"_s, u"pageView=丙页; cmdBack on"_s},
        {window->contents, Qt::Key_Return, {}, u"c.md"_s, u"pageView focus"_s},
        {view(), Qt::Key_F, Qt::ControlModifier, u"c.md"_s, u"findText focus"_s},
        {window->contents, Qt::Key_Left, Qt::AltModifier, u"index.md"_s,
         u"pageView=首页; cmdBack off; cmdForward on"_s},
        {window->contents, Qt::Key_Right, Qt::AltModifier, u"c.md"_s, u"pageView=丙页; cmdForward off; cmdBack on"_s},
        {window->findText, Qt::Key_A, {}, u"c.md"_s, u"findText=a; findCount=没有找到; findCount on"_s},
        {window->findText, Qt::Key_Backspace, {}, u"c.md"_s, u"findText=; findCount gone"_s},
        {view(), Qt::Key_Home, Qt::AltModifier, u"index.md"_s, u"pageView=首页"_s},
        {view(), Qt::Key_P, Qt::ControlModifier, u"index.md"_s, u"handbookPrint on"_s},
    };
    for (const auto &[where, key, modifiers, file, changes] : steps) {
        QTest::keyClick(where, key, modifiers);
        EXPECT_EQ(view()->file(), file);
        EXPECT_EQ(state.changes(), changes) << key;
    }
    EXPECT_TRUE(window->findText->isClearButtonEnabled() && window->contents->wordWrap());
    const QPointer<QDialog> preview = window->findChild<QDialog *>(u"handbookPrint"_s);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->windowTitle(), u"使用手册：首页"_s);
    EXPECT_GT(preview->width() + preview->height(), 1100);
    preview->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(preview);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->findText->setText(u"甲"_s);
    QTest::keyClick(view(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(window->findText, Qt::Key_B);
    EXPECT_EQ(window->findText->text(), u"b"_s) << "typed over the earlier words";
    for (const auto &[control, key] : {std::pair<QWidget *, QStringView>{window->cmdBack, u"Alt+←"},
                                       {window->cmdForward, u"Alt+→"},
                                       {window->cmdContents, u"Alt+Home"},
                                       {window->cmdPrint, u"Ctrl+P"},
                                       {window->findText, u"Shift+F3"}})
        EXPECT_TRUE(control->toolTip().contains(key)) << key.toUtf8().constData();
    EXPECT_TRUE(window->findText->placeholderText().contains(u"Ctrl+F"));
    EXPECT_EQ(state.grown({200, 100}), u"across wh; contents h; pageView wh"_s);
}

TEST_F(HandbookTest, AnExternalAddressIsOpenedOnlyAfterAQuestion) {
    const QString question = u"要离开程序，打开这个地址吗？\r\nhttps://example.org/"_s;
    const QString failure = u"浏览器没有正确安装或其它错误。"_s;
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    for (int tab = 0; tab < 3; ++tab)
        QTest::keyClick(view(), Qt::Key_Tab); // to the third link
    for (const auto &[answer, works, texts] : {std::tuple(platform::Answer::No, false, QStringList{question}),
                                               {platform::Answer::Yes, true, QStringList{question}},
                                               {platform::Answer::Yes, false, QStringList{question, failure}}}) {
        host.boxes.clear();
        host.shellWorks = works;
        host.willAnswer(answer);
        QTest::keyClick(view(), Qt::Key_Return);
        EXPECT_EQ(host.texts(), texts);
        EXPECT_EQ(view()->file(), u"index.md"_s);
        EXPECT_TRUE(view()->toPlainText().contains(u"导入"));
    }
    EXPECT_EQ(host.opened, (QStringList{u"https://example.org/"_s, u"https://example.org/"_s}));
}

// Only what changes the format reads the page again.
TEST_F(HandbookTest, AnotherFontOrPaletteFormatsThePageAgain) {
    int formatted = 0;
    QObject::connect(view(), &PageView::pageChanged, [&] { ++formatted; });
    for (const auto &[type, times] : {std::pair(QEvent::PaletteChange, 1),
                                      {QEvent::FontChange, 1},
                                      {QEvent::EnabledChange, 0},
                                      {QEvent::StyleChange, 0}}) {
        formatted = 0;
        QEvent event(type);
        QCoreApplication::sendEvent(view(), &event);
        EXPECT_EQ(formatted, times) << type;
        EXPECT_GT(view()->document()->begin().next().blockFormat().lineHeight(), 0);
    }
}

// Qt blocks every window that is not before the modal one.
TEST_F(HandbookTest, StaysInFrontOfTheModalWindow) {
    const auto before = [this] { return window->windowHandle()->transientParent(); };
    EXPECT_EQ(before(), front.windowHandle());
    auto modal = std::make_unique<QDialog>();
    modal->setModal(true);
    modal->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return before() == modal->windowHandle(); }));
    QDialog own(window.get());
    own.setModal(true);
    own.show();
    QApplication::processEvents();
    EXPECT_EQ(before(), modal->windowHandle()) << "a window of the handbook itself";
    EXPECT_EQ(own.windowHandle()->transientParent(), window->windowHandle());
    own.close();
    modal.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !before(); })) << "and back when it is destroyed";
    window->openBefore(&front, {u"b.md"_s, {}});
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->close();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&front));
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

// The sizes that the user chose are restored at the next start.
TEST_F(HandbookTest, SizesAreKept) {
    EXPECT_EQ(window->across->sizes()[0], 18 * window->fontMetrics().horizontalAdvance(u'字'));
    EXPECT_TRUE(view()->accessibleName() == u"正文" && !window->across->childrenCollapsible());
    EXPECT_EQ(window->contents->parentWidget()->layout()->contentsMargins(), QMargins());
    EXPECT_TRUE(window->contents->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff && window->contents->spacing());
    EXPECT_GT(view()->font().pointSizeF(), QApplication::font().pointSizeF());
    window->resize(900, 500);
    window->across->setSizes({300, 590});
    const int width = window->contents->width();
    window->close();
    frmHandbook next(host, folder.path().chopped(1));
    EXPECT_EQ(next.size(), QSize(900, 500));
    next.openBefore(&front, {u"index.md"_s, {}});
    EXPECT_EQ(next.contents->width(), width);
}
