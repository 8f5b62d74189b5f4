#include "platform/singleInstance.h"
#include <QDir>
#include <QFile>
#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace platform {

#ifdef Q_OS_WIN

struct SingleInstance::Claim {
    HANDLE mutex = nullptr;
    ~Claim() {
        if (mutex)
            CloseHandle(mutex);
    }
};

SingleInstance::SingleInstance(const QString &name)
    : m_claim(std::make_unique<Claim>()) {
    m_claim->mutex = CreateMutexW(nullptr, TRUE, reinterpret_cast<const wchar_t *>((u"Global\\" + name).utf16()));
    m_first = m_claim->mutex && GetLastError() != ERROR_ALREADY_EXISTS;
}

#else

// An advisory lock on a file in the machine's folder for passing files: the kernel drops it with the process.
struct SingleInstance::Claim {
    int descriptor = -1;
    ~Claim() {
        if (descriptor >= 0)
            close(descriptor);
    }
};

SingleInstance::SingleInstance(const QString &name)
    : m_claim(std::make_unique<Claim>()) {
    const QByteArray path = QFile::encodeName(QDir::tempPath() + u'/' + name + u".lock");
    // Whoever comes first makes the file; to lock it, reading it is enough, so that it serves every user of the
    // machine.
    m_claim->descriptor = open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (m_claim->descriptor < 0)
        m_claim->descriptor = open(path.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
    // Where the folder cannot be written or its file system knows no locks, there is no claim to hold: better two
    // programs than none.
    const bool refused = m_claim->descriptor >= 0 && flock(m_claim->descriptor, LOCK_EX | LOCK_NB) != 0;
    m_first = !refused || errno != EWOULDBLOCK;
}

#endif

SingleInstance::~SingleInstance() = default;

} // namespace platform
