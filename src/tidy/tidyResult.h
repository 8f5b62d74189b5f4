// What came of tidying a file, and the words for it. Memory: bounded, whatever the file holds.
#pragma once

#include "tidy/sourceEncoding.h"
#include <QList>
#include <QString>
#include <map>
#include <optional>

namespace tidy {

// How often something was met, and in which records first.
struct Noted {
    static constexpr qsizetype most = 10;
    qint64 count = 0;
    QList<qint64> records; // numbers from 1, at most `most`
    bool inMore = false;   // and in records beyond those
    void add(qint64 record, qint64 times = 1);
};

struct TidyResult {
    static constexpr std::size_t mostListed = 500;

    marc::FileEncoding encoding = marc::FileEncoding::Unknown; // as it was guessed
    bool doubtful = false;                                     // that it is this one
    SourceEncoding chosen = SourceEncoding::Automatic;
    qint64 in = 0;                                // records met, usable or not
    qint64 out = 0;                               // records written
    Noted lacking;                                // characters that the target's form cannot hold
    std::map<char32_t, Noted> lackingByCharacter; // the first of them
    Noted damagedBytes;
    Noted damagedDirectories;
    Noted unreadable;
    QList<std::pair<QString, Noted>> reasons; // why; the first that were met
    QString unreadableFile;                   // where those are
    qint64 passedOver = 0;                    // elements of XML that are named as records are and hold none
    std::optional<QString> broken;            // where the source ended ahead of its end
    QString target;                           // the file that was written

    void addLacking(char32_t character, qint64 record);
    void addUnreadable(qint64 record, const QString &why);
};

QString report(const TidyResult &result, const QString &source);
// What was lost and what is in doubt, in one line; empty where nothing is.
QString warning(const TidyResult &result);

} // namespace tidy
