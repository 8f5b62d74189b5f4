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

// The table: what, ours, theirs, ratio, wanted. The numbers of missed rows are counted.
class Table {
public:
    Table();
    // The ratio is how many times as fast as theirs ours is; 0 wanted: told for its own sake.
    void speed(const char *what, double ours, double theirs, double wanted);
    // The ratio is how many times the size of theirs ours has.
    void size(const char *what, double ours, double theirs, double wanted);
    void rate(const char *what, double perSecond, const char *unit);
    int missed() const { return m_missed; }

private:
    int m_missed = 0;
};

} // namespace bench
