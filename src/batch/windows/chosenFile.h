// Saves to a file that the user chooses.
#pragma once

#include "platform/host.h"
#include <functional>
#include <optional>

namespace batch {

struct SaveTarget {
    QString title;
    QString filter;
    QStringView suffix; // added to a name without one
    QString start = {}; // see platform::FileDialog
};

// Opens the dialog for a file and calls `write` with its path; a failure is shown in a box. Returns the text that names
// the file, or std::nullopt if it was not saved.
std::optional<QString> saveChosen(platform::Host &host, const SaveTarget &target,
                                  const std::function<platform::Status(const QString &path)> &write);

} // namespace batch
