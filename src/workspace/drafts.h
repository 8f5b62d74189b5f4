// Records of one file that were changed and not yet imported, kept beside the program's state so that they survive an
// end that nobody wanted. A draft belongs to a file by its path, its size and the time of its last change.
#pragma once

#include "marc/rawRecord.h"
#include "platform/result.h"
#include <QMap>
#include <QString>

namespace workspace {

class Drafts {
public:
    // `folder` ends in a separator; where it is empty nothing is kept.
    Drafts(const QString &folder, const QString &sourceFile);

    enum class Found { Nothing, OfThisFile, OfAnOlderFile };
    // What stands from an earlier start. A draft that cannot be read is none; one of a file that has changed since is
    // offered no more, and laid beside under keptPath().
    Found look();
    // What was found, by row from 0. It is written again with what is kept, until drop().
    const QMap<int, marc::RawRecord> &left() const { return m_left; }
    QString keptPath() const { return m_path + QStringLiteral(".old"); }

    // The record of a row as it would be imported. Written by the next write().
    void keep(int row, const marc::RawRecord &record);
    // The row is again as it was read.
    void forget(int row);
    bool unwritten() const { return m_unwritten; }
    qsizetype count() const { return m_records.size(); }
    // Whole or not at all; with nothing to keep the file goes.
    platform::Status write();
    // Everything was imported or given up.
    void drop();

private:
    QByteArray identity() const;

    QString m_source;
    QString m_path; // empty: nothing is kept
    QMap<int, marc::RawRecord> m_left;
    QMap<int, marc::RawRecord> m_records;
    bool m_unwritten = false;
};

} // namespace workspace
