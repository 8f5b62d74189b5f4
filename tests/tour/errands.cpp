#include "tour/errands.h"
#include "app/startUp.h"
#include "platform/database/connection.h"
#include <QDir>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace tour {

// One value of the tour's own database.
QString fromDatabase(TourDriver &driver, const QString &statement) {
    return driver.look([&]() -> QString {
        const QString text =
            platform::Settings().read(app::settingApplication.toString(), app::settingSection.toString(),
                                      app::settingKey.toString(), app::settingAbsent.toString());
        auto connection = platform::Connection::open(text);
        if (!connection)
            return u"no connection: "_s + connection.failure().description;
        auto rows = connection.value().query(statement);
        return rows ? rows.value()->text(0, 0) : rows.failure().description;
    });
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
