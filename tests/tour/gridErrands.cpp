#include "tour/gridErrands.h"
#include "marc/fieldRows.h"
#include <QApplication>
#include <QClipboard>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr int identifierColumn = 2;
constexpr int valueColumn = 4;

QMenu *popup() {
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    return menu && menu->isVisible() ? menu : nullptr;
}

} // namespace

workspace::frmDaoru *desk() {
    return TourDriver::find<workspace::frmDaoru>(u"frmDaoru"_s);
}

int rowOf(TourDriver &driver, const QString &tag, const QString &identifier) {
    const int count = driver.rows(u"Grid1"_s);
    bool inside = false;
    for (int row = 1; row < count; ++row) {
        const QString at = driver.cell(u"Grid1"_s, row, identifierColumn);
        if (at == (inside ? identifier : tag)) {
            if (inside || identifier.isEmpty())
                return row;
            inside = true;
        } else if (inside && !at.startsWith(u'$')) {
            break;
        }
    }
    driver.expect(false, u"no %1 %2 in the grid"_s.arg(tag, identifier));
    return 0;
}

QString value(TourDriver &driver, const QString &tag, const QString &identifier) {
    return driver.cell(u"Grid1"_s, rowOf(driver, tag, identifier), valueColumn);
}

void goTo(TourDriver &driver, int row) {
    driver.key(u"ctrl+Home"_s);
    if (row > 1)
        driver.key(u"Down"_s, row - 1);
    driver.waitUntil(u"row %1"_s.arg(row), [row] { return desk() && desk()->Grid1->row() == row; });
}

bool waitForEditor(TourDriver &driver, const QString &editor, int row, int column) {
    return driver.waitUntil(u"%1 over %2, %3"_s.arg(editor).arg(row).arg(column), [=] {
        const QWidget *box = TourDriver::find(editor);
        return box && box->hasFocus() && box->geometry() == desk()->Grid1->cellRect(row, column);
    });
}

void openContent(TourDriver &driver, int row) {
    goTo(driver, row);
    driver.key(u"Return"_s);
    waitForEditor(driver, u"richText"_s, row, valueColumn);
}

void retype(TourDriver &driver, int row, const QString &text) {
    openContent(driver, row);
    driver.key(u"ctrl+a"_s);
    driver.type(text);
    driver.key(u"Return"_s);
    waitUntilIdle(driver);
    driver.expectEqual(driver.cell(u"Grid1"_s, row, valueColumn), text, u"the cell retyped"_s);
}

void waitUntilIdle(TourDriver &driver) {
    driver.waitUntil(u"no editor open"_s, [] {
        const auto *window = desk();
        return window && window->richText->isHidden() && window->Text1->isHidden() && window->zdList->isHidden() &&
               window->Zzdlist->isHidden() && window->Grid1->hasFocus() && window->cmdclick[6]->isEnabled();
    });
}

void setClipboard(TourDriver &driver, const QString &text) {
    driver.look([&] { QGuiApplication::clipboard()->setText(text); });
}

QString clipboard(TourDriver &driver) {
    return driver.look([] { return QGuiApplication::clipboard()->text(); });
}

bool openPopup(TourDriver &driver) {
    driver.key(u"Menu"_s);
    return driver.waitUntil(u"popup"_s, [] { return popup() != nullptr; });
}

void choosePopup(TourDriver &driver, const QString &item) {
    if (!openPopup(driver))
        return;
    const int steps = driver.look([&] {
        int counted = 0;
        const QList<QAction *> actions = popup()->actions();
        for (const QAction *action : actions) {
            counted += action->isSeparator() ? 0 : 1;
            if (action->text() == item)
                return counted;
        }
        return 0;
    });
    driver.expect(steps > 0, u"popup item " + item);
    driver.key(u"Down"_s, steps);
    driver.key(u"Return"_s);
    driver.waitUntil(u"popup gone"_s, [] { return !popup(); });
}

} // namespace tour
