// Writes records of the store to a file, one per line, with some hundred rows per query, and yields after each record.
// The file replaces an existing one only when it is complete.
#pragma once

#include "catalogue/storeRecords.h"
#include "platform/byteFile.h"
#include "platform/host.h"
#include <functional>
#include <optional>

namespace catalogue {

class SaveRun {
public:
    SaveRun(QList<qint64> keys, platform::Host &host, const database::SessionState &state);

    // Runs the whole export in the caller's thread. `progress` receives the number of records done. Returns the message
    // about the result.
    QString save(const QString &path, const std::function<void(int done)> &progress);

    // Call while the run yields: removes the unfinished file at once and ends the run.
    void stop();

private:
    platform::Status write(const QString &path, const std::function<void(int done)> &progress);
    QString savedText(const QString &path) const;

    QList<qint64> m_keys;
    platform::Host &m_host;
    const database::SessionState &m_state;
    std::optional<platform::SavedFile> m_file;
    LostCharacters m_lost;
    int m_written = 0;
    int m_missing = 0; // deleted in the meantime, or without a record
    bool m_stopped = false;
};

} // namespace catalogue
