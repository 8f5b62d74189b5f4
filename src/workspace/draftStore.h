// Keeps the drafts of one record file in a DraftBook and in a DraftFile. The caller supplies the folder of draft files,
// the record of the grid and the time of each write; the texts that functions return are for the user.
#pragma once

#include "workspace/draftBook.h"
#include "workspace/draftFile.h"
#include <QStringList>

namespace workspace {

class DraftStore {
public:
    // The record of the grid if it differs from the list.
    struct Grid {
        DraftBook::InGrid draft;
        marc::RawRecord untimed; // the same without a time of rebuilding, to detect that it has not changed
    };

    // Starts over for a record file. open() must follow.
    void begin(const QString &recordFile);
    bool hasBegun() const { return !m_recordFile.isEmpty(); }
    bool isOpen() const { return m_file.has_value(); }

    // Reads the draft file and makes the drafts in it available to restore(). `folder` must end with a separator. Fails
    // if drafts cannot be stored at present; call it again later.
    struct Opened {
        QStringList words;
        qsizetype offered = 0; // drafts of an earlier start
        bool isDue = false;    // the file must be written
    };
    platform::Result<Opened> open(const platform::Result<QString> &folder);

    // Updates the draft file: as a whole if it needs that, otherwise at most `rows` rows that have changed since the
    // last write, and the rows that the grid has and had. Does nothing if nothing has changed. Call it only if
    // isOpen().
    platform::Status write(const std::optional<Grid> &grid, size_t rows);

    // See DraftBook::restore(). The caller puts the records into the list and then calls finish(), which sets aside the
    // drafts that were not restored and returns a text; it is empty if there were no drafts.
    QString finish(const DraftBook::Restored &restored);
    // Sets aside the drafts that wait for records beyond the end of the file.
    QString readToTheEnd(int count);
    // Sets aside all drafts that were not restored.
    QString giveUp();

    DraftBook &book() { return m_book; }
    const DraftBook &book() const { return m_book; }

private:
    struct Written {
        quint64 revision = 0;
        int row = -1; // row of the record in the grid; -1: the record is as in the list
        marc::RawRecord inGrid;
        friend bool operator==(const Written &, const Written &) = default;
    };

    platform::Status store(const std::optional<DraftBook::InGrid> &inGrid, size_t rows);
    platform::Status append(const std::set<int> &rows, const std::optional<DraftBook::InGrid> &inGrid);
    QString setAside(const Drafts &drafts);

    DraftBook m_book;
    QString m_recordFile;
    std::optional<DraftFile> m_file; // set when its folder is available
    Written m_written;
};

} // namespace workspace
