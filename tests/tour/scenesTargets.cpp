// Records from other libraries' catalogues, which scripts/tour starts on the loopback interface: a search, a batch of
// ISBNs, a field taken over, and the taken file imported.
#include "platform/deskState.h"
#include "targets/windows/frmSearch.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include <QFile>

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

// Two catalogues, whose queries are in UTF-8 and in GBK, and one at a port where nobody listens.
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
    driver.expectEqual(stateOf(driver, 0), u"已取 27 条，共 27 条"_s, u"a query in UTF-8"_s);
    driver.expectEqual(stateOf(driver, 1), u"已取 27 条，共 27 条"_s, u"a query in GBK"_s);
    driver.waitForFocus(u"foundGrid"_s);
    driver.shot(u"targets-title"_s);
}

} // namespace

void fetchRecords(TourDriver &driver) {
    driver.look(keepTargets);
    searchByIsbnAndTitle(driver);
    driver.leave(u"alt+q"_s, u"frmSearch"_s);
}

} // namespace tour
