#include "tour/errands.h"
#include "database/connection.h"
#include "database/linkPool.h"
#include "database/storedConnection.h"
#include "marc/recordCutter.h"
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tour {

namespace {

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
    auto reader = platform::LineReader::open(path);
    if (!reader)
        return -1;
    marc::RecordCutter cutter(reader.value());
    int records = 0;
    while (cutter.next())
        ++records;
    return records;
}

void choose(TourDriver &driver, const QString &file) {
    driver.look([] {
        auto *path = TourDriver::find<QLineEdit>(u"Text1"_s);
        path->setFocus();
        path->selectAll();
    });
    driver.type(QDir::currentPath() + u'/' + file);
    driver.key(u"alt+s"_s);
}

void openSample(TourDriver &driver, const QString &file) {
    driver.click(u"daoru"_s);
    driver.waitForWindow(u"frmSelectMFile"_s);
    choose(driver, file);
    driver.waitForWindow(u"frmDaoru"_s);
}

void closeWorkspace(TourDriver &driver) {
    driver.key(u"alt+q"_s);
    driver.answerBox(closeQuestion.toString(), u"y"_s);
    driver.waitUntilGone(u"frmDaoru"_s);
}

} // namespace tour
