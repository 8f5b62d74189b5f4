#include "support/fullDisk.h"
#include "support/killedChild.h"
#include "support/machine.h"
#include <QTest>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Returns the limit that was in force.
rlim_t limitFiles(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlim_t before = std::exchange(limit.rlim_cur, bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
    return before;
}

} // namespace

FullDisk::FullDisk(qint64 bytes) {
    std::signal(SIGXFSZ, SIG_IGN); // so that the write fails instead of ending the process
    m_before = limitFiles(rlim_t(bytes));
}

FullDisk::~FullDisk() {
    limitFiles(m_before);
}

void killInMidWork(const std::function<void()> &work, const std::function<bool()> &farEnough) {
    const pid_t child = fork();
    if (child == 0)
        for (;;)
            work();
    EXPECT_TRUE(QTest::qWaitFor(farEnough, 30000));
    ::kill(child, SIGKILL);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
}

qint64 peakMemory() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return qint64(used.ru_maxrss) << 10;
}

bool removesOpenFiles() {
    return true;
}

bool makePipe(const QString &path) {
    return mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}
