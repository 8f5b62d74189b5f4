// Determines whether another instance of the program, of any account, runs on this machine. The operating system
// releases the claim when the process ends, even by a crash.
#pragma once

#include <QString>
#include <memory>

namespace platform {

class SingleInstance {
public:
    // On systems that keep claims in files, the claim is a file called `name` with ".lock" in `folder`. The tour and
    // the tests use a folder of their own so that they do not conflict with a running program.
    explicit SingleInstance(const QString &name, const QString &folder = machineFolder());
    ~SingleInstance();

    // Returns whether this process is the first. The claim is held until this object is destroyed.
    bool isFirst() const { return m_first; }

    // Returns the folder for temporary files, the same for every account and environment.
    static QString machineFolder();

private:
    struct Claim;
    std::unique_ptr<Claim> m_claim;
    bool m_first = false;
};

} // namespace platform
