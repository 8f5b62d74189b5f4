// The real boxes.
#include "platform/desktop/qtHost.h"
#include "support/qtPrinters.h"
#include <QApplication>
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

} // namespace
