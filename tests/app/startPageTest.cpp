// The start page and its entries, as they are painted.
#include "app/windows/startPage.h"
#include "platform/recentFiles.h"
#include "support/scriptedHost.h"
#include "widgets/deskStyle.h"
#include "widgets/styleTokens.h"
#include "workspace/draftFile.h"

using namespace app;

namespace {

// An entry on a white page, and the parts of it that are painted.
struct PaintedEntry {
    QWidget page;
    PageEntry *entry;
    explicit PaintedEntry(const QString &caption, const QString &detail = {})
        : entry(new PageEntry(u"e"_s, caption, u"book"_s, &page)) {
        page.setStyle(&style);
        entry->setStyle(&style);
        page.setPalette(widgets::schemePalette(widgets::Scheme::Light));
        if (!detail.isEmpty())
            entry->setDetail(detail);
        page.resize(900, 200);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
        entry->resize(entry->sizeHint() + QSize(3 * entry->fontMetrics().height(), 0));
        entry->clearFocus();
    }
    QImage seen() {
        entry->setAttribute(Qt::WA_UnderMouse, false); // wherever the pointer is
        return page.grab(entry->geometry()).toImage();
    }
    bool hasInk(const QRect &place) {
        const QImage image = seen();
        const QColor paper = image.pixelColor(1, 1);
        const qreal scale = image.devicePixelRatio();
        for (int x = place.left(); x <= place.right(); ++x)
            for (int y = place.top(); y <= place.bottom(); ++y)
                if (image.pixelColor(int(x * scale), int(y * scale)) != paper)
                    return true;
        return false;
    }
    // Returns which of its parts are painted: "icon upper lower key" or, with a single line, "icon middle key".
    QString parts() {
        const int line = entry->fontMetrics().height(), width = entry->width(), centre = entry->height() / 2;
        const int text = 2 * line + line / 2, end = width - 2 * line - line / 2, band = line / 4;
        QStringList parts;
        for (const auto &[name, place] : {std::pair(u"icon"_s, QRect(line / 2, centre - line / 2, line, line)),
                                          {u"upper"_s, QRect(text, centre - band * 7 / 2, end - text, band)},
                                          {u"lower"_s, QRect(text, centre + band * 5 / 2, end - text, band)},
                                          {u"middle"_s, QRect(text, centre - 1, end - text, 2)},
                                          {u"key"_s, QRect(width - line * 3 / 2, centre - line / 3, line, line / 2)}})
            if ((name != u"middle" || parts.size() == 1) && hasInk(place))
                parts.append(name);
        return parts.join(u' ');
    }

private:
    widgets::DeskStyle style;
};

struct StartPageTest : testing::Test {
    ScriptedHost host;
    TestFolder folder;
    QWidget frame;

    void note(int files) {
        for (int i = 0; i < files; ++i)
            platform::noteRecentFile(host.remembered(), folder.file(QString::number(i) + u"&.iso", "x"));
    }
};

} // namespace

TEST(PageEntry, PaintsItsWordsItsKeyAndItsIcon) {
    const QString words = u"选择机读目录"_s;
    const std::tuple<QString, QString, QString> rows[] = {
        {words, {}, u"icon middle"_s},
        {u"&1 "_s + words, {}, u"icon middle key"_s},
        {u"&&1 "_s + words, {}, u"icon middle"_s},
        {words + u"：预读、校对", {}, u"icon upper lower"_s},
        {u"&1 "_s + words + u"：预读、校对", {}, u"icon upper lower key"_s},
        {words, u"今天"_s, u"icon upper lower"_s},
    };
    for (const auto &[caption, detail, parts] : rows)
        EXPECT_EQ(PaintedEntry(caption, detail).parts(), parts) << caption.toStdString();
    // The detail that is set replaces the one in the caption, and the first "&" is not part of it.
    for (const auto &[one, detail, other] :
         {std::tuple(u"甲：乙"_s, u""_s, std::pair(u"甲"_s, u"乙"_s)), {u"甲&&乙"_s, u""_s, {u"甲&乙"_s, u""_s}}}) {
        PaintedEntry first(one, detail), second(other.first, other.second);
        second.entry->resize(first.entry->size());
        EXPECT_TRUE(first.seen() == second.seen()) << one.toStdString();
    }
    PaintedEntry both(u"甲：乙"_s, u"丙"_s), without(u"甲"_s, u"丙"_s);
    without.entry->resize(both.entry->size());
    EXPECT_FALSE(both.seen() == without.seen()) << "the caption stays whole";
}

// The caption ends before the key.
TEST(PageEntry, ShortensItsWordsAndNotItsKey) {
    PaintedEntry entry(u"&1 一个很长的文件名"_s.repeated(3), u"今天"_s);
    const int line = entry.entry->fontMetrics().height();
    entry.entry->resize(12 * line, entry.entry->height());
    EXPECT_EQ(entry.parts(), u"icon upper lower key"_s);
    const int cap =
        entry.entry->width() - line * 3 / 2 - widgets::space(widgets::Space::Small, entry.entry->fontMetrics());
    EXPECT_FALSE(entry.hasInk(QRect(cap - 5, 2, 3, entry.entry->height() - 4)));
    EXPECT_EQ(entry.entry->accessibleDescription(), u"今天"_s);
}

