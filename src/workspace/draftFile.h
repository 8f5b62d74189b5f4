// The drafts of one record file on disk, in a folder of the user's state. They belong to that file by its path, its
// size and the time of its last change. A file of drafts that cannot be trusted is set aside under a name of its own
// and never obeyed: one that is damaged, of another version, or of a record file that has changed since.
//
// One JSON object a line: the first names format, version and record file, each further one holds a draft as
// {"row": 3, "origin": "…", "record": "…"}; "left": true marks one that an earlier start has left.
#pragma once

#include "platform/result.h"
#include "workspace/draftBook.h"
#include <QString>

namespace workspace {

class DraftFile {
public:
    static constexpr qint64 largest = qint64(1) << 28; // bytes; a larger file is not read

    // `folder` ends in a separator.
    DraftFile(const QString &folder, const QString &recordFile);

    // What an earlier start has left; of two drafts of one row the newer one, and the older one in `older`. A failure
    // says in words what was found instead; where the file could not be set aside, nothing is written from now on.
    struct Found {
        Drafts drafts;
        Drafts older;
    };
    platform::Result<Found> read();

    // The whole file or none; without drafts there is no file. `left` are those of an earlier start.
    platform::Status write(const Drafts &changed, const Drafts &left);
    // Keeps drafts in a file of their own, which nothing reads again. Its path.
    platform::Result<QString> setAside(const Drafts &drafts) const;

private:
    QByteArray heading() const;
    QString freePath() const;
    platform::Failure refuse(const QString &words);

    QString m_recordFile;
    QString m_identity; // its size and the time of its last change
    QString m_path;
    bool m_mayWrite = true;
};

} // namespace workspace
