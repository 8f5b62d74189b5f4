// The list of catalogues as a JSON file, and the list supplied with the program.
#pragma once

#include "targets/target.h"
#include <QByteArray>

namespace targets {

inline constexpr qint64 largestTargetFile = 1 << 20; // bytes
inline constexpr QStringView targetFileName = u"targets.json";

// Fails with the key and the reason, for example "targets.3.port：…", if the text is not JSON, a key is unknown,
// missing or of the wrong kind, two targets have the same name, or a target has a fault. Targets are counted from 1.
platform::Result<TargetList> parseTargets(const QByteArray &json);

// The same for a file, which the failure names.
platform::Result<TargetList> readTargetFile(const QString &path);

enum class Passwords { Kept, LeftOut };
QByteArray targetsAsJson(const TargetList &list, Passwords passwords);

// The user's list in `folder`, which ends with a separator; without a file, the shipped list. The file can be read by
// its owner alone.
platform::Result<TargetList> readKeptTargets(const QString &folder);
platform::Status keepTargets(const QString &folder, const TargetList &list);

// Writes the list without passwords, for another account or library.
platform::Status exportTargets(const QString &path, const TargetList &list);

// Returns the name, or, if a target of the list has it, the name with a number.
QString freeName(const TargetList &list, const QString &wanted);

// Adds the targets whose address is not in the list, as untested; a name that is taken gets a number. Returns how many
// were added.
int addTargets(TargetList &list, const TargetList &more);

// Addresses of large public catalogues, all untested.
TargetList shippedTargets();

} // namespace targets
