// Tells whether another instance of the program runs on this machine, whoever started it. The answer survives a crash
// of the first instance: the machine itself lets go of the claim when the process ends, however it ends.
#pragma once

#include <QString>
#include <memory>

namespace platform {

class SingleInstance {
public:
    explicit SingleInstance(const QString &name);
    ~SingleInstance();

    // Whether this process is the first; the claim is held until the object goes.
    bool isFirst() const { return m_first; }

private:
    struct Claim;
    std::unique_ptr<Claim> m_claim;
    bool m_first = false;
};

} // namespace platform
