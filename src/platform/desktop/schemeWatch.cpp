#include "platform/desktop/schemeWatch.h"
#ifdef TARVEX_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#else
#include <QSettings>
#include <QTimer>
#endif

using namespace Qt::StringLiterals;

namespace platform {

#ifdef TARVEX_DBUS

namespace {
constexpr QLatin1StringView service("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView object("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView settings("org.freedesktop.portal.Settings");
constexpr QLatin1StringView group("org.freedesktop.appearance");
constexpr QLatin1StringView key("color-scheme");
} // namespace

SchemeWatch::SchemeWatch(const QString &bus, QObject *parent)
    : QObject(parent) {
    QDBusConnection connection = bus.isEmpty() ? QDBusConnection::sessionBus() : QDBusConnection(bus);
    if (!connection.isConnected())
        return;
    connection.connect(service, object, settings, u"SettingChanged"_s, this,
                       SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, object, settings, u"Read"_s);
    question << QString(group) << QString(key);
    auto *answer = new QDBusPendingCallWatcher(connection.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            take(reply.value().variant());
        answer->deleteLater();
    });
}

void SchemeWatch::settingChanged(const QString &changedGroup, const QString &changedKey, const QDBusVariant &value) {
    if (changedGroup == group && changedKey == key)
        take(value.variant());
}

// Read() wraps the value in a variant of its own.
void SchemeWatch::take(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    const uint scheme = value.toUInt();
    Q_EMIT answered(scheme == 1 ? std::optional(true) : scheme == 2 ? std::optional(false) : std::nullopt);
}

#else

SchemeWatch::SchemeWatch(const QString &, QObject *parent)
    : QObject(parent) {
#ifdef Q_OS_WIN
    const QSettings personal(uR"(HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize)"_s,
                             QSettings::NativeFormat);
    const QVariant light = personal.value(u"AppsUseLightTheme"_s);
    if (light.isValid()) // after the caller has connected
        QTimer::singleShot(0, this, [this, light] { Q_EMIT answered(!light.toBool()); });
#endif
}

#endif

} // namespace platform
