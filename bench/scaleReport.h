// The results of a run over several batch sizes: one figure for each operation and size, which shows how the time
// grows, and the rows of the table. Rows are printed during the run; write() stores the figures as JSON.
#pragma once

#include "benchStage.h"
#include "sideBySide.h"

namespace bench {

struct Figure {
    QString operation;
    int records;    // in the file, list or catalogue
    int counted;    // the number of records that the seconds cover
    double seconds; // of the best round
    std::optional<double> theirs;
    QString beside; // the name of the counterpart that `theirs` measures
    double load;    // of the machine in the previous minute, including this program
};

class ScaleReport {
public:
    void about(int records);
    int records() const { return m_records; }
    // Adds the figure of an operation on all records of the current size, and a row of the table if `wanted` is set.
    void compared(const QString &operation, const std::vector<double> &sides, const QString &beside, double wanted);
    // Adds the figure of an operation without a counterpart, on `counted` records. `wanted` is the maximum number of
    // seconds per record; 0 sets no limit.
    void alone(const QString &operation, double seconds, int counted, double wanted = 0);

    bool write(const QString &path) const;

    Table table;

private:
    int m_records = 0;
    std::vector<Figure> m_figures;
};

// Returns the number of rounds for a size; fewer for large sizes, which take long and vary little.
int roundsOf(int records, int usual = 5, int ofLarge = 3);

// The subjects. Each one measures at the current size. Functions that are listed in scale.cpp can be chosen by name.
void recordScale(ScaleReport &report, const BenchStage &stage);   // the workspace
void fileScale(ScaleReport &report, const BenchStage &stage);     // split, merge
void databaseScale(ScaleReport &report, const BenchStage &stage); // import, list, export, print preview
void proofScale(ScaleReport &report, const BenchStage &stage);    // proof and look-up of a whole list
void livenessScale(ScaleReport &report, const BenchStage &stage); // turns of the event loop, stops
// Measured once, independent of the sizes.
void startScale(ScaleReport &report);
void serverScale(ScaleReport &report, const BenchStage &stage); // import into PostgreSQL and MariaDB

} // namespace bench
