#include "database/callLimit.h"
#include <QByteArrayView>
#include <utility>

#ifndef Q_OS_WIN
#include <dirent.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#endif

namespace database {

namespace {

constexpr std::chrono::milliseconds lookEvery(250); // checking at intervals adds no cost to a call

} // namespace

std::vector<int> CallLimit::sockets() {
    std::vector<int> found;
#ifndef Q_OS_WIN
    DIR *folder = ::opendir("/dev/fd");
    while (const dirent *entry = folder ? ::readdir(folder) : nullptr) {
        bool isNumber = false;
        const int descriptor = QByteArrayView(entry->d_name).toInt(&isNumber);
        struct stat facts {};
        if (isNumber && ::fstat(descriptor, &facts) == 0 && S_ISSOCK(facts.st_mode))
            found.push_back(descriptor);
    }
    if (folder)
        ::closedir(folder);
#endif
    return found;
}

CallLimit::CallLimit(std::vector<int> sockets)
    : m_sockets(std::move(sockets)) {
    if (!m_sockets.empty())
        m_watcher = std::jthread([this](const std::stop_token &stop) { watch(stop); });
}

CallLimit::~CallLimit() = default; // stops m_watcher first, as the last member

CallLimit::Call::Call(CallLimit &limit, std::chrono::seconds seconds)
    : m_limit(limit) {
    const std::scoped_lock lock(m_limit.m_mutex);
    if (seconds.count() > 0)
        m_limit.m_end = std::chrono::steady_clock::now() + seconds;
}

CallLimit::Call::~Call() {
    const std::scoped_lock lock(m_limit.m_mutex);
    m_limit.m_end.reset();
}

bool CallLimit::struck() const {
    const std::scoped_lock lock(m_mutex);
    return m_struck;
}

bool CallLimit::quiet() const {
#ifdef Q_OS_WIN
    return false;
#else
    std::vector<pollfd> looks;
    for (const int socket : m_sockets)
        looks.push_back({.fd = socket, .events = POLLIN, .revents = 0});
    return !looks.empty() && ::poll(looks.data(), nfds_t(looks.size()), 0) == 0;
#endif
}

void CallLimit::watch(const std::stop_token &stop) {
    std::unique_lock lock(m_mutex);
    while (!stop.stop_requested()) {
        m_tick.wait_for(lock, stop, lookEvery, [] { return false; });
        if (m_struck || !m_end || std::chrono::steady_clock::now() < *m_end)
            continue;
        m_struck = true;
#ifndef Q_OS_WIN
        for (const int socket : m_sockets)
            ::shutdown(socket, SHUT_RDWR);
#endif
    }
}

} // namespace database