// The ring of the focus, and a height that does not grow.
TEST(PageEntry, IsAFlatRow) {
    PaintedEntry entry(u"甲"_s);
    EXPECT_TRUE(entry.entry->sizePolicy().horizontalPolicy() == QSizePolicy::Expanding &&
                entry.entry->sizePolicy().verticalPolicy() == QSizePolicy::Fixed);
    entry.page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&entry.page));
    entry.entry->clearFocus();
    const QImage quiet = entry.seen();
    EXPECT_EQ(quiet.pixelColor(quiet.width() / 2, 0), quiet.pixelColor(quiet.width() / 2, 2)) << "without an outline";
    entry.entry->setFocus();
    EXPECT_FALSE(entry.seen() == quiet);
}

TEST_F(StartPageTest, ListsTheRecentFilesOnce) {
    note(2);
    const QString drafts = host.remembered().folderFor(platform::kept::drafts).value();
    ASSERT_TRUE(workspace::DraftFile(drafts, folder.path(u"0&.iso"_s)).write({{3, {u"x"_s, {}}}}, {}));
    StartPage page(host, &frame);
    for (int time = 0; time < 2; ++time) {
        ASSERT_EQ(page.recent.size(), 2);
        EXPECT_EQ(page.recent[0]->text(), u"1&&.iso"_s);
        EXPECT_EQ(page.recent[1]->text(), u"0&&.iso　有 1 条未导入的修改"_s);
        EXPECT_EQ(page.recent[1]->toolTip(), folder.path(u"0&.iso"_s));
        EXPECT_TRUE(page.recent[1]->accessibleDescription().contains(u"  ·  20")) << "folder and day";
        page.refresh();
        EXPECT_EQ(page.findChildren<PageEntry *>(u"recent0"_s).size(), 1) << "the old entry is deleted later";
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(page.findChildren<PageEntry *>().size(), 7 + 2) << "the entries of the files are replaced";
    EXPECT_EQ(page.objectName(), u"startPage"_s);
}

// Without space the files are hidden first, the last one before the others, and their heading with the first one.
TEST_F(StartPageTest, ShowsAsManyFilesAsFit) {
    note(3);
    StartPage page(host, &frame);
    frame.show();
    const auto shown = [&](const QSize &room) {
        page.fittedTo(room);
        QString shown = page.recentTitle->isVisible() ? u"title"_s : u"none"_s;
        for (const PageEntry *file : page.recent)
            shown += file->isVisible() ? u" +"_s : u" -"_s;
        return shown;
    };
    const QSize whole = page.fittedTo({300, 2000});
    const QSize tiny(300, 60), less(300, whole.height() - page.recent[0]->sizeHint().height());
    for (const QSize &before : {QSize(300, 2000), tiny}) {
        EXPECT_EQ(shown(before), before == tiny ? u"none - - -"_s : u"title + + +"_s);
        EXPECT_EQ(shown(less), u"title + + -"_s);
        EXPECT_EQ(shown(whole), u"title + + +"_s);
    }
    const QSize low = page.fittedTo({3000, 90}), high = page.fittedTo({3000, 91});
    EXPECT_EQ(low.width(), high.width());
    EXPECT_GT(low.width(), page.fittedTo({3000, 2000}).width()) << "there is room for the scroll bar";
    const QSize wide = page.fittedTo({3000, 2000});
    EXPECT_GT(wide.width(), whole.width()) << "files beside the steps";
    EXPECT_LT(wide.height(), whole.height());
    page.resize(wide);
    QApplication::processEvents();
    EXPECT_EQ(page.steps[1]->y(), page.steps[0]->geometry().bottom() + 1) << "rows without a gap";
    EXPECT_EQ(page.recent[1]->y(), page.recent[0]->geometry().bottom() + 1);
}

// A card with round corners on the colour of the frame.
TEST_F(StartPageTest, IsACard) {
    widgets::DeskStyle style;
    const QPalette light = widgets::schemePalette(widgets::Scheme::Light);
    frame.setAutoFillBackground(true);
    StartPage page(host, &frame);
    QPalette around = light;
    around.setColor(QPalette::Window, Qt::red);
    frame.setPalette(around);
    frame.resize(800, 700);
    page.setStyle(&style);
    page.setPalette(light);
    page.resize(page.fittedTo({700, 600}));
    frame.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
    const QImage seen = frame.grab().toImage();
    EXPECT_EQ(seen.pixelColor(0, 0), QColor(Qt::red)) << "outside the round corner";
    EXPECT_EQ(seen.pixelColor(10, 10), widgets::colour(widgets::Colour::Base, light));
    EXPECT_EQ(seen.pixelColor(40, 0), widgets::colour(widgets::Colour::Hairline, light));
    page.setStyle(nullptr);
}
