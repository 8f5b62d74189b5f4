// Compares alternatives: the sides take turns for several rounds, so that other load on the machine affects all of
// them, and the best round of each side counts.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace bench {

// Runs one round of a side. Returns the seconds of the measured work without its preparation, or std::nullopt if the
// round failed.
using Side = std::function<std::optional<double>()>;

// Returns the best seconds of each side, in the given order. Ends the program, naming the side, if a round fails.
std::vector<double> takeTurns(const char *what, int rounds, const std::vector<Side> &sides);

// Returns the seconds that `work` takes, or std::nullopt if it returns false.
std::optional<double> timed(const std::function<bool()> &work);
// Times a shell command.
Side command(const QString &line);
// Appended to a yaz-marcdump command, which reads every record but exits with this code because of the line ends.
inline constexpr QStringView endComplaint = u" || [ $? -eq 5 ]";
QString quoted(const QString &path); // for the shell

enum class Unit { Seconds, Bytes };
enum class Sense { AtLeast, AtMost };

// A row of the table. `wanted` limits the ratio, or `ours` if there is no `theirs`.
struct Row {
    QString what;
    int records; // the number of records; 0 if `what` names it
    double ours;
    std::optional<double> theirs;
    std::optional<double> ratio;
    double wanted; // 0: no limit
    Sense sense;
    Unit unit = Unit::Seconds;
    bool missed() const;
};

// The table: what, ours, theirs, ratio, wanted. Rows are printed when added; rows that miss their limit are marked.
class Table {
public:
    Table();
    // Sets the number of records for all following rows.
    void about(int records) { m_records = records; }
    // The ratio is theirs / ours: how many times as fast ours is.
    void speed(const QString &what, double ours, double theirs, double wanted);
    // The ratio is (ours - fixedPart) / theirs, for times or sizes.
    void time(const QString &what, double ours, double theirs, double wanted, double fixedPart = 0);
    void size(const QString &what, double ours, double theirs, double wanted, double fixedPart = 0);
    // Adds a row in which `ours` must not exceed `wanted`.
    void bound(const QString &what, double ours, double wanted, Unit unit = Unit::Seconds);
    void rate(const QString &what, double perSecond, const QString &unit);
    const std::vector<Row> &rows() const { return m_rows; }
    int missed() const;

private:
    void add(Row row);

    int m_records = 0;
    std::vector<Row> m_rows;
};

} // namespace bench
