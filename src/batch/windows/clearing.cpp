#include "batch/windows/clearing.h"
#include <utility>

namespace batch {

void Clearing::add(std::function<bool()> dropSome) {
    m_waiting.push_back(std::move(dropSome));
    m_work.start();
}

bool Clearing::step() {
    if (!m_waiting.front()())
        m_waiting.pop_front();
    return !m_waiting.empty();
}

} // namespace batch
