#include "tour/errands.h"
#include "database/connection.h"
#include "database/linkPool.h"
#include "database/storedConnection.h"
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

constexpr int identifierColumn = 2;
constexpr int valueColumn = 4;

platform::Result<database::Connection> ownDatabase(database::LinkPool &links) {
    return database::Connection::open(links, database::storedConnection(platform::Settings()).value_or(QString()));
}

} // namespace

QString fromDatabase(TourDriver &driver, const QString &statement) {
    return driver.look([&]() -> QString {
        database::LinkPool links;
        auto connection = ownDatabase(links);
        if (!connection)
            return u"no connection: "_s + connection.failure().description;
        auto rows = connection.value().query(statement);
        return rows ? rows.value()->text(0, 0) : rows.failure().description;
    });
}

void changeDatabase(TourDriver &driver, const QString &statement) {
    const QString failure = driver.look([&] {
        database::LinkPool links;
        auto connection = ownDatabase(links);
        if (!connection)
            return connection.failure().description;
        const auto done = connection.value().execute(statement);
        return done ? QString() : done.failure().description;
    });
    driver.expectEqual(failure, {}, statement);
}

void enlargeCatalogue(TourDriver &driver) {
    changeDatabase(driver, u"insert into zsk (zskid,bookname,author,isbn) select 200000+row_number() over (order by "
                           u"a.zskid),a.bookname,b.author,a.isbn from zsk a, zsk b, sck c where c.zskid<=10"_s);
}

void shrinkCatalogue(TourDriver &driver) {
    changeDatabase(driver, u"delete from zsk where zskid>200000"_s);
}

void giveFocus(TourDriver &driver, const QString &name) {
    driver.waitUntil(u"the keyboard in " + name, [&] {
        QWidget *widget = TourDriver::find(name);
        if (widget)
            widget->setFocus();
        return widget && widget->hasFocus();
    });
}

void paste(TourDriver &driver, const QString &text) {
    driver.look([&] { QApplication::clipboard()->setText(text); });
    driver.key(u"ctrl+v"_s);
}

QString pathOf(const QString &file) {
    return QDir::currentPath() + u'/' + file;
}

void enterFile(TourDriver &driver, const QString &title, const QString &path, const QString &picture) {
    driver.waitUntil(u"file dialog " + title, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        return dialog && dialog->windowTitle() == title && dialog->isActiveWindow();
    });
    driver.type(path);
    if (!picture.isEmpty())
        driver.shot(picture);
    driver.key(u"Return"_s);
    driver.waitUntil(u"file dialog gone"_s,
                     [] { return !qobject_cast<QFileDialog *>(QApplication::activeModalWidget()); });
}

int recordsIn(const QString &path) {
    auto cutter = marc::RecordCutter::open(path);
    if (!cutter)
        return -1;
    int records = 0;
    while (cutter.value().next())
        ++records;
    return records;
}

void choose(TourDriver &driver, const QString &file) {
    giveFocus(driver, u"Text1"_s);
    driver.key(u"ctrl+a"_s).type(pathOf(file));
    driver.key(u"alt+s"_s);
}

void openSample(TourDriver &driver, const QString &file) {
    driver.open(u"daoru"_s, u"frmSelectMFile"_s);
    choose(driver, file);
    driver.waitForWindow(u"frmDaoru"_s);
}

void closeWorkspace(TourDriver &driver) {
    driver.key(u"alt+q"_s).answerBox(closeQuestion.toString(), u"y"_s);
    driver.waitUntilGone(u"frmDaoru"_s);
    driver.waitForWindow(u"frmSelectMFile"_s);
}

void backToMain(TourDriver &driver) {
    closeWorkspace(driver);
    driver.leave(u"alt+q"_s, u"frmSelectMFile"_s);
}

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
    driver.key(u"ctrl+a"_s).type(text);
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

} // namespace tour
