#include "targets/targetShelf.h"
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace targets {

namespace {

// Returns whether a test of one target is not valid for the other.
bool answersDiffer(Target one, const Target &other) {
    one.name = other.name;
    one.password = other.password;
    one.tested = other.tested;
    return !(one == other);
}

} // namespace

TargetShelf::TargetShelf(const platform::Result<QString> &folder) {
    if (!folder) {
        m_complaint = folder.failure().description;
        return;
    }
    m_folder = folder.value();
    auto read = readKeptTargets(m_folder);
    if (read)
        m_list = std::move(read).value();
    else
        m_complaint = read.failure().description;
}

TargetList TargetShelf::named(const QStringList &names) const {
    TargetList found;
    for (const Target &target : m_list) {
        if (names.contains(target.name))
            found.push_back(target);
    }
    return found;
}

platform::Status TargetShelf::keep(TargetList list) {
    if (!m_complaint.isEmpty())
        return platform::Failure{m_complaint};
    if (platform::Status kept = keepTargets(m_folder, list); !kept)
        return kept;
    m_list = std::move(list);
    return platform::success();
}

std::optional<TargetFault> TargetShelf::faultAt(int index, const Target &target) const {
    if (const auto fault = faultOf(target))
        return fault;
    for (int other = 0; other < count(); ++other) {
        if (other != index && at(other).name == target.name)
            return TargetFault{u"name", u"“"_s + target.name + u"”已经有了"};
    }
    return std::nullopt;
}

platform::Status TargetShelf::set(int index, Target target) {
    if (const auto fault = faultAt(index, target))
        return platform::Failure{fault->reason};
    TargetList list = m_list;
    Target &old = list[size_t(index)];
    target.tested = old.tested && !answersDiffer(target, old);
    old = std::move(target);
    return keep(std::move(list));
}

platform::Status TargetShelf::markTested(int index) {
    TargetList list = m_list;
    list[size_t(index)].tested = true;
    return keep(std::move(list));
}

platform::Result<int> TargetShelf::add(Target target) {
    TargetList list = m_list;
    target.name = freeName(list, target.name);
    target.tested = false;
    list.push_back(std::move(target));
    if (const platform::Status kept = keep(std::move(list)); !kept)
        return kept.failure();
    return count() - 1;
}

platform::Result<int> TargetShelf::copy(int index) {
    return add(at(index));
}

platform::Status TargetShelf::remove(int index) {
    TargetList list = m_list;
    list.erase(list.begin() + index);
    return keep(std::move(list));
}

platform::Result<int> TargetShelf::move(int index, int by) {
    const int to = std::clamp(index + by, 0, count() - 1);
    TargetList list = m_list;
    std::swap(list[size_t(index)], list[size_t(to)]);
    if (const platform::Status kept = keep(std::move(list)); !kept)
        return kept.failure();
    return to;
}

platform::Result<int> TargetShelf::import(const QString &path) {
    const auto read = readTargetFile(path);
    if (!read)
        return read.failure();
    TargetList list = m_list;
    const int added = addTargets(list, read.value());
    if (const platform::Status kept = keep(std::move(list)); !kept)
        return kept.failure();
    return added;
}

platform::Status TargetShelf::exportTo(const QString &path) const {
    return exportTargets(path, m_list);
}

} // namespace targets
