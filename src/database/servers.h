// The facts about the database servers and their ODBC drivers: one row each. No other file contains such facts.
//
// The rows used for a connection are chosen by what the driver and the server report over it. The names in a connection
// text are only a first guess: a driver can be registered under any name and be named by its path.
#pragma once

#include <QString>
#include <QStringView>
#include <array>
#include <span>

namespace database {

enum class Server { SqlServer, Sqlite, PostgreSql, MariaDb, Other };

// How texts are passed to a driver. Wide calls are the rule. A driver without wide calls takes and returns UTF-8 in the
// narrow ones; the driver manager's conversion cannot be used for it, since it follows the locale, fails for characters
// beyond the BMP, and is skipped on the first connection if a pool is configured.
enum class TextForm { Wide, Utf8 };

// How a server spells parts of the program's dialect. %1: the operand; %2: the length. Empty fields: not rewritten.
struct Spelling {
    QStringView date;   // convert(varchar(n),x,111): yyyy/mm/dd
    QStringView text;   // convert(varchar(n),x)
    QStringView like;   // the operator; case-insensitive
    QStringView folded; // the operand of `like`
    QStringView after;  // after the pattern: makes a backslash in it an ordinary character
    QStringView first;  // at the end of the statement, for "select top n"; %1: the number
    QChar quote;        // around names
};

// A statement for the start of a session. One with %1 sets the statement time limit, in seconds; it is skipped if there
// is no limit.
struct SessionStatement {
    enum class Refused { Fails, Ignored };
    QStringView text;
    Refused refused = Refused::Fails; // what a refusal by the server means for the connection
};

// How the key of a new row is obtained.
struct KeyOfInsert {
    QStringView insert; // %1: the insert; %2: the key column. Empty: the plain insert, then `question`
    // The SQLSTATEs and error numbers by which a server reports that it does not understand `insert`.
    std::array<QStringView, 2> notUnderstood;
    QStringView question; // sent after a plain insert. Empty: none
    bool prepared = false;
};

struct ServerRow {
    Server server;
    std::array<QStringView, 2> names; // parts of the server name that its drivers report
    bool file;                        // the database is a file, whose identity is checked while it is open
    bool namesByCase;                 // table names are case-sensitive
    bool limitPerStatement;           // the driver gets the time limit with each statement
    std::span<const SessionStatement> start;
    QStringView ping;     // tests a kept connection
    QStringView nodePing; // refused by a node that lost its cluster but still answers
    int leftAlone;        // the error number by which such a node refuses a statement unread; 0: none
    KeyOfInsert key;
    Spelling spelling;
};

const ServerRow &rowOf(Server server);
// Returns the row for the server name that the driver reports (SQL_DBMS_NAME).
const ServerRow &serverNamed(QStringView dbmsName);

// A pair that a driver needs in its connection text.
struct AddedPair {
    enum class When { Always, Missing, MissingInText, LongerOrMissing };
    QStringView key;
    QStringView value; // %login, %silence: the time limits; %Database: the text's value of that key
    When when;
};

struct DriverRow {
    // Parts of the name that the driver reports (SQL_DRIVER_NAME), of its library's name and of its registered names.
    std::array<QStringView, 4> names;
    Server server; // the server that it usually connects to
    bool file;     // the database is a file
    TextForm calls;
    std::span<const AddedPair> pairs;
};

// Returns the row for the names that driver and server report; `guess` if the driver reports none.
const DriverRow &driverNamed(QStringView driverName, QStringView dbmsName, const DriverRow &guess);
// Returns a guess, by the first of the names that is known.
const DriverRow &guessedDriver(std::span<const QString> names);
// Returns whether a connection opened with the settings of `opened` also suits `right`.
bool isOpenedAsFor(const DriverRow &right, const DriverRow &opened);

} // namespace database
