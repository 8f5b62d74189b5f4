// What the remarks do not tell about a proof of a batch.
#pragma once

#include <QDateTime>
#include <QStringList>

namespace batch {

struct ProofFacts {
    QString file;          // path
    QDateTime ended;       // of the proof
    int rows = 0;          // of the list that the run reached, some of which may have no record
    int proved = 0;        // records
    qint64 inFile = 0;     // records
    bool stopped = false;  // by the user, before the end
    QString schema;        // title of the schema in force; empty: the records were not validated against one
    QStringList checksOff; // labels of the checks that were switched off
};

} // namespace batch
