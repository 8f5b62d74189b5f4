// Exports every listed row as a record of a new file, with one statement per row on its own connection, and yields
// after each row. After the two checks of the file name all failures are ignored silently: a row that cannot be read is
// written as a record with nothing but the control number.
#pragma once

#include "database/sublib.h"
#include "platform/byteWriter.h"
#include "platform/host.h"
#include <optional>

namespace catalogue {

// The interface of the list window to the run. Rows count from 0, including the heading row.
class ExportSurface {
public:
    virtual ~ExportSurface() = default;
    virtual int rowCount() const = 0;
    virtual QString key(int row) const = 0;             // empty: end of the list
    virtual void showProgress(const QString &text) = 0; // shows the label; an empty text leaves its text unchanged
    virtual bool stopPressed() const = 0;
    virtual void goOn() = 0; // the user answered the question with No
};

class ExportRun {
public:
    ExportRun(ExportSurface &list, platform::Host &host, const database::SessionState &state);

    // Runs the whole export in the caller's thread. If the list changes during the run, the run continues with the
    // current rows.
    void daochuMarc();

    // Call while the run yields: closes the file after the current record. The run then returns without a message.
    void end();

    // Flushes the file; called before a count is shown.
    void handOver();

private:
    QString chooseName();
    // Returns the row at which the run ended: the last row written after a stop, else the row after it.
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
