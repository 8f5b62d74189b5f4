// Records from other libraries' catalogues, which scripts/tour starts on the loopback interface: a search, a batch of
// ISBNs, a field taken over, and the taken file imported.
#include "support/sampleIsbns.h"
#include "targets/windows/frmIsbnBatch.h"
#include "targets/windows/frmSearch.h"
#include "tour/errands.h"
#include "tour/scenes.h"

using namespace Qt::StringLiterals;

namespace tour {

namespace {

int portOf(const QString &server) {
    QFile file(qEnvironmentVariable("TOUR_CATALOGUES"));
    const QString text = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    for (const QString &line : text.split(u'\n'))
        if (line.startsWith(server + u'='))
            return line.section(u'=', 1).toInt();
    return 1;
}

targets::Target local(const QString &name, int port, targets::QueryCharset charset) {
    return {.name = name,
            .host = u"127.0.0.1"_s,
            .port = port,
            .database = u"Default"_s,
            .queryCharset = charset,
            .tested = true};
}

// Two catalogues, whose queries are in UTF-8 and in GBK, and one at a port without a server.
void keepTargets() {
    const auto folder = platform::DeskState().folderFor(platform::kept::targets);
    if (!folder)
        return;
    (void)targets::keepTargets(folder.value(), {local(u"市图书馆"_s, portOf(u"open"_s), targets::QueryCharset::Utf8),
                                                local(u"大学图书馆"_s, portOf(u"gbk"_s), targets::QueryCharset::Gbk),
                                                local(u"停机的图书馆"_s, 1, targets::QueryCharset::Utf8)});
}

targets::frmSearch *searchWindow() {
    return TourDriver::find<targets::frmSearch>(u"frmSearch"_s);
}

void tick(TourDriver &driver, const std::vector<bool> &ticks) {
    driver.look([&] {
        for (size_t row = 0; row < ticks.size(); ++row)
            searchWindow()->targetPicker->tick(int(row), ticks[row]);
    });
}

void search(TourDriver &driver, const QString &edit, const QString &text) {
    driver.look([] { searchWindow()->ask({}); });
    giveFocus(driver, edit);
    paste(driver, text);
    driver.key(u"Return"_s);
    driver.waitUntil(
        u"the search for "_s + text, [] { return searchWindow() && !searchWindow()->isSearching(); }, 60000);
}

QString stateOf(TourDriver &driver, int target) {
    return driver.look([target] { return searchWindow()->targetPicker->item(target)->text().section(u'\n', 1); });
}

void searchByIsbnAndTitle(TourDriver &driver) {
    driver.key(u"alt+6"_s); // of the start page
    driver.waitForWindow(u"frmSearch"_s, u"targets-empty"_s);
    driver.key(u"alt+s"_s);
    driver.expect(driver.textOf(u"adviceLabel"_s).startsWith(u"请先填写"_s), u"an empty search says what to do"_s);
    tick(driver, {true, false, true});
    search(driver, u"isbnEdit"_s, u"978-7-02-000220-7"_s); // the catalogue has the ten-digit form
    driver.expectEqual(stateOf(driver, 0), u"已取 3 条，共 3 条"_s, u"the open target"_s);
    driver.expect(stateOf(driver, 2).startsWith(u"连不上"_s), u"the dead target: "_s + stateOf(driver, 2));
    driver.waitForFocus(u"foundGrid"_s);
    driver.shot(u"targets-isbn"_s);
    tick(driver, {true, true, false});
    search(driver, u"titleEdit"_s, u"中国"_s);
    driver.expect(stateOf(driver, 0).startsWith(u"已取"_s), u"a query in UTF-8: "_s + stateOf(driver, 0));
    driver.expectEqual(stateOf(driver, 1), stateOf(driver, 0), u"the same query in GBK"_s);
    driver.waitForFocus(u"foundGrid"_s);
    driver.shot(u"targets-title"_s);
}

// The ISBNs of the catalogue, each once and at most `most`, and as many as `unknown` that no catalogue has.
QStringList isbns(int most, int unknown) {
    QStringList isbns = sampleIsbns(pathOf(u"catalogue.iso"_s)).first(most);
    for (int i = 0; i < unknown; ++i)
        isbns.insert(isbns.size() * (i + 1) / (unknown + 1), u"97879900%1"_s.arg(10000 + i));
    return isbns;
}

targets::frmIsbnBatch *batchWindow() {
    return TourDriver::find<targets::frmIsbnBatch>(u"frmIsbnBatch"_s);
}

// Looks up 300 ISBNs, stops, leaves the window, and continues in another one.
void lookUpIsbns(TourDriver &driver) {
    constexpr int all = 300, unknown = 20, before = 100;
    tick(driver, {true, false, false});
    driver.open(u"batchButton"_s, u"frmIsbnBatch"_s);
    giveFocus(driver, u"isbnText"_s);
    paste(driver, isbns(all - unknown, unknown).join(u'\n'));
    driver.look([] { batchWindow()->pauseBox->setValue(10); });
    driver.key(u"alt+s"_s);
    driver.waitUntil(
        u"a third of the batch"_s,
        [] { return batchWindow()->batch().count(targets::Outcome::State::Found) >= before; }, 120000);
    driver.key(u"alt+t"_s).shot(u"targets-batch-stopped"_s);
    driver.expect(driver.textOf(u"labJinDu"_s).startsWith(u"停下了"_s), u"the batch is stopped"_s);
    driver.leave(u"alt+q"_s, u"frmIsbnBatch"_s);
    driver.open(u"batchButton"_s, u"frmIsbnBatch"_s);
    driver.key(u"alt+c"_s).waitForText(u"labJinDu"_s, u"找到 %1，未找到 %2"_s.arg(all - unknown).arg(unknown), 120000);
    driver.shot(u"targets-batch"_s);
    driver.leave(u"alt+q"_s, u"frmIsbnBatch"_s);
}

QString takenPath() {
    return pathOf(u"套录-%1.iso"_s.arg(QDate::currentDate().toString(u"yyyy-MM-dd"_s)));
}

// Writes a record with a title that the catalogue spells otherwise, opens it, and takes the field of the catalogue
// over.
void takeAndCompare(TourDriver &driver) {
    search(driver, u"isbnEdit"_s, u"7-02-889802-4"_s);
    driver.waitForFocus(u"foundGrid"_s);
    driver.key(u"alt+e"_s);
    enterFile(driver, u"把取用的记录存到哪个文件夹"_s, pathOf({}).chopped(1), u"targets-folder"_s);
    driver.answerBox(u"已写入 1 条记录：\r\n"_s + takenPath(), u"Return"_s);
    driver.expect(recordsIn(takenPath()) == 1, u"the file has the record"_s);
    driver.key(u"alt+y"_s).waitForWindow(u"frmDaoru"_s);
    const int title = rowOf(driver, u"200"_s, u"$a"_s);
    const QString before = driver.cell(u"Grid1"_s, title, 4);
    giveFocus(driver, u"Grid1"_s);
    retype(driver, title, u"Another title"_s);
    driver.key(u"ctrl+t"_s);
    driver.waitUntil(u"the search over the workspace"_s, [] { return TourDriver::find(u"compareButton"_s); });
    driver.expectEqual(driver.textOf(u"isbnEdit"_s), u"7-02-889802-4"_s, u"the ISBN of the current record"_s);
    driver.key(u"alt+s"_s).waitForFocus(u"foundGrid"_s);
    driver.key(u"alt+d"_s).waitForWindow(u"frmCompare"_s);
    driver.waitUntil(u"the field 200"_s, [] { return TourDriver::find(u"compareGrid"_s); });
    driver.look([] {
        auto *grid = TourDriver::find<widgets::FlexGrid>(u"compareGrid"_s);
        for (int row = 1; row < grid->rows(); ++row)
            if (grid->text(row, 0) == u"200")
                grid->clickRow(row);
    });
    driver.shot(u"targets-compare"_s);
    driver.key(u"alt+e"_s);
    driver.leave(u"alt+q"_s, u"frmCompare"_s);
    driver.key(u"alt+q"_s).waitForWindow(u"frmDaoru"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, title, 4), before, u"the title of the catalogue"_s);
    giveFocus(driver, u"Grid1"_s);
    driver.key(u"ctrl+z"_s);
    driver.expectEqual(driver.cell(u"Grid1"_s, title, 4), u"Another title"_s, u"the field is undone"_s);
    driver.key(u"ctrl+y"_s).shot(u"targets-taken"_s);
}

void importTaken(TourDriver &driver) {
    driver.key(u"alt+s"_s);
    driver.answerBox(u"本条记录已经改变,是否确定改变该记录?\r\n"
                     u"(注:你可以修改预读出的记录,然后可以点击保存按扭,保存到新文件中)"_s,
                     u"y"_s);
    driver.waitForWindow(u"frmDaoRuJindu"_s);
    driver.waitForText(u"labJinDuShu"_s, u"处理完毕！"_s, 120000);
    driver.leave(u"alt+q"_s, u"frmDaoRuJindu"_s);
    driver.key(u"alt+q"_s).answerBox(closeQuestion.toString(), u"y"_s);
    driver.waitForWindow(u"frmSearch"_s);
}

} // namespace

void fetchRecords(TourDriver &driver) {
    driver.look(keepTargets);
    searchByIsbnAndTitle(driver);
    lookUpIsbns(driver);
    takeAndCompare(driver);
    importTaken(driver);
    // The catalogue of the tour's database now has the imported book.
    search(driver, u"isbnEdit"_s, u"7-02-889802-4"_s);
    driver.waitUntil(u"the mark of the store"_s, [] {
        return searchWindow()->found().text(0, targets::FoundRecords::KnownColumn).contains(u"套录库");
    });
    driver.shot(u"targets-held"_s);
    driver.open(u"targetsButton"_s, u"frmTargets"_s);
    driver.key(u"alt+t"_s);
    driver.waitUntil(u"the answer to the test"_s, [] {
        const auto *label = TourDriver::find<QLabel>(u"testLabel"_s);
        return label && label->text().startsWith(u"服务器：Zebra"_s);
    });
    driver.shot(u"targets-list"_s);
    driver.leave(u"alt+q"_s, u"frmTargets"_s);
    driver.leave(u"alt+q"_s, u"frmSearch"_s);
}

} // namespace tour
