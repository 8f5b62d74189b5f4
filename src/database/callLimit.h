// Ends a call that its server does not answer. A driver waits in its socket as long as that is open, and most know no
// limit for it: a server that stands still would hold the program as long. The sockets that a driver opened are shut
// when a call over them has lasted too long; it then comes back with a fault, as it does from a lost connection. Does
// nothing for a driver without sockets (a database in a file) and on Windows, where a driver's own limits must do.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace database {

class CallLimit {
public:
    // The process's open sockets. What is among them behind the opening of a connection and was not before is its own.
    static std::vector<int> sockets();

    explicit CallLimit(std::vector<int> sockets);
    CallLimit(const CallLimit &) = delete;
    CallLimit &operator=(const CallLimit &) = delete;
    ~CallLimit(); // before the sockets are closed

    // A call, while this lives; no more than one at a time. No limit where `seconds` is 0.
    class Call {
    public:
        Call(CallLimit &limit, std::chrono::seconds seconds);
        Call(const Call &) = delete;
        Call &operator=(const Call &) = delete;
        ~Call();

    private:
        CallLimit &m_limit;
    };

    // Whether a call was ended: the connection is of no more use.
    bool struck() const;
    // Between two calls: whether the other end has said nothing since. The end of a server comes as something said.
    // False where there is no socket to look at.
    bool quiet() const;

private:
    void watch(const std::stop_token &stop);

    std::vector<int> m_sockets;
    mutable std::mutex m_mutex; // of what stands below
    std::condition_variable_any m_tick;
    std::optional<std::chrono::steady_clock::time_point> m_end;
    bool m_struck = false;
    std::jthread m_watcher;
};

} // namespace database
