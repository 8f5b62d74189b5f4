// Reports whether the desktop prefers dark windows: the setting `color-scheme` of the desktop's portal, also while the
// program runs, or on Windows the setting of the user at the start of the program.
#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <optional>

class QDBusVariant;

namespace platform {

class SchemeWatch final : public QObject {
    Q_OBJECT
public:
    // Queries the portal over the bus connection of that name; an empty name means the session bus. Does not wait for
    // the answer.
    explicit SchemeWatch(const QString &bus = {}, QObject *parent = nullptr);

Q_SIGNALS:
    // Sent with the answer and with each later change; std::nullopt: the desktop has no preference.
    void answered(std::optional<bool> dark);

private:
    void take(QVariant value);

#ifdef TARVEX_DBUS
private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);
#endif
};

} // namespace platform
