// The texts of the database connection dialog: the connection string, the check of the fields and the message for a
// failed test. Values are inserted as typed, without escaping.
#pragma once

#include <QStringList>
#include <optional>

namespace app {

inline constexpr QStringView noDataSource = u"(None)";

// The contents of the dialog's fields.
struct ConnectionFields {
    bool dataSourceChosen = false; // an entry after "(None)" is selected in the list of data sources
    QString dataSource;
    QString driver;
    QString server;
    QString user;
    QString password;
    QString database;
};

QString composeConnectionString(const ConnectionFields &fields);

// Returns the message about missing fields, or std::nullopt if the fields are sufficient.
std::optional<QString> checkConnectionFields(const ConnectionFields &fields);

// Returns the hint about the data sources of the machine, for the first start.
QString dataSourceHint(const QStringList &names);

struct TestMessage {
    QString title;
    QString text;
};

// Returns the message for a failed connection, depending on the text of `description`.
TestMessage messageForFault(const QString &description);

} // namespace app
