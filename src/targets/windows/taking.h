// Writes records to a file of taken records in a folder that the user chooses, reports what was written, and opens the
// file in the pre-read window.
#pragma once

#include "platform/host.h"
#include "targets/windows/surroundings.h"

namespace targets {

class Taking {
public:
    Taking(platform::Host &host, const Surroundings &surroundings)
        : m_host(host)
        , m_surroundings(surroundings) {}

    // Returns whether a file was written.
    bool write(const std::vector<marc::FieldedRecord> &records);
    // Opens the file that was written last.
    void open(QWidget *owner) const { m_surroundings.open(m_file, owner); }
    bool canOpen() const { return !m_file.isEmpty() && m_surroundings.open; }

private:
    platform::Host &m_host;
    const Surroundings &m_surroundings;
    QString m_file;
};

} // namespace targets
