// Tells whether another instance of the program runs on this machine, whoever started it. The answer survives a crash
// of the first instance: the machine itself lets go of the claim when the process ends, however it ends.
#pragma once

#include <QString>
#include <memory>

namespace platform {

class SingleInstance {
public:
    // The claim lies in a file of that name in the folder, where the machine keeps claims in files. Another folder than
    // the machine's is for who must not meet the program that people run: the tour, and tests.
    explicit SingleInstance(const QString &name, const QString &folder = machineFolder());
    ~SingleInstance();

    // Whether this process is the first; the claim is held until the object goes.
    bool isFirst() const { return m_first; }

    // The folder for passing files, the same for every account whatever its environment says.
    static QString machineFolder();

private:
    struct Claim;
    std::unique_ptr<Claim> m_claim;
    bool m_first = false;
};

} // namespace platform
