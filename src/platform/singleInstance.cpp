#include "platform/singleInstance.h"
#include <QFile>
#ifdef Q_OS_WIN
#include <string>
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace platform {

#ifdef Q_OS_WIN

struct SingleInstance::Claim {
    HANDLE mutex = nullptr;
    ~Claim() {
        if (mutex)
            CloseHandle(mutex);
    }
};

SingleInstance::SingleInstance(const QString &name, const QString & /*folder*/)
    : m_claim(std::make_unique<Claim>()) {
    const std::wstring shared = QString(u"Global\\" + name).toStdWString();
    m_claim->mutex = CreateMutexW(nullptr, TRUE, shared.c_str());
    m_first = m_claim->mutex && GetLastError() != ERROR_ALREADY_EXISTS;
}

#else

// An advisory lock on a file that every account can open; the kernel releases it when the process ends.
struct SingleInstance::Claim {
    int descriptor = -1;
    ~Claim() {
        if (descriptor >= 0)
            close(descriptor);
    }
};

namespace {

// In a folder that every account can write to, the name may be a link or a pipe: neither must be followed or block.
constexpr int carefully = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;

// Opens the lock file, or makes it readable for all accounts for every umask: locking needs only read access. Opening
// is tried before making it, since a shared folder may refuse O_CREAT for a file of another account.
int openLockFile(const char *path) {
    int descriptor = open(path, carefully);
    if (descriptor >= 0 || errno != ENOENT)
        return descriptor;
    descriptor = open(path, carefully | O_CREAT | O_EXCL, 0644);
    if (descriptor < 0)
        return open(path, carefully); // another process made it in between
    std::ignore = fchmod(descriptor, 0644);
    return descriptor;
}

bool isPlainFile(int descriptor) {
    struct stat entry = {};
    return fstat(descriptor, &entry) == 0 && S_ISREG(entry.st_mode);
}

} // namespace

SingleInstance::SingleInstance(const QString &name, const QString &folder)
    : m_claim(std::make_unique<Claim>()) {
    m_claim->descriptor = openLockFile(QFile::encodeName(folder + u'/' + name + u".lock").constData());
    // If there is no file to lock, or its file system does not support locks, the claim cannot be checked; the program
    // then starts.
    const bool refused = isPlainFile(m_claim->descriptor) && flock(m_claim->descriptor, LOCK_EX | LOCK_NB) != 0;
    m_first = !refused || errno != EWOULDBLOCK;
}

#endif

SingleInstance::~SingleInstance() = default;

QString SingleInstance::machineFolder() {
    return u"/tmp"_s;
}

} // namespace platform
