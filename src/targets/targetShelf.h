// The user's list of targets. Each change is stored at once; if that fails, the list stays as it was.
#pragma once

#include "targets/targetFile.h"
#include <QStringList>
#include <optional>

namespace targets {

class TargetShelf {
public:
    // Reads the list in the folder, whose path ends with a separator.
    explicit TargetShelf(const platform::Result<QString> &folder);

    const TargetList &list() const { return m_list; }
    int count() const { return int(m_list.size()); }
    const Target &at(int index) const { return m_list[size_t(index)]; }
    // The reason why the list could not be read; empty if it could. The list is then empty and cannot be changed, so
    // that the file stays as it is.
    const QString &complaint() const { return m_complaint; }
    // The targets with these names, in the order of the list.
    TargetList named(const QStringList &names) const;

    // Returns why a target cannot replace the one at the index; std::nullopt if it can.
    std::optional<TargetFault> faultAt(int index, const Target &target) const;
    // Replaces a target. If anything other than its name or its password has changed, it becomes untested.
    platform::Status set(int index, Target target);
    platform::Status markTested(int index);
    // Add a target at the end. Return its index. A name that is taken gets a number.
    platform::Result<int> add(Target target);
    platform::Result<int> copy(int index);
    platform::Status remove(int index);
    // Moves a target by one place up (-1) or down (1). Returns its index, the same one at the ends of the list.
    platform::Result<int> move(int index, int by);
    // Adds the targets of a file. Returns how many were added; those whose address is in the list are not.
    platform::Result<int> import(const QString &path);
    platform::Status exportTo(const QString &path) const; // without passwords

private:
    platform::Status keep(TargetList list);

    QString m_folder;
    TargetList m_list;
    QString m_complaint;
};

} // namespace targets
