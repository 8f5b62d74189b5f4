// What the program knows of the database servers and of their ODBC drivers: one row each, and no such fact anywhere
// else.
//
// Which rows hold for a connection is decided by what the driver and the server say of themselves over it. The names in
// a connection text are a first guess: a driver can be registered under any name and be named by its path.
#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <span>

namespace database {

enum class Server { SqlServer, Sqlite, PostgreSql, MariaDb, Other };

// How texts go through a driver. Wide calls are the rule. A driver without wide calls of its own takes and gives UTF-8
// in the narrow ones; the driver manager's conversion is no substitute for them, since it follows the locale, fails on
// characters beyond the BMP, and is not done at all on the first connection where a pool is configured.
enum class TextForm { Wide, Utf8 };

// How a server spells what the program's dialect says. %1: the operand; %2: the length. Empty fields: as it is.
struct Spelling {
    QStringView date;   // convert(varchar(n),x,111): yyyy/mm/dd
    QStringView text;   // convert(varchar(n),x)
    QStringView like;   // the operator; without regard to case
    QStringView folded; // the operand of `like`
    QStringView after;  // after the pattern: makes a backslash in it an ordinary character
    QStringView first;  // at the end of the statement, for "select top n"; %1: the number
    QChar quote;        // around names
};

// A statement for the start of a session. One with %1 sets the limit of a statement, in seconds; it is left out where
// there is none.
struct SessionStatement {
    enum class Refused { Fails, Ignored };
    QStringView text;
    Refused refused = Refused::Fails; // what a refusal by the server means for the connection
};

// How the key of a new row comes back.
struct KeyOfInsert {
    QStringView insert; // %1: the insert; %2: the key column. Empty: the plain insert, then the question
    // The SQLSTATEs and the numbers with which a server says that it does not understand this form.
    std::array<QStringView, 2> notUnderstood;
    QStringView question; // after a plain insert. Empty: none
    bool prepared = false;
};

struct ServerRow {
    Server server;
    std::array<QStringView, 2> names; // parts of the name that its drivers give for it
    bool file;                        // the database is a file, known by its identity while it is open
    bool namesByCase;                 // table names may differ by letter case alone
    bool limitPerStatement;           // the driver gets the time limit with each statement
    std::span<const SessionStatement> start;
    QStringView ping;     // proves that a kept connection works
    QStringView nodePing; // refused by a node that lost its cluster, which still answers
    int leftAlone;        // the number of the fault with which such a node refuses a statement unread; 0: none
    KeyOfInsert key;
    Spelling spelling;
};

const ServerRow &rowOf(Server server);
// By the name that the driver gives for its server (SQL_DBMS_NAME).
const ServerRow &serverNamed(QStringView dbmsName);

// A pair that a driver must find in its connection text.
struct AddedPair {
    enum class When { Always, Missing, MissingInText, LongerOrMissing };
    QStringView key;
    QStringView value; // %login, %silence: the time limits; %Database: the text's value of that key
    When when;
};

struct DriverRow {
    // Parts of what it calls itself (SQL_DRIVER_NAME), of its library's name and of the names it is registered under.
    std::array<QStringView, 4> names;
    Server server; // that it connects to, as a rule
    bool file;     // the database is a file
    TextForm calls;
    std::span<const AddedPair> pairs;
};

// By the names that driver and server give; `guess` where the driver gives none.
const DriverRow &driverNamed(QStringView driverName, QStringView dbmsName, const DriverRow &guess);
// A guess, by the first of the names that is known.
const DriverRow &guessedDriver(std::span<const QString> names);
// Whether a connection that was opened as for `opened` is as good as one opened as for `right`.
bool isOpenedAsFor(const DriverRow &right, const DriverRow &opened);

} // namespace database
