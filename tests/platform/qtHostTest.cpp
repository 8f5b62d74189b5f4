// The desktop functions of the real host.
#include "platform/desktop/qtHost.h"
#include "support/testFolder.h"
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QMessageBox>
#include <QTimer>

using namespace platform;

// A helper that starts but then finds no browser has opened nothing.
TEST(QtHost, ReportsWhetherTheHelperOpenedALink) {
    const TestFolder folder;
    QtHost host{Settings(folder.path())};
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder.path()));
    for (const int code : {0, 3, 4}) {
        const QString helper =
            folder.file(u"xdg-open"_s, "#!/bin/sh\necho \"$1\" >" + QFile::encodeName(folder.path(u"asked"_s)) +
                                           "\nexit " + QByteArray::number(code) + "\n");
        ASSERT_TRUE(QFile::setPermissions(helper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        EXPECT_EQ(host.openInShell(u"http://localhost/馆"_s), code == 0) << code;
        EXPECT_EQ(folder.read(u"asked"_s), "http://localhost/%E9%A6%86\n");
    }
    qputenv("PATH", before);
}

TEST(QtHost, ReturnsWhetherTheTickOfABoxIsSet) {
    const TestFolder folder;
    QtHost host{Settings(folder.path())};
    const QString tick = u"以后相同的不再提示"_s;
    for (const bool checked : {true, false}) {
        QTimer::singleShot(0, qApp, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_TRUE(box && box->checkBox());
            EXPECT_EQ(box->checkBox()->text(), tick);
            box->checkBox()->setChecked(checked);
            box->button(QMessageBox::Ok)->click();
        });
        EXPECT_EQ(host.showWithTick({.text = u"无法连接"_s}, tick), checked);
    }
}
