#include "catalogue/listTexts.h"
#include "tour/errands.h"
#include "tour/scenes.h"
#include "widgets/flexGrid.h"
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr QStringView grid = u"TLKListFrm/Grid1";
constexpr QStringView deleteQuestion = u"确定要将选择的文献从套录库中删除吗吗？(Y/N)";
constexpr QStringView deleteAllQuestion = u"你确定将检索出的数据从套录库中删除吗？";

int stored(TourDriver &driver, const QString &condition = {}) {
    return fromDatabase(driver, u"select count(*) from taoluTable" + condition).toInt();
}

void checkStoreList(TourDriver &driver, int rows) {
    driver.waitForText(u"TLKListFrm/lCounts"_s, catalogue::countText(rows));
    const int shown = driver.rows(grid.toString()) - 1;
    driver.expect(shown == qMax(rows, 1), u"%1 rows in the list, not %2"_s.arg(shown).arg(rows));
}

void listStore(TourDriver &driver) {
    driver.click(u"delete"_s);
    driver.waitForWindow(u"QueryFrmdel"_s);
    driver.expect(driver.look([] { return TourDriver::find<QListWidget>(u"LFields"_s)->count() == 7; }),
                  u"seven fields to ask for"_s);
    driver.shot(u"store-query"_s);
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"TLKListFrm"_s);
    checkStoreList(driver, stored(driver));
    driver.waitForFocus(grid.toString());
    driver.shot(u"store-list"_s);
}

void deleteSelected(TourDriver &driver) {
    const int before = stored(driver);
    const QStringList keys{driver.cell(grid.toString(), 3, 0), driver.cell(grid.toString(), 4, 0),
                           driver.cell(grid.toString(), 5, 0)};
    const QString selected = u" where zskid in (" + keys.join(u',') + u')';
    driver.clickCell(grid.toString(), 3, 1);
    driver.key(u"shift+Down"_s, 2);
    driver.key(u"alt+x"_s);
    driver.answerBox(deleteQuestion.toString(), u"Return"_s, u"delete-selected"_s); // No is preselected
    driver.expect(stored(driver, selected) == 3, u"No deletes nothing"_s);
    driver.key(u"alt+x"_s);
    driver.answerBox(deleteQuestion.toString(), u"y"_s);
    checkStoreList(driver, before - 3);
    driver.expect(stored(driver) == before - 3 && stored(driver, selected) == 0, u"the selected rows alone are gone"_s);
    driver.shot(u"deleted-selected"_s);
}

void deleteFound(TourDriver &driver) {
    const QString found = u" where author like '%鲁迅%' or author like '%余华%'"_s;
    changeDatabase(driver, u"insert into taoluTable (bookname,author) values ('故事新编','鲁迅著')"_s);
    changeDatabase(driver, u"insert into taoluTable (bookname,author) values ('兄弟','余华著')"_s);
    const int before = stored(driver);
    const int some = stored(driver, found);
    driver.click(u"delete"_s);
    driver.waitForWindow(u"QueryFrmdel"_s);
    for (const QString &author : {u"鲁迅"_s, u"余华"_s}) {
        giveFocus(driver, u"LFields"_s);
        driver.key(u"Home"_s);
        driver.key(u"Down"_s);
        driver.key(u"Tab"_s, 2);
        driver.key(u"End"_s);
        driver.key(u"Return"_s);
        paste(driver, author);
        driver.key(u"alt+a"_s);
        driver.waitForText(u"signSql"_s, u"著者'包含'"_s + author);
        driver.key(u"alt+u"_s);
    }
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"TLKListFrm"_s);
    checkStoreList(driver, some);
    driver.key(u"alt+d"_s);
    driver.answerBox(deleteAllQuestion.toString(), u"Return"_s, u"delete-found"_s); // No is preselected
    driver.expect(stored(driver, found) == some, u"No deletes nothing that was found"_s);
    driver.key(u"alt+d"_s);
    driver.answerBox(deleteAllQuestion.toString(), u"y"_s);
    checkStoreList(driver, 0);
    driver.expect(some >= 2 && stored(driver) == before - some && stored(driver, found) == 0,
                  u"what was found is gone, and nothing else"_s);
    driver.shot(u"deleted-found"_s);
}

