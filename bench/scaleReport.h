// What a run over several sizes of batch tells: a figure an operation and size, so that a curve that bends is seen, and
// the rows of the table; for the eye while it runs, as JSON at its end.
#pragma once

#include "benchStage.h"
#include "sideBySide.h"

namespace bench {

struct Figure {
    QString operation;
    int records;    // of the file, the list or the catalogue that it works on
    int counted;    // how many of them the seconds are for
    double seconds; // the best round
    std::optional<double> theirs;
    QString beside; // whose seconds `theirs` are
    double load;    // of the machine in the minute before, this program's own included
};

class ScaleReport {
public:
    void about(int records);
    int records() const { return m_records; }
    // The figure of an operation on all the records in hand, with a row of the table where something is wanted of it.
    void compared(const QString &operation, const std::vector<double> &sides, const QString &beside, double wanted);
    // The figure of an operation that nothing stands beside, for so many of the records; what is wanted of it are
    // seconds a record at most, or nothing.
    void alone(const QString &operation, double seconds, int counted, double wanted = 0);

    bool write(const QString &path) const;

    Table table;

private:
    int m_records = 0;
    std::vector<Figure> m_figures;
};

// Rounds at a size: the large ones take long and vary little.
int roundsOf(int records, int usual = 5, int ofLarge = 3);

// The subjects; each takes its figures at the size in hand.
void recordScale(ScaleReport &report, const BenchStage &stage);   // the workspace
void fileScale(ScaleReport &report, const BenchStage &stage);     // split, merge
void databaseScale(ScaleReport &report, const BenchStage &stage); // import, list, export, print preview
void proofScale(ScaleReport &report, const BenchStage &stage);    // proof and look-up of a whole list
void livenessScale(ScaleReport &report, const BenchStage &stage); // turns of the event loop, stops
// These are taken once, whatever the sizes.
void startScale(ScaleReport &report);
void serverScale(ScaleReport &report, const BenchStage &stage); // import into PostgreSQL and MariaDB

} // namespace bench
