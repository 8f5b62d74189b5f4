// Long work in slices, the window in front, and the desktop's choice of light or dark.
#include "platform/desktop/frontWindow.h"
#include "platform/desktop/schemeWatch.h"
#include "platform/slicedWork.h"
#include "support/qtPrinters.h"
#include <QTest>
#ifdef TARVEX_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServer>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#endif

using namespace platform;

TEST(SlicedWork, RunsInSlicesUntilNothingIsLeft) {
    using namespace std::chrono_literals;
    for (const std::chrono::milliseconds slice : {0ms, 3'600'000ms}) { // one step each, and all steps
        int steps = 0;
        QString reports;
        SlicedWork work(
            slice, [&] { return ++steps % 5 != 0; }, [&](bool more) { reports += more ? u'+' : u'.'; });
        work.start();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !work.isActive(); }));
        EXPECT_EQ(work.advance(), slice == 0ms);
        EXPECT_EQ(reports, slice == 0ms ? u"++++."_s : u"."_s) << "none for advance()";
        EXPECT_EQ(steps, slice == 0ms ? 6 : 10);
    }
}

TEST(FrontWindow, IsTheModalOneOrOneThatItOpened) {
    QWidget main, loose;
    QDialog palette(&main), modal(&main), opened(&modal);
    const QWidget field(&opened), hidden(&modal, Qt::Window), unshown;
    for (QWidget *shown : std::initializer_list<QWidget *>{&main, &loose, &palette})
        shown->show();
    EXPECT_FALSE(isBlocked(&main) || isBlocked(&palette));
    modal.setModal(true);
    modal.show();
    opened.show();
    loose.windowHandle()->setTransientParent(modal.windowHandle());
    for (const QWidget *blocked : std::initializer_list<const QWidget *>{&main, &palette, &unshown})
        EXPECT_TRUE(isBlocked(blocked));
    for (const QWidget *free : std::initializer_list<const QWidget *>{&loose, &modal, &field, &hidden})
        EXPECT_FALSE(isBlocked(free));
    for (QWidget *active : std::initializer_list<QWidget *>{&main, &opened, nullptr}) {
        QApplication::setActiveWindow(active);
        EXPECT_EQ(windowInFront(), active == &opened ? &opened : &modal);
    }
}

#ifdef TARVEX_DBUS
TEST(SchemeWatch, ReportsChangesOfItsSettingAlone) {
    SchemeWatch watch(u"no bus"_s);
    QStringList answers;
    QObject::connect(&watch, &SchemeWatch::answered, [&](std::optional<bool> dark) {
        answers.append(!dark ? u"none"_s : *dark ? u"dark"_s : u"light"_s);
    });
    const QString group = u"org.freedesktop.appearance"_s, key = u"color-scheme"_s;
    const QVariant dark(1u), wrapped = QVariant::fromValue(QDBusVariant(2u));
    for (const auto &[ofGroup, ofKey, value] : {std::tuple(group, key, dark),
                                                {group, key, wrapped},
                                                {group, key, QVariant(0u)},
                                                {u"x"_s, key, dark},
                                                {group, u"x"_s, dark}})
        QMetaObject::invokeMethod(&watch, "settingChanged", Q_ARG(QString, ofGroup), Q_ARG(QString, ofKey),
                                  Q_ARG(QDBusVariant, QDBusVariant(value)));
    EXPECT_EQ(answers, (QStringList{u"dark"_s, u"light"_s, u"none"_s}));
}

namespace {
// Answers for the desktop: each call is noted, each answer is 1, in a variant of its own.
class Portal final : public QDBusVirtualObject {
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override {
        asked.append(message.member() + u' ' + message.arguments().value(0).toString());
        const QVariant dark = QVariant::fromValue(QDBusVariant(1u));
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(dark))));
    }
    QStringList asked;
};
} // namespace

TEST(SchemeWatch, AsksTheDesktopOnce) {
    Portal portal;
    QDBusServer desktop(u"unix:tmpdir=/tmp"_s);
    ASSERT_TRUE(desktop.isConnected()) << desktop.lastError().message().toStdString();
    std::optional<QDBusConnection> link;
    QObject::connect(&desktop, &QDBusServer::newConnection, [&](const QDBusConnection &made) {
        link.emplace(made);
        link->registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, &portal);
    });
    ASSERT_TRUE(QDBusConnection::connectToPeer(desktop.address(), u"desk"_s).isConnected());
    ASSERT_TRUE(QTest::qWaitFor([&] { return link.has_value(); }));
    SchemeWatch watch(u"desk"_s);
    QList<std::optional<bool>> answers;
    QObject::connect(&watch, &SchemeWatch::answered, [&](std::optional<bool> dark) { answers.append(dark); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() == 1 && !watch.findChild<QDBusPendingCallWatcher *>(); }));
    EXPECT_EQ(portal.asked, QStringList(u"Read org.freedesktop.appearance"_s));
    EXPECT_EQ(answers, QList<std::optional<bool>>{true});
    QDBusConnection::disconnectFromPeer(u"desk"_s);
}
#endif
