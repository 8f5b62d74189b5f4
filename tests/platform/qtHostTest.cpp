// The real boxes and the desktop.
#include "platform/desktop/qtHost.h"
#include "support/testFolder.h"
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace platform;

TEST(QtHost, AQuestionMayBeLeftByItsButtonsOnly) {
    const TestFolder folder;
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
