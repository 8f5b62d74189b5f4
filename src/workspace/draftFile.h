// The drafts of one record file, stored in a folder of the user's state. They belong to the record file by its path,
// size and modification time. A draft file that is damaged, has another version, or belongs to a record file that has
// changed since is renamed and not used.
//
// One JSON object per line. The first object has the format, the version and the record file; each of the others holds
// one draft: {"row": 3, "origin": "…", "record": "…"}. "left": true marks a draft that an earlier start left. A later
// line replaces an earlier one about the same row, and {"row": 3, "gone": true} removes the draft. An incomplete last
// line, written before a power failure, is ignored.
#pragma once

#include "platform/result.h"
#include "workspace/draftBook.h"
#include <QString>

namespace workspace {

class DraftFile {
public:
    static constexpr qint64 largest = qint64(1) << 28; // bytes; a larger file is neither read nor written

    // `folder` must end with a separator.
    DraftFile(const QString &folder, const QString &recordFile);

    // Reads the drafts that an earlier start left. If a row has two drafts, `drafts` has the newer and `older` the
    // older one. On failure the message names what was found and the place to which the file was moved; if it could not
    // be moved, write() has no effect from then on.
    struct Found {
        Drafts drafts;
        Drafts older;
    };
    platform::Result<Found> read();
    // Returns how many records have a draft that read() would return; moves nothing.
    qsizetype count() const;

    // Replaces the file as a whole, or leaves it unchanged on failure. Removes the file if there are no drafts. `left`
    // are the drafts of an earlier start.
    platform::Status write(const Drafts &changed, const Drafts &left);
    // Adds to the file written by write() or append(); makes it if there is none. Takes time for these drafts only. On
    // failure the file keeps its contents; needsWhole() then returns true if only write() can succeed.
    platform::Status append(const Drafts &changed, const std::vector<int> &gone);
    // Returns whether the file must be written as a whole: it was not written since read(), is mostly outdated lines,
    // or cannot be added to.
    bool needsWhole(qsizetype drafts) const;
    // Writes the drafts to a separate file, which the program does not read again. Returns its path.
    platform::Result<QString> setAside(const Drafts &drafts) const;

private:
    platform::Status writeWhole(const QByteArray &text, qsizetype lines);
    QByteArray heading() const;
    QString freePath() const;
    platform::Failure refuse(const QString &words);

    QString m_recordFile;
    QString m_identity; // size and modification time of the record file
    QString m_path;
    bool m_mayWrite = true;
    bool m_mayAppend = true;
    qint64 m_lines = 0; // drafts in the file, replaced ones too
};

} // namespace workspace
