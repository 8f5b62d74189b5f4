// What the database connection dialog composes and says: the connection text, the check of its fields, the words for a
// failed test. Values go into the text as typed, with no escaping.
#pragma once

#include <QStringList>
#include <optional>

namespace app {

inline constexpr QStringView noDataSource = u"(None)";

// What stands in the dialog's fields.
struct ConnectionFields {
    bool dataSourceChosen = false; // the list of data sources stands on an entry behind "(None)"
    QString dataSource;
    QString driver;
    QString server;
    QString user;
    QString password;
    QString database;
};

QString composeConnectionString(const ConnectionFields &fields);

// The complaint about what is missing; nothing when the fields are enough to go on.
std::optional<QString> checkConnectionFields(const ConnectionFields &fields);

// What the dialog says of the data sources that the machine has, for a first run.
QString dataSourceHint(const QStringList &names);

struct TestMessage {
    QString title;
    QString text;
};

// What a failed connection is told with, by the words of the fault's description.
TestMessage messageForFault(const QString &description);

} // namespace app
