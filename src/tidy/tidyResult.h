// The result of tidying a file and the texts about it. Memory use is limited for any file.
#pragma once

#include "tidy/recordChange.h"
#include "tidy/sourceEncoding.h"
#include <QList>
#include <QString>
#include <map>
#include <optional>

namespace tidy {

// How often something occurred, and the first records in which it did.
struct Noted {
    static constexpr qsizetype most = 10;
    qint64 count = 0;
    QList<qint64> records; // numbers counted from 1, at most `most`
    bool inMore = false;   // further records are not listed
    void add(qint64 record, qint64 times = 1);
};

using Reasons = QList<std::pair<QString, Noted>>; // at most the first 100

struct TidyResult {
    static constexpr size_t mostListed = 500;

    marc::FileEncoding encoding = marc::FileEncoding::Unknown; // as detected
    bool doubtful = false;                                     // the detected encoding is uncertain
    SourceEncoding chosen = SourceEncoding::Automatic;
    qint64 in = 0;                                // records found, usable or not
    qint64 out = 0;                               // records written
    Noted lacking;                                // characters that the target form cannot hold
    std::map<char32_t, Noted> lackingByCharacter; // at most `mostListed` characters
    Noted damagedBytes;
    Noted damagedDirectories;
    Noted unreadable;
    Reasons reasons;              // why records are unreadable
    QString change;               // its name; empty: there was none
    std::vector<StepTally> steps; // of the change
    qint64 changed = 0;           // records
    Noted notChanged;             // records that the change left as they were for a reason
    Reasons reasonsNotChanged;
    QString unreadableFile;        // the file with the unreadable records
    qint64 passedOver = 0;         // XML elements named "record" that are not MARC records
    std::optional<QString> broken; // where the XML of the source is broken
    QString target;                // the file written

    void addLacking(char32_t character, qint64 record);
    void addUnreadable(qint64 record, const QString &why);
    void addChange(qint64 record, bool wasChanged, const QString &why); // an empty reason is none
};

QString report(const TidyResult &result, const QString &source);
// Returns one line about losses and doubts, or an empty text if there are none.
QString warning(const TidyResult &result);

} // namespace tidy
