// Functions of the system for tests, in addition to Qt's.
#pragma once

#include <QString>

// Returns the most memory that this process has used, in bytes.
qint64 peakMemory();

// Returns whether the system removes a file that a process has open.
bool removesOpenFiles();

// Makes a named pipe in the file system; returns false where there is none.
bool makePipe(const QString &path);
