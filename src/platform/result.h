// The result of an operation of the system: a value, or the reason for a failure, worded for a message box.
#pragma once

#include <QString>
#include <utility>
#include <variant>

namespace platform {

struct Failure {
    QString description; // worded for a message box, by the system or the server
    int number = -1;     // the system's error number if there is one; never 0
};

template <class T>
class [[nodiscard]] Result {
public:
    Result(T value)
        : m_state(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure)
        : m_state(std::in_place_index<1>, std::move(failure)) {}

    bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }

    // The value; valid only if ok().
    T &value() & { return std::get<0>(m_state); }
    const T &value() const & { return std::get<0>(m_state); }
    T &&value() && { return std::get<0>(std::move(m_state)); }

    // The failure; valid only if not ok().
    const Failure &failure() const { return std::get<1>(m_state); }

private:
    std::variant<T, Failure> m_state;
};

// For operations that return no value.
using Status = Result<std::monostate>;
inline Status success() {
    return Status(std::monostate{});
}

} // namespace platform
