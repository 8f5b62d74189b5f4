// Figures taken side by side: the sides of a comparison take turns for several rounds, so that whatever else the
// machine does meets all of them, and the best round of each counts.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace bench {

// One round of a side: the seconds of what it measures, without its preparation; nothing where the round went wrong.
using Side = std::function<std::optional<double>()>;

// The best seconds of each side, in the order given. Ends the program, naming the side, where a round went wrong.
std::vector<double> takeTurns(const char *what, int rounds, const std::vector<Side> &sides);

// The seconds that `work` takes; nothing where it says false.
std::optional<double> timed(const std::function<bool()> &work);
// A command of the shell, for its time alone.
Side command(const QString &line);
// Behind yaz-marcdump: it takes every record, and ends with this code because of the line ends between them.
inline constexpr QStringView endComplaint = u" || [ $? -eq 5 ]";
QString quoted(const QString &path); // for the shell

enum class Unit { Seconds, Bytes };
enum class Sense { AtLeast, AtMost };

// A line of the table. What is wanted is said of the ratio; of ours, where there is no theirs.
struct Row {
    QString what;
    int records; // that it is about; 0: its words say how many
    double ours;
    std::optional<double> theirs;
    std::optional<double> ratio;
    double wanted; // 0: told for its own sake
    Sense sense;
    Unit unit = Unit::Seconds;
    bool missed() const;
};

// The table: what, ours, theirs, ratio, wanted. It is printed row by row; missed rows are marked.
class Table {
public:
    Table();
    // The rows from here on are about so many records.
    void about(int records) { m_records = records; }
    // The ratio is how many times as fast as theirs ours is.
    void speed(const QString &what, double ours, double theirs, double wanted);
    // The ratio is how many times the time, or the size, of theirs ours takes behind a fixed part that is allowed
    // anyway.
    void time(const QString &what, double ours, double theirs, double wanted, double fixedPart = 0);
    void size(const QString &what, double ours, double theirs, double wanted, double fixedPart = 0);
    // What ours may be at most.
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