QRect placeOf(TourDriver &driver, const QString &list) {
    return driver.look([&] {
        QWidget *place = TourDriver::find(list)->parentWidget();
        return QRect(place->mapToGlobal(QPoint(0, 0)), place->size());
    });
}

void makeNarrower(TourDriver &driver, const QString &list, int right) {
    const QRect place = placeOf(driver, list);
    driver.drag({place.right() - 1, place.center().y()}, {right - 12, place.center().y()});
    driver.expect(placeOf(driver, list).right() < place.right(), list + u" was made narrower");
}

// The frame filled by the window manager, and the two lists drawn side by side in it by their titles and edges.
void sideBySide(TourDriver &driver) {
    const QRect frame = driver.look([] { return TourDriver::find(u"marcMain"_s)->geometry(); });
    driver.clickAt({frame.center().x(), frame.top() - 8}, 1, 2);
    driver.waitUntil(u"the frame fills the screen"_s, [] { // the size comes behind the word that it is so
        const QWidget *window = TourDriver::find(u"marcMain"_s)->window();
        return window->isMaximized() && window->width() == window->screen()->size().width();
    });
    const QRect area = driver.look([] {
        QWidget *inside = TourDriver::find<QMdiArea>(u"mdiArea"_s)->viewport();
        return QRect(inside->mapToGlobal(QPoint(0, 0)), inside->size());
    });
    const int middle = area.center().x();
    makeNarrower(driver, u"TLKListFrm"_s, middle);
    driver.click(u"daochu"_s);
    driver.waitForWindow(u"QueryFrm"_s);
    driver.key(u"alt+o"_s);
    driver.waitForWindow(u"ZSKListFrm"_s);
    makeNarrower(driver, u"ZSKListFrm"_s, middle);
    const QRect list = placeOf(driver, u"ZSKListFrm"_s);
    const QPoint title(list.center().x(), list.top() + 10);
    driver.drag(title, title + QPoint(middle - list.left() + 2, 12));
    const QRect moved = placeOf(driver, u"ZSKListFrm"_s);
    driver.expect(area.contains(moved), u"the catalogue stands whole in the frame"_s);
    driver.expect(!moved.intersects(placeOf(driver, u"TLKListFrm"_s)), u"neither list hides the other"_s);
    driver.shot(u"two-lists"_s);
}

// Maximised by a double click on its title, put back, and closed by its cross.
void maximise(TourDriver &driver) {
    const QRect before = placeOf(driver, u"ZSKListFrm"_s);
    const auto isLarge = [] {
        QWidget *list = TourDriver::find(u"ZSKListFrm"_s);
        return list && list->parentWidget()->isMaximized();
    };
    driver.click(u"ZSKListFrm/lCounts"_s); // brings it to the front
    driver.clickAt({before.center().x(), before.top() + 10}, 1, 2);
    driver.waitUntil(u"the list fills the frame"_s, isLarge);
    driver.shot(u"list-maximised"_s);
    const QRect buttons = driver.look([] {
        QWidget *corner = TourDriver::find<QMainWindow>(u"marcMain"_s)->menuBar()->cornerWidget();
        return QRect(corner->mapToGlobal(QPoint(0, 0)), corner->size());
    });
    driver.clickAt({buttons.center().x(), buttons.center().y()});
    driver.waitUntil(u"the list is as it was"_s, [&] { return !isLarge(); });
    const QRect after = placeOf(driver, u"ZSKListFrm"_s);
    driver.expect(after == before, u"the list is back in its place"_s);
    driver.clickAt({after.right() - 14, after.top() + 12});
    driver.waitUntilGone(u"ZSKListFrm"_s);
    driver.expect(driver.look([] { return TourDriver::find(u"TLKListFrm"_s) != nullptr; }), u"the other list stays"_s);
    driver.key(u"alt+q"_s);
    driver.waitUntilGone(u"TLKListFrm"_s);
}

} // namespace

void store(TourDriver &driver) {
    listStore(driver);
    deleteSelected(driver);
    deleteFound(driver);
    sideBySide(driver);
    maximise(driver);
}

} // namespace tour
