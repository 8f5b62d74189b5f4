// The facts about a proof of a batch that its remarks do not contain.
#pragma once

#include <QDateTime>
#include <QStringList>

namespace batch {

struct ProofFacts {
    QString file;          // path
    QDateTime ended;       // of the proof
    int rows = 0;          // rows of the list that the run reached; some may have no record
    int proved = 0;        // records
    qint64 inFile = 0;     // records
    bool stopped = false;  // by the user, before the end
    QString schema;        // title of the schema in force; empty: the records were not validated
    QStringList checksOff; // labels of the checks that were switched off
};

} // namespace batch
