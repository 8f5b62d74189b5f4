// The real boxes and the desktop.
#include "platform/desktop/qtHost.h"
#include "support/qtPrinters.h"
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace platform;
using namespace Qt::StringLiterals;

namespace {

TEST(QtHost, AQuestionMayBeLeftByItsButtonsOnly) {
    const QTemporaryDir folder;
    QtHost host{Settings(folder.path())};
    const std::function<void(QMessageBox *)> ways[] = {
        [](QMessageBox *box) { QTest::keyClick(static_cast<QWidget *>(box->defaultButton()), Qt::Key_Escape); },
        [](QMessageBox *box) { box->close(); },
    };
    for (const auto &leave : ways) {
        for (const Leaving leaving : {Leaving::Freely, Leaving::ByButtonsOnly}) {
            bool stands = false;
            QTimer::singleShot(0, [&] {
                auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                ASSERT_TRUE(box);
                leave(box);
                stands = box->isVisible();
                if (stands)
                    box->button(QMessageBox::Yes)->click();
            });
            const Answer answer =
                host.show({.text = u"?"_s, .buttons = Buttons::YesNo, .preselected = Answer::No, .leaving = leaving});
            EXPECT_EQ(stands, leaving == Leaving::ByButtonsOnly);
            EXPECT_EQ(answer, stands ? Answer::Yes : Answer::No);
        }
    }
}

// A helper that starts and then finds no browser has opened nothing.
TEST(QtHost, BelievesTheHelperThatOpensLinks) {
    const QTemporaryDir folder;
    QtHost host{Settings(folder.path())};
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(folder.path()));
    for (const int code : {0, 3, 4}) {
        QFile helper(folder.filePath(u"xdg-open"_s));
        ASSERT_TRUE(helper.open(QIODevice::WriteOnly));
        helper.write("#!/bin/sh\necho \"$1\" >" + QFile::encodeName(folder.filePath(u"asked"_s)) + "\nexit " +
                     QByteArray::number(code) + "\n");
        helper.close();
        ASSERT_TRUE(helper.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        EXPECT_EQ(host.openInShell(u"http://localhost/馆"_s), code == 0) << code;
        QFile asked(folder.filePath(u"asked"_s));
        ASSERT_TRUE(asked.open(QIODevice::ReadOnly));
        EXPECT_EQ(asked.readAll(), "http://localhost/%E9%A6%86\n");
    }
    qputenv("PATH", before);
}

} // namespace
