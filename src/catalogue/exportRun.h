// The run that turns every listed row into a record of a new file: one statement a row on one connection of its own,
// one yield a row. Behind the two checks of the file name all failures are passed over without a word: a row that
// cannot be read still gives a record, with nothing but its control number.
#pragma once

#include "database/sublib.h"
#include "platform/byteWriter.h"
#include "platform/host.h"
#include <optional>

namespace catalogue {

// The list window as the run sees it. Rows count from 0, the heading row included.
class ExportSurface {
public:
    virtual ~ExportSurface() = default;
    virtual int rowCount() const = 0;
    virtual QString key(int row) const = 0;             // empty: the list ends here
    virtual void showProgress(const QString &text) = 0; // makes the label visible; empty: it keeps its text
    virtual bool stopPressed() const = 0;
    virtual void goOn() = 0; // the answer to the question was No
};

class ExportRun {
public:
    ExportRun(ExportSurface &list, platform::Host &host, const database::SessionState &state);

    // The whole run, in the caller's thread. The list may change in mid-run: the run goes on with the rows that stand.
    void daochuMarc();

    // Called while the run yields: closes the file behind the record in hand; the run then comes back without a word.
    void end();

    // Hands over to the file what was written so far; called before a count is seen.
    void handOver();

private:
    QString chooseName();
    // The number of the row behind the last one written.
    int exportRows();
    void exportRow(const QString &zskid);
    bool askedToStop(int row);

    ExportSurface &m_list;
    platform::Host &m_host;
    const database::SessionState &m_state;
    database::DbSession m_connection;
    std::optional<platform::ByteWriter> m_file;
    bool m_ended = false;
};

} // namespace catalogue
