// The run that writes records of the store into a file, one a line: some hundred rows a question, one yield a record.
// The file appears only when all of it is written; what stood there stays until then.
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

    // The whole run, in the caller's thread; `progress` learns how many records are done. Gives what a box says of it.
    QString save(const QString &path, const std::function<void(int done)> &progress);

    // Called while the run yields: nothing is left of the new file, at once, and the run comes back.
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
    int m_missing = 0; // deleted meanwhile, or without a record
    bool m_stopped = false;
};

} // namespace catalogue
