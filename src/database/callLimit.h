// Ends a call that its server does not answer. A driver waits on its socket as long as the socket is open, most of them
// without a time limit. When a call has lasted too long, the sockets that the driver opened are shut down; the call
// then fails as it does with a lost connection. Has no effect on a driver without sockets (a database in a file) and on
// Windows, where the driver's own limits must suffice.
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
    // Returns the open sockets of the process. Those that appear while a connection is opened belong to it.
    static std::vector<int> sockets();

    explicit CallLimit(std::vector<int> sockets);
    CallLimit(const CallLimit &) = delete;
    CallLimit &operator=(const CallLimit &) = delete;
    ~CallLimit(); // must run before the sockets are closed

    // Limits a call to `seconds` during its lifetime; 0: no limit. At most one Call exists at a time.
    class Call {
    public:
        Call(CallLimit &limit, std::chrono::seconds seconds);
        Call(const Call &) = delete;
        Call &operator=(const Call &) = delete;
        ~Call();

    private:
        CallLimit &m_limit;
    };

    // Returns whether a call was ended; the connection is then unusable.
    bool struck() const;
    // Must be called between two calls. Returns whether the server has sent nothing since the last one; the end of a
    // server counts as data. Returns false if there is no socket.
    bool quiet() const;

private:
    void watch(const std::stop_token &stop);

    std::vector<int> m_sockets;
    mutable std::mutex m_mutex; // guards the members below
    std::condition_variable_any m_tick;
    std::optional<std::chrono::steady_clock::time_point> m_end;
    bool m_struck = false;
    std::jthread m_watcher;
};

} // namespace database
