// What an operation of the machine gives: a value, or the reason why there is none, worded for a message box.
#pragma once

#include <QString>
#include <utility>
#include <variant>

namespace platform {

struct Failure {
    QString description; // fit for a message box, in the machine's or the server's own words
    int number = -1;     // the fault number where the machine gives one; never 0
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

    // The value; only where ok().
    T &value() & { return std::get<0>(m_state); }
    const T &value() const & { return std::get<0>(m_state); }
    T &&value() && { return std::get<0>(std::move(m_state)); }

    // The failure; only where not ok().
    const Failure &failure() const { return std::get<1>(m_state); }

private:
    std::variant<T, Failure> m_state;
};

// For operations that give nothing but success.
using Status = Result<std::monostate>;
inline Status success() {
    return Status(std::monostate{});
}

} // namespace platform
