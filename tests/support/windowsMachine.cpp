#include "support/fullDisk.h"
#include "support/killedChild.h"
#include "support/machine.h"
#include <windows.h>

#include <psapi.h>

FullDisk::FullDisk(qint64 bytes)
    : m_before(quint64(bytes)) {
    ADD_FAILURE() << "Windows has no limit for the size of files";
}

FullDisk::~FullDisk() = default;

void killInMidWork(const std::function<void()> &, const std::function<bool()> &) {
    ADD_FAILURE() << "Windows cannot fork";
}

qint64 peakMemory() {
    PROCESS_MEMORY_COUNTERS used{};
    GetProcessMemoryInfo(GetCurrentProcess(), &used, sizeof(used));
    return qint64(used.PeakWorkingSetSize);
}

bool removesOpenFiles() {
    return false;
}

bool makePipe(const QString &) {
    return false;
}
